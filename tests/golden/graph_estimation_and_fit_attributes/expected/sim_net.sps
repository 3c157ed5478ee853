GET DATA  /TYPE = TXT
/FILE = 'out/simulation_net.txt'
/DELCASE = LINE
/DELIMITERS = "\t"
/ARRANGEMENT = DELIMITED
/FIRSTCASE = 2
/IMPORTCASE = ALL
/VARIABLES =
id F5.0
edge F8.0
star2 F8.0
star3 F8.0
star4 F8.0
star5 F8.0
triangle F8.4
clique4 F8.4
clique5 F8.4
clique6 F8.4
clique7 F8.4
iso F8.4
triangle2 F8.0
path3 F8.0
cycle4 F8.0
et1 F8.0
et2 F8.0
et0 F8.0
etnt F8.0
two3star F8.0
one2triangle F8.0
one2et F8.0
as F8.4
as2 F8.4
at F8.4
at2 F8.4
a2p F8.0
ac F8.0
aet F8.0
aeat F8.0
member_t3u F8.0
senior_t3u F8.0
urban_t3u F8.0
member_t2u F8.0
senior_t2u F8.0
urban_t2u F8.0
member_t1u F8.0
senior_t1u F8.0
urban_t1u F8.0
member_o3u F8.0
senior_o3u F8.0
urban_o3u F8.0
member_o2au F8.0
senior_o2au F8.0
urban_o2au F8.0
member_o2bu F8.0
senior_o2bu F8.0
urban_o2bu F8.0
member_o1au F8.0
senior_o1au F8.0
urban_o1au F8.0
member_o1bu F8.0
senior_o1bu F8.0
urban_o1bu F8.0
member_interaction F8.0
senior_interaction F8.0
urban_interaction F8.0
member_activity F8.0
senior_activity F8.0
urban_activity F8.0
age_sum F8.4
income_sum F8.4
tenure_sum F8.4
age_diff F8.4
income_diff F8.4
tenure_diff F8.4
age_prod F8.4
income_prod F8.4
tenure_prod F8.4
office_sameEC F8.0
school_sameEC F8.0
party_sameEC F8.0
office_diffEC F8.0
school_diffEC F8.0
party_diffEC F8.0
distance_edge F8.4
kinship_edge F8.4
distance_s21 F8.4
kinship_s21 F8.4
distance_s22 F8.4
kinship_s22 F8.4
distance_t1 F8.4
kinship_t1 F8.4
distance_t2 F8.4
kinship_t2 F8.4
distance_t3 F8.4
kinship_t3 F8.4
.
CACHE.
EXECUTE.

