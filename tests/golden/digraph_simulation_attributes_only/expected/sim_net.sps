GET DATA  /TYPE = TXT
/FILE = 'out/simulation_net.txt'
/DELCASE = LINE
/DELIMITERS = "\t"
/ARRANGEMENT = DELIMITED
/FIRSTCASE = 2
/IMPORTCASE = ALL
/VARIABLES =
id F5.0
senior_interaction F8.0
member_sender F8.0
member_receiver F8.0
urban_t1u11 F8.0
age_sender F8.4
age_receiver F8.4
tenure_interaction_sum F8.4
income_interaction_diff F8.4
income_interaction_prod F8.4
office_matching F8.0
school_mismatch_reciprocity F8.0
distance_arc F8.4
kinship_arc F8.4
.
CACHE.
EXECUTE.

GRAPH
/Histogram=senior_interaction.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_interaction
/MISSING=LISTWISE.
GRAPH
/Histogram=member_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=member_receiver.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_receiver
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_t1u11.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_t1u11
/MISSING=LISTWISE.
GRAPH
/Histogram=age_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=age_receiver.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_receiver
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_interaction_sum.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=income_interaction_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=income_interaction_prod.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_interaction_prod
/MISSING=LISTWISE.
GRAPH
/Histogram=office_matching.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_matching
/MISSING=LISTWISE.
GRAPH
/Histogram=school_mismatch_reciprocity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH school_mismatch_reciprocity
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
