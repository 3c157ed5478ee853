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
bow_tie F8.0
at F8.4
senior_activity F8.0
age_diff F8.4
office_sameEC F8.0
kinship_edge F8.4
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
/Histogram=bow_tie.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH bow_tie
/MISSING=LISTWISE.
GRAPH
/Histogram=at.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH at
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_activity.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_activity 
/MISSING=LISTWISE.
GRAPH
/Histogram=age_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=office_sameEC.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_sameEC
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_edge.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_edge
/MISSING=LISTWISE.
