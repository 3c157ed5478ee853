GET DATA  /TYPE = TXT
/FILE = 'out/simulation_net.txt'
/DELCASE = LINE
/DELIMITERS = "\t"
/ARRANGEMENT = DELIMITED
/FIRSTCASE = 2
/IMPORTCASE = ALL
/VARIABLES =
id F5.0
arc F8.0
recip F8.0
member_interaction F8.0
senior_interaction F8.0
urban_interaction F8.0
member_sender F8.0
senior_sender F8.0
urban_sender F8.0
member_receiver F8.0
senior_receiver F8.0
urban_receiver F8.0
member_sender_missing F8.0
senior_sender_missing F8.0
urban_sender_missing F8.0
member_receiver_missing F8.0
senior_receiver_missing F8.0
urban_receiver_missing F8.0
member_t2u11 F8.0
senior_t2u11 F8.0
urban_t2u11 F8.0
member_t1u11 F8.0
senior_t1u11 F8.0
urban_t1u11 F8.0
member_in2star F8.0
senior_in2star F8.0
urban_in2star F8.0
member_path2 F8.0
senior_path2 F8.0
urban_path2 F8.0
member_out2star F8.0
senior_out2star F8.0
urban_out2star F8.0
age_sender F8.4
income_sender F8.4
tenure_sender F8.4
age_receiver F8.4
income_receiver F8.4
tenure_receiver F8.4
age_sender_missing F8.4
income_sender_missing F8.4
tenure_sender_missing F8.4
age_receiver_missing F8.4
income_receiver_missing F8.4
tenure_receiver_missing F8.4
age_interaction_sum F8.4
income_interaction_sum F8.4
tenure_interaction_sum F8.4
age_interaction_diff F8.4
income_interaction_diff F8.4
tenure_interaction_diff F8.4
age_interaction_prod F8.4
income_interaction_prod F8.4
tenure_interaction_prod F8.4
age_sum_reciprocity F8.4
income_sum_reciprocity F8.4
tenure_sum_reciprocity F8.4
age_diff_reciprocity F8.4
income_diff_reciprocity F8.4
tenure_diff_reciprocity F8.4
age_prod_reciprocity F8.4
income_prod_reciprocity F8.4
tenure_prod_reciprocity F8.4
age_in2star F8.4
income_in2star F8.4
tenure_in2star F8.4
age_out2star F8.4
income_out2star F8.4
tenure_out2star F8.4
age_twomix F8.4
income_twomix F8.4
tenure_twomix F8.4
office_matching F8.0
school_matching F8.0
party_matching F8.0
office_mismatch F8.0
school_mismatch F8.0
party_mismatch F8.0
office_matching_reciprocity F8.0
school_matching_reciprocity F8.0
party_matching_reciprocity F8.0
office_mismatch_reciprocity F8.0
school_mismatch_reciprocity F8.0
party_mismatch_reciprocity F8.0
distance_arc F8.4
kinship_arc F8.4
.
CACHE.
EXECUTE.

GRAPH
/Histogram=arc.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH arc
/MISSING=LISTWISE.
GRAPH
/Histogram=recip.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH recip
/MISSING=LISTWISE.
GRAPH
/Histogram=member_interaction.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_interaction
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_interaction.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_interaction
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_interaction.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_interaction
/MISSING=LISTWISE.
GRAPH
/Histogram=member_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=member_receiver.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_receiver
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_receiver.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_receiver
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_receiver.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_receiver
/MISSING=LISTWISE.
GRAPH
/Histogram=member_sender_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_sender_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_sender_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_sender_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_sender_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_sender_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=member_receiver_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_receiver_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_receiver_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_receiver_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_receiver_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_receiver_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=member_t2u11.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_t2u11
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_t2u11.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_t2u11
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_t2u11.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_t2u11
/MISSING=LISTWISE.
GRAPH
/Histogram=member_t1u11.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_t1u11
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_t1u11.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_t1u11
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_t1u11.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_t1u11
/MISSING=LISTWISE.
GRAPH
/Histogram=member_in2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_in2star
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_in2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_in2star
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_in2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_in2star
/MISSING=LISTWISE.
GRAPH
/Histogram=member_path2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_path2
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_path2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_path2
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_path2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_path2
/MISSING=LISTWISE.
GRAPH
/Histogram=member_out2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_out2star
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_out2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_out2star
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_out2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_out2star
/MISSING=LISTWISE.
GRAPH
/Histogram=age_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=income_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=age_receiver.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_receiver
/MISSING=LISTWISE.
GRAPH
/Histogram=income_receiver.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_receiver
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_receiver.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_receiver
/MISSING=LISTWISE.
GRAPH
/Histogram=age_sender_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_sender_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=income_sender_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_sender_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_sender_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_sender_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=age_receiver_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_receiver_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=income_receiver_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_receiver_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_receiver_missing.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_receiver_missing
/MISSING=LISTWISE.
GRAPH
/Histogram=age_interaction_sum.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=income_interaction_sum.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_interaction_sum.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=age_interaction_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=income_interaction_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_interaction_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=age_interaction_prod.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_interaction_prod
/MISSING=LISTWISE.
GRAPH
/Histogram=income_interaction_prod.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_interaction_prod
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_interaction_prod.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_interaction_prod
/MISSING=LISTWISE.
GRAPH
/Histogram=age_sum_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_sum_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=income_sum_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_sum_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_sum_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_sum_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=age_diff_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_diff_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=income_diff_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_diff_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_diff_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_diff_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=age_prod_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_prod_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=income_prod_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_prod_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_prod_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_prod_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=age_in2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_in2star
/MISSING=LISTWISE.
GRAPH
/Histogram=income_in2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_in2star
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_in2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_in2star
/MISSING=LISTWISE.
GRAPH
/Histogram=age_out2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_out2star
/MISSING=LISTWISE.
GRAPH
/Histogram=income_out2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_out2star
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_out2star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_out2star
/MISSING=LISTWISE.
GRAPH
/Histogram=age_twomix.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_twomix
/MISSING=LISTWISE.
GRAPH
/Histogram=income_twomix.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_twomix
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_twomix.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_twomix
/MISSING=LISTWISE.
GRAPH
/Histogram=office_matching.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_matching
/MISSING=LISTWISE.
GRAPH
/Histogram=school_matching.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH school_matching
/MISSING=LISTWISE.
GRAPH
/Histogram=party_matching.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH party_matching
/MISSING=LISTWISE.
GRAPH
/Histogram=office_mismatch.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_mismatch
/MISSING=LISTWISE.
GRAPH
/Histogram=school_mismatch.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH school_mismatch
/MISSING=LISTWISE.
GRAPH
/Histogram=party_mismatch.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH party_mismatch
/MISSING=LISTWISE.
GRAPH
/Histogram=office_matching_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_matching_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=school_matching_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH school_matching_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=party_matching_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH party_matching_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=office_mismatch_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_mismatch_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=school_mismatch_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH school_mismatch_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=party_mismatch_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH party_mismatch_reciprocity
/MISSING=LISTWISE.
GRAPH
/Histogram=distance_arc.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH distance_arc
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_arc.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_arc
/MISSING=LISTWISE.
