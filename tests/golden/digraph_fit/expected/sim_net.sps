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
tktri F8.4
senior_sender F8.0
age_interaction_diff F8.4
office_matching F8.0
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
/Histogram=tktri.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH tktri
/MISSING=LISTWISE.
GRAPH
/Histogram=senior_sender.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH senior_sender
/MISSING=LISTWISE.
GRAPH
/Histogram=age_interaction_diff.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH age_interaction_diff
/MISSING=LISTWISE.
GRAPH
/Histogram=office_matching.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH office_matching
/MISSING=LISTWISE.
GRAPH
/Histogram=kinship_arc.
GRAPH
/SCATTERPLOT(BIVAR)=id WITH kinship_arc
/MISSING=LISTWISE.
