GET DATA  /TYPE = TXT
/FILE = 'out/simulation_net.txt'
/DELCASE = LINE
/DELIMITERS = "\t"
/ARRANGEMENT = DELIMITED
/FIRSTCASE = 2
/IMPORTCASE = ALL
/VARIABLES =
id F5.0
senior_t3u F8.0
senior_t2u F8.0
urban_t1u F8.0
urban_o3u F8.0
member_o2au F8.0
senior_o2bu F8.0
urban_o1au F8.0
member_o1bu F8.0
member_interaction F8.0
member_activity F8.0
age_sum F8.4
tenure_sum F8.4
age_diff F8.4
tenure_diff F8.4
income_prod F8.4
office_sameEC F8.0
party_sameEC F8.0
school_diffEC F8.0
distance_edge F8.4
kinship_edge F8.4
distance_s21 F8.4
distance_s22 F8.4
kinship_t1 F8.4
kinship_t2 F8.4
kinship_t3 F8.4
.
CACHE.
EXECUTE.

GRAPH
/Histogram=senior_t3u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_t3u
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_t2u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_t2u
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_t1u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_t1u
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_o3u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_o3u
/MISSING=LISTWISE.
GRAPH
/Histogram=member_o2au.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_o2au
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_o2bu.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_o2bu
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_o1au.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_o1au
/MISSING=LISTWISE.
GRAPH
/Histogram=member_o1bu.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_o1bu
/MISSING=LISTWISE.
GRAPH
/Histogram=member_interaction.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_interaction
/MISSING=LISTWISE.
GRAPH
/Histogram=member_activity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_activity 
/MISSING=LISTWISE.
GRAPH
/Histogram=age_sum.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_sum
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_sum.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_sum
/MISSING=LISTWISE.
GRAPH
/Histogram=age_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=income_prod.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_prod
/MISSING=LISTWISE.
GRAPH
/Histogram=office_sameEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_sameEC
/MISSING=LISTWISE.
GRAPH
/Histogram=party_sameEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH party_sameEC
/MISSING=LISTWISE.
GRAPH
/Histogram=school_diffEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH school_diffEC
/MISSING=LISTWISE.
GRAPH
/Histogram=distance_edge.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH distance_edge
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_edge.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_edge
/MISSING=LISTWISE.
GRAPH
/Histogram=distance_s21.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH distance_s21
/MISSING=LISTWISE.
GRAPH
/Histogram=distance_s22.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH distance_s22
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_t1.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_t1
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_t2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_t2
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_t3.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_t3
/MISSING=LISTWISE.