GRAPH
/Histogram=edge.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH edge
/MISSING=LISTWISE.
GRAPH
/Histogram=star2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH star2
/MISSING=LISTWISE.
GRAPH
/Histogram=star3.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH star3
/MISSING=LISTWISE.
GRAPH
/Histogram=star4.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH star4
/MISSING=LISTWISE.
GRAPH
/Histogram=star5.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH star5
/MISSING=LISTWISE.
GRAPH
/Histogram=triangle.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH triangle
/MISSING=LISTWISE.
GRAPH
/Histogram=clique4.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH clique4
/MISSING=LISTWISE.
GRAPH
/Histogram=clique5.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH clique5
/MISSING=LISTWISE.
GRAPH
/Histogram=clique6.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH clique6
/MISSING=LISTWISE.
GRAPH
/Histogram=clique7.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH clique7
/MISSING=LISTWISE.
GRAPH
/Histogram=iso.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH triangle
/MISSING=LISTWISE.
GRAPH
/Histogram=triangle2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH triangle2
/MISSING=LISTWISE.
GRAPH
/Histogram=path3.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH path3
/MISSING=LISTWISE.
GRAPH
/Histogram=cycle4.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH cycle4
/MISSING=LISTWISE.
GRAPH
/Histogram=et1.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH et1
/MISSING=LISTWISE.
GRAPH
/Histogram=et2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH et2
/MISSING=LISTWISE.
GRAPH
/Histogram=et0.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH et0
/MISSING=LISTWISE.
GRAPH
/Histogram=etnt.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH etnt
/MISSING=LISTWISE.
GRAPH
/Histogram=two3star.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH two3star
/MISSING=LISTWISE.
GRAPH
/Histogram=one2triangle.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH one2triangle
/MISSING=LISTWISE.
GRAPH
/Histogram=one2et.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH one2et
/MISSING=LISTWISE.
GRAPH
/Histogram=as.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH as
/MISSING=LISTWISE.
GRAPH
/Histogram=as2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH as2
/MISSING=LISTWISE.
GRAPH
/Histogram=at.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH at
/MISSING=LISTWISE.
GRAPH
/Histogram=at2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH at2
/MISSING=LISTWISE.
GRAPH
/Histogram=a2p.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH a2p
/MISSING=LISTWISE.
GRAPH
/Histogram=ac.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH ac
/MISSING=LISTWISE.
GRAPH
/Histogram=aet.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH aet
/MISSING=LISTWISE.
GRAPH
/Histogram=aeat.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH aeat
/MISSING=LISTWISE.
GRAPH
/Histogram=member_t3u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_t3u
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_t3u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_t3u
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_t3u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_t3u
/MISSING=LISTWISE.
GRAPH
/Histogram=member_t2u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_t2u
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_t2u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_t2u
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_t2u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_t2u
/MISSING=LISTWISE.
GRAPH
/Histogram=member_t1u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_t1u
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_t1u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_t1u
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_t1u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_t1u
/MISSING=LISTWISE.
GRAPH
/Histogram=member_o3u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_o3u
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_o3u.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_o3u
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
/Histogram=senior_o2au.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_o2au
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_o2au.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_o2au
/MISSING=LISTWISE.
GRAPH
/Histogram=member_o2bu.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_o2bu
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_o2bu.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_o2bu
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_o2bu.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_o2bu
/MISSING=LISTWISE.
GRAPH
/Histogram=member_o1au.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_o1au
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_o1au.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_o1au
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
/Histogram=senior_o1bu.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_o1bu
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_o1bu.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_o1bu
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
/Histogram=member_activity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH member_activity 
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_activity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_activity 
/MISSING=LISTWISE.
GRAPH
/Histogram=urban_activity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH urban_activity 
/MISSING=LISTWISE.
GRAPH
/Histogram=age_sum.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_sum
/MISSING=LISTWISE.
GRAPH
/Histogram=income_sum.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_sum
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
/Histogram=income_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=age_prod.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_prod
/MISSING=LISTWISE.
GRAPH
/Histogram=income_prod.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH income_prod
/MISSING=LISTWISE.
GRAPH
/Histogram=tenure_prod.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tenure_prod
/MISSING=LISTWISE.
GRAPH
/Histogram=office_sameEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_sameEC
/MISSING=LISTWISE.
GRAPH
/Histogram=school_sameEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH school_sameEC
/MISSING=LISTWISE.
GRAPH
/Histogram=party_sameEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH party_sameEC
/MISSING=LISTWISE.
GRAPH
/Histogram=office_diffEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_diffEC
/MISSING=LISTWISE.
GRAPH
/Histogram=school_diffEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH school_diffEC
/MISSING=LISTWISE.
GRAPH
/Histogram=party_diffEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH party_diffEC
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
/Histogram=kinship_s21.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_s21
/MISSING=LISTWISE.
GRAPH
/Histogram=distance_s22.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH distance_s22
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_s22.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_s22
/MISSING=LISTWISE.
GRAPH
/Histogram=distance_t1.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH distance_t1
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_t1.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_t1
/MISSING=LISTWISE.
GRAPH
/Histogram=distance_t2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH distance_t2
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_t2.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_t2
/MISSING=LISTWISE.
GRAPH
/Histogram=distance_t3.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH distance_t3
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_t3.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_t3
/MISSING=LISTWISE.
