// Pages of the directed structural effects, in the order of the update files.
#include "encyclopaedia/page_tables.h"

namespace {

constexpr const char* kMarkov =
    "A Markov effect of the directed p* models: arcs that share an actor depend on each other.";
constexpr const char* kCensus =
    "Named for the class of the triad census with just these arcs. The census counts each set of "
    "three actors once, by all its arcs; this effect counts the configuration wherever its arcs "
    "are, further arcs allowed.";
constexpr const char* kDegrees =
    "An alternating star of the directed social circuit models. A positive parameter with a "
    "negative arc gathers arcs at few actors.";
constexpr const char* kMixed =
    "A star of the directed social circuit models that ties receiving to sending.";
constexpr const char* kClosure =
    "One of the four closures of directed social circuit models, told apart by the directions of "
    "the two-paths below the arc.";
constexpr const char* kConnectivity =
    "The lower side of the closure with the same letter: with both in a model, the closure is told "
    "apart from mere opportunity for it.";
constexpr const char* kMean =
    "A pooled form for networks in which the closures go together and cannot be told apart.";

constexpr const char* kGwespConversion =
    "gwesp with decay α is the same count with lambda = exp(α), and has the same parameter: decay "
    "0.693 is lambda 2.";
constexpr const char* kNoCensusTerm =
    "triadcensus counts each set of three actors once, by all its arcs: another statistic, with "
    "another parameter.";
constexpr const char* kDspConversion =
    "gwdsp with decay α weighs the shared partners alike, with lambda = exp(α). This effect counts "
    "each pair of actors once; where the term counts both orders, its parameter is half of this "
    "one.";
constexpr const char* kFitHeads =
    "Heads of the triads and of the three in-out-stars stand over one another's columns in a "
    "directed fit.";
constexpr const char* kDeadAtOne =
    "The whole value is 0 at lambda 1. Heads of the three in-out-stars stand over one another's "
    "columns in a directed fit.";
constexpr const char* kShiftedTable =
    "In a model with AT-U and one of the means AT-TD to AT-TDU, the syntax file reads their "
    "columns "
    "of the sample table under shifted names.";
constexpr const char* kAtOne =
    "At lambda 1 the change asks for the two-paths that the arc would extend, not for its own "
    "sets: the forms at and above 1 are not each other's limit.";

constexpr const char* kInStar = R"(
 o       o
  \     /
   v   v
     o
)";
constexpr const char* kOutStar = R"(
 o       o
  ^     ^
   \   /
     o
)";
constexpr const char* kIn3Star = R"(
 o   o   o
  \  |  /
   v v v
     o
)";
constexpr const char* kOut3Star = R"(
 o   o   o
  ^  ^  ^
   \ | /
     o
)";
constexpr const char* kManyIn = R"(
 o  o  o ... o
  \  \ |    /
   v  vv   v      the k-th arc into an actor beside k - 1
       o          others
)";
constexpr const char* kManyOut = R"(
 o  o  o ... o
  ^  ^ ^    ^
   \  \|   /      the k-th arc out of an actor beside k - 1
       o          others
)";
constexpr const char* kThrough = R"(
 o --> o --> o
)";
constexpr const char* kManyInOne = R"(
 o ---.
 o --> o --> o    k arcs into an actor and one out of it
 o ---'
)";
constexpr const char* kManyOutOne = R"(
       .--> o
 o --> o --> o    one arc into an actor and k out of it
       '--> o
)";
constexpr const char* kManyInOut = R"(
 o ---. .--> o
 o --> o --> o    k arcs into an actor and l out of it
 o ---' '--> o
)";
constexpr const char* kAtT = R"(
      k
    ^   \
   /     v
  i ----> j       k: any third actor between i and j
)";
constexpr const char* kAtC = R"(
      k
    /   ^
   v     \
  i ----> j       k: any third actor from j back to i
)";
constexpr const char* kAtD = R"(
      k
    /   \
   v     v
  i ----> j       k: any third actor that sends to both
)";
constexpr const char* kAtU = R"(
      k
    ^   ^
   /     \
  i ----> j       k: any third actor that both send to
)";
constexpr const char* kA2pT = R"(
      k
    ^   \
   /     v
  i       j       tied or not
)";
constexpr const char* kA2pD = R"(
      k
    /   \
   v     v
  i       j       tied or not
)";
constexpr const char* kA2pU = R"(
      k
    ^   ^
   /     \
  i       j       tied or not
)";
constexpr const char* kPooledClosure = R"(
      k
    .   .
   .     .
  i ----> j       two-paths of several directions
)";
constexpr const char* kPooledPaths = R"(
      k
    .   .
   .     .
  i       j       two-paths of several directions
)";

constexpr auto kPages = std::to_array<EffectPage>({
    {.row = "arc",
     .family = Family::ties,
     .drawing = R"(
 i ----> j
)",
     .change = "1",
     .keywords = "density intercept baseline edges tie",
     .literature =
         "The density effect; in nearly every model. Alone, its parameter is the log-odds "
         "of an arc.",
     .terms = "edges",
     .conversion = "The same count.",
     .identity = "sum_i out_i",
     .sources = {Source::holland_leinhardt_1981, Source::wasserman_pattison_1996}},
    {.row = "reciprocity",
     .family = Family::ties,
     .drawing = R"(
 i <----> j
)",
     .change = "x_ji",
     .keywords = "mutual mutuality exchange dyad reciprocated",
     .literature = "Mutuality, since the p1 model; in nearly every model of a directed network.",
     .terms = "mutual",
     .conversion = "The same count.",
     .identity = "1/2 sum_i m_i",
     .sources = {Source::holland_leinhardt_1981, Source::wasserman_pattison_1996}},
    {.row = "in2star",
     .family = Family::degrees,
     .drawing = kInStar,
     .change = "in_j",
     .keywords = "popularity prestige in-degree variance",
     .literature = kMarkov,
     .terms = "istar(2)",
     .conversion = "The same count.",
     .identity = "sum_{i<j} r_ij",
     .sources = {Source::wasserman_pattison_1996}},
    {.row = "out2star",
     .family = Family::degrees,
     .drawing = kOutStar,
     .change = "out_i",
     .keywords = "activity expansiveness out-degree variance",
     .literature = kMarkov,
     .terms = "ostar(2)",
     .conversion = "The same count.",
     .identity = "sum_{i<j} s_ij",
     .sources = {Source::wasserman_pattison_1996}},
    {.row = "in-3-star",
     .family = Family::degrees,
     .drawing = kIn3Star,
     .change = "C(in_j,2)",
     .keywords = "popularity prestige in-degree skewness",
     .literature = kMarkov,
     .terms = "istar(3)",
     .conversion = "The same count.",
     .sources = {Source::wasserman_pattison_1996}},
    {.row = "out-3-star",
     .family = Family::degrees,
     .drawing = kOut3Star,
     .change = "C(out_i,2)",
     .keywords = "activity expansiveness out-degree skewness",
     .literature = kMarkov,
     .terms = "ostar(3)",
     .conversion = "The same count.",
     .sources = {Source::wasserman_pattison_1996}},
    {.row = "path2",
     .family = Family::paths,
     .drawing = kThrough,
     .change = "in_i + out_j - 2 x_ji",
     .keywords = "mixed two-star brokerage simple connectivity correlation of degrees",
     .literature = "The two-path, or mixed 2-star: actors that receive also send.",
     .terms = "twopath",
     .conversion = "The same count.",
     .identity = "sum_{i,j} p_ij",
     .sources = {Source::wasserman_pattison_1996, Source::robins_pattison_wang_2009}},
    {.row = "T1",
     .family = Family::closure,
     .drawing = R"(
      o
    ^   ^
   v     v
  o <---> o
)",
     .change = "x_ji sum_k y_ik y_jk",
     .keywords = "triad 300 mutual triangle clique",
     .literature = kCensus,
     .terms = "triadcensus",
     .conversion =
         "The same count as its class 300: no further arc is possible among three actors.",
     .beware = kFitHeads,
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "T2",
     .family = Family::closure,
     .drawing = R"(
      o
    ^   ^
   v     v
  o ----> o
)",
     .change = "sum_k y_ik y_jk + x_ji sum_k (y_ik (x_jk + x_kj) + y_jk (x_ik + x_ki))",
     .keywords = "triad 210",
     .literature = kCensus,
     .terms = "triadcensus",
     .conversion = kNoCensusTerm,
     .beware = kFitHeads,
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "T3",
     .family = Family::closure,
     .drawing = R"(
      o
    ^   \
   /     v
  o <---> o
)",
     .change = "x_ji (p_ij + p_ji) + sum_k (x_jk y_ik + x_ki y_jk)",
     .keywords = "triad 120C",
     .literature = kCensus,
     .terms = "triadcensus",
     .conversion = kNoCensusTerm,
     .beware = kFitHeads,
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "T4",
     .family = Family::closure,
     .drawing = R"(
      o
    /   \
   v     v
  o <---> o
)",
     .change = "x_ji s_ij + sum_k x_ik y_jk",
     .keywords = "triad 120D",
     .literature = kCensus,
     .terms = "triadcensus",
     .conversion = kNoCensusTerm,
     .beware = kFitHeads,
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "T5",
     .family = Family::closure,
     .drawing = R"(
      o
    ^   ^
   /     \
  o <---> o
)",
     .change = "x_ji r_ij + sum_k x_kj y_ik",
     .keywords = "triad 120U",
     .literature = kCensus,
     .terms = "triadcensus",
     .conversion = kNoCensusTerm,
     .beware = kFitHeads,
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "T6",
     .family = Family::paths,
     .drawing = R"(
 o <---> o <---> o
)",
     .change = "x_ji (m_i + m_j)",
     .keywords = "triad 201 mutual star",
     .literature = kCensus,
     .terms = "triadcensus",
     .conversion = kNoCensusTerm,
     .beware = kFitHeads,
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "T7",
     .family = Family::paths,
     .drawing = R"(
 o ----> o <---> o
)",
     .change = "m_j + x_ji (in_i + in_j - 1)",
     .keywords = "triad 111D",
     .literature = kCensus,
     .terms = "triadcensus",
     .conversion = kNoCensusTerm,
     .beware =
         "The letters D and U of the two classes with three arcs, one pair of them mutual, are "
         "exchanged in parts of the literature; the drawing decides. Heads of the triads "
         "stand over one another's columns in a directed fit.",
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "T8",
     .family = Family::paths,
     .drawing = R"(
 o <---> o ----> o
)",
     .change = "m_i + x_ji (out_i + out_j - 1)",
     .keywords = "triad 111U",
     .literature = kCensus,
     .terms = "triadcensus",
     .conversion = kNoCensusTerm,
     .beware =
         "The letters D and U of the two classes with three arcs, one pair of them mutual, are "
         "exchanged in parts of the literature; the drawing decides. Heads of the triads "
         "stand over one another's columns in a directed fit.",
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "Transitive-Triad",
     .family = Family::closure,
     .drawing = kAtT,
     .change = "p_ij + s_ij + r_ij",
     .keywords = "transitivity closure triad hierarchy",
     .literature = kCensus,
     .terms = "ttriple",
     .conversion = "The same count.",
     .beware = "One effect, four labels, by output: Transitive-Triad, 030T, T9(030T), t9. Heads of "
               "the triads stand over one another's columns in a directed fit.",
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "Cyclic-Triad",
     .family = Family::closure,
     .drawing = kAtC,
     .change = "p_ji",
     .keywords = "cycle ring generalised exchange triad",
     .literature = kCensus,
     .terms = "ctriple",
     .conversion = "The same count.",
     .beware =
         "One effect, four labels, by output: Cyclic-Triad, 030C, T10(030C), t10. Heads of the "
         "triads stand over one another's columns in a directed fit.",
     .sources = {Source::davis_leinhardt_1972, Source::wasserman_pattison_1996}},
    {.row = "Sink",
     .family = Family::actors,
     .drawing = R"(
 o ----> o        the right actor sends nothing
)",
     .change = "[out_j = 0] [in_j = 0] - [out_i = 0] [in_i > 0]",
     .keywords = "receiver only out-degree zero",
     .literature =
         "Lets a model hold more or fewer actors that only receive than its degrees alone "
         "would.",
     .terms = "odegree(0), isolates",
     .conversion = "odegree(0) less isolates: a model with sink at a and isolates at b is one with "
                   "odegree(0) at a and isolates at b - a.",
     .identity = "sum_i [out_i = 0] - sum_i [in_i + out_i = 0]",
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "Source",
     .family = Family::actors,
     .drawing = R"(
 o ----> o        the left actor receives nothing
)",
     .change = "[in_i = 0] [out_i = 0] - [in_j = 0] [out_j > 0]",
     .keywords = "sender only in-degree zero",
     .literature = "Lets a model hold more or fewer actors that only send than its degrees alone "
                   "would.",
     .terms = "idegree(0), isolates",
     .conversion = "idegree(0) less isolates: a model with source at a and isolates at b is one "
                   "with idegree(0) at a and isolates at b - a.",
     .identity = "sum_i [in_i = 0] - sum_i [in_i + out_i = 0]",
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "isolates",
     .family = Family::actors,
     .drawing = R"(
 o               no arc at all
)",
     .change = "-[in_i + out_i = 0] - [in_j + out_j = 0]",
     .keywords = "isolate degree zero alone",
     .literature = "Lets a model hold more or fewer actors without arcs than its degrees alone "
                   "would.",
     .terms = "isolates",
     .conversion = "The same count.",
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "AinS",
     .family = Family::degrees,
     .drawing = kManyIn,
     .change = "λ (1 - w^in_j)",
     .keywords = "alternating k-in-star popularity spread geometrically weighted in-degree",
     .literature = kDegrees,
     .terms = "gwidegree(decay)",
     .conversion =
         "gwidegree with decay α, lambda = exp(α), counts G = λ sum_i (1 - w^in_i), and AinS = λ "
         "arcs - λ G: a model with arc at a and AinS at b is one with edges at a + λ b and "
         "gwidegree at -λ b. The signs are opposite.",
     .identity = "λ sum_{i,j} x_ij - λ λ sum_i (1 - w^in_i)",
     .lambda = {WeightLaw::rising, "arc into an actor"},
     .sources = {Source::robins_pattison_wang_2009, Source::snijders_pattison_robins_handcock_2006,
                 Source::hunter_2007}},
    {.row = "AoutS",
     .family = Family::degrees,
     .drawing = kManyOut,
     .change = "λ (1 - w^out_i)",
     .keywords = "alternating k-out-star activity spread geometrically weighted out-degree",
     .literature = kDegrees,
     .terms = "gwodegree(decay)",
     .conversion =
         "gwodegree with decay α, lambda = exp(α), counts G = λ sum_i (1 - w^out_i), and AoutS = λ "
         "arcs - λ G: a model with arc at a and AoutS at b is one with edges at a + λ b and "
         "gwodegree at -λ b. The signs are opposite.",
     .identity = "λ sum_{i,j} x_ij - λ λ sum_i (1 - w^out_i)",
     .lambda = {WeightLaw::rising, "arc out of an actor"},
     .sources = {Source::robins_pattison_wang_2009, Source::snijders_pattison_robins_handcock_2006,
                 Source::hunter_2007}},
    {.row = "AinS2",
     .family = Family::degrees,
     .drawing = kManyIn,
     .change = "λ (1 - w^in_j)",
     .keywords = "alternating k-in-star second popularity",
     .literature = kDegrees,
     .terms = "gwidegree(decay)",
     .conversion = "As AinS.",
     .identity = "λ sum_{i,j} x_ij - λ λ sum_i (1 - w^in_i)",
     .lambda = {WeightLaw::rising, "arc into an actor"},
     .beware = "All files but the sample table and the syntax file call it AinS, as they call the "
               "first.",
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "AoutS2",
     .family = Family::degrees,
     .drawing = kManyOut,
     .change = "λ (1 - w^out_i)",
     .keywords = "alternating k-out-star second activity",
     .literature = kDegrees,
     .terms = "gwodegree(decay)",
     .conversion = "As AoutS.",
     .identity = "λ sum_{i,j} x_ij - λ λ sum_i (1 - w^out_i)",
     .lambda = {WeightLaw::rising, "arc out of an actor"},
     .beware = "All files but the sample table and the syntax file call it AoutS, as they call the "
               "first.",
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "AinAoutS",
     .family = Family::degrees,
     .drawing = kManyInOut,
     .change = "λ w^(in_j - m_j) (w^m_j - w^(out_j - x_ji) v^m_j) + λ w^out_i (1 - w^(in_i - m_i - "
               "x_ji) v^m_i)",
     .keywords = "alternating in-out-star brokerage correlation of degrees",
     .literature = kMixed,
     .lambda = {WeightLaw::falling, "arc into an actor, and as much the k-th arc out of it"},
     .beware = kDeadAtOne,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "Ain1outS",
     .family = Family::degrees,
     .drawing = kManyInOne,
     .change = "λ + w^in_j (out_j - m_j - x_ji) + w^(in_j - 1) m_j - λ w^(in_i - x_ji)",
     .keywords = "alternating in-star with one arc out brokerage",
     .literature = kMixed,
     .lambda = {WeightLaw::falling, "arc into an actor, for each arc out of it"},
     .beware = kDeadAtOne,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "1inAoutS",
     .family = Family::degrees,
     .drawing = kManyOutOne,
     .change = "λ + w^out_i (in_i - m_i - x_ji) + w^(out_i - 1) m_i - λ w^(out_j - x_ji)",
     .keywords = "alternating out-star with one arc in brokerage",
     .literature = kMixed,
     .lambda = {WeightLaw::falling, "arc out of an actor, for each arc into it"},
     .beware = kDeadAtOne,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "AT-T",
     .family = Family::closure,
     .drawing = kAtT,
     .change = "λ (1 - w^p_ij) + sum_k (x_ik x_jk w^p_ik + x_ki x_kj w^p_kj)",
     .keywords = "alternating transitive triangle path closure transitivity geometrically weighted "
                 "edgewise shared partners",
     .literature = kClosure,
     .terms = "gwesp(decay) of type OTP",
     .conversion = kGwespConversion,
     .lambda = {WeightLaw::falling, "two-path from i to j below an arc"},
     .sources = {Source::robins_pattison_wang_2009, Source::snijders_pattison_robins_handcock_2006,
                 Source::hunter_handcock_2006}},
    {.row = "AT-C",
     .family = Family::closure,
     .drawing = kAtC,
     .change = "λ (1 - w^p_ji) + sum_k x_jk x_ki (w^p_ik + w^p_kj)",
     .keywords = "alternating cyclic triangle cycle closure generalised exchange geometrically "
                 "weighted edgewise shared partners",
     .literature = kClosure,
     .terms = "gwesp(decay) of type ITP",
     .conversion = kGwespConversion,
     .lambda = {WeightLaw::falling, "two-path from j to i below an arc"},
     .sources = {Source::robins_pattison_wang_2009, Source::snijders_pattison_robins_handcock_2006,
                 Source::hunter_handcock_2006}},
    {.row = "AT-D",
     .family = Family::closure,
     .drawing = kAtD,
     .change = "λ (1 - w^s_ij) + sum_k x_ik (x_jk + x_kj) w^s_jk",
     .keywords = "alternating down triangle popularity closure structural equivalence shared "
                 "popularity geometrically weighted edgewise shared partners",
     .literature = kClosure,
     .terms = "gwesp(decay) of type ISP",
     .conversion = kGwespConversion,
     .lambda = {WeightLaw::falling, "third actor that sends to both ends of an arc"},
     .sources = {Source::robins_pattison_wang_2009, Source::snijders_pattison_robins_handcock_2006,
                 Source::hunter_handcock_2006}},
    {.row = "AT-U",
     .family = Family::closure,
     .drawing = kAtU,
     .change = "λ (1 - w^r_ij) + sum_k x_kj (x_ik + x_ki) w^r_ik",
     .keywords = "alternating up triangle activity closure structural equivalence shared activity "
                 "geometrically weighted edgewise shared partners",
     .literature = kClosure,
     .terms = "gwesp(decay) of type OSP",
     .conversion = kGwespConversion,
     .lambda = {WeightLaw::falling, "third actor that both ends of an arc send to"},
     .beware = kShiftedTable,
     .sources = {Source::robins_pattison_wang_2009, Source::snijders_pattison_robins_handcock_2006,
                 Source::hunter_handcock_2006}},
    {.row = "AT-TD",
     .family = Family::closure,
     .drawing = kPooledClosure,
     .change = "λ/2 (2 - w^p_ij - w^s_ij) + 1/2 sum_k (x_ik x_jk w^p_ik + x_ki x_kj w^p_kj + x_ik "
               "(x_jk + x_kj) w^s_jk)",
     .keywords = "alternating triangle pooled closure transitivity",
     .literature = kMean,
     .lambda = {WeightLaw::falling, "two-path of one direction below an arc, times 1/2"},
     .beware = kShiftedTable,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "AT-TU",
     .family = Family::closure,
     .drawing = kPooledClosure,
     .change = "λ/2 (2 - w^p_ij - w^r_ij) + 1/2 sum_k (x_ik x_jk w^p_ik + x_ki x_kj w^p_kj + x_kj "
               "(x_ik + x_ki) w^r_ik)",
     .keywords = "alternating triangle pooled closure transitivity",
     .literature = kMean,
     .lambda = {WeightLaw::falling, "two-path of one direction below an arc, times 1/2"},
     .beware = kShiftedTable,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "AT-DU",
     .family = Family::closure,
     .drawing = kPooledClosure,
     .change = "λ/2 (2 - w^s_ij - w^r_ij) + 1/2 sum_k (x_ik (x_jk + x_kj) w^s_jk + x_kj (x_ik + "
               "x_ki) w^r_ik)",
     .keywords = "alternating triangle pooled closure structural equivalence",
     .literature = kMean,
     .lambda = {WeightLaw::falling, "two-path of one direction below an arc, times 1/2"},
     .beware = kShiftedTable,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "AT-TDU",
     .family = Family::closure,
     .drawing = kPooledClosure,
     .change =
         "λ/3 (3 - w^p_ij - w^s_ij - w^r_ij) + 1/3 sum_k (x_ik x_jk w^p_ik + x_ki x_kj w^p_kj "
         "+ x_ik (x_jk + x_kj) w^s_jk + x_kj (x_ik + x_ki) w^r_ik)",
     .keywords = "alternating triangle pooled closure transitivity",
     .literature = kMean,
     .lambda = {WeightLaw::falling, "two-path of one direction below an arc, times 1/3"},
     .beware = kShiftedTable,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "A2P-T",
     .family = Family::paths,
     .drawing = kA2pT,
     .change = "sum_k (x_jk w^p_ik + x_ki w^p_kj)",
     .keywords =
         "alternating two-path multiple connectivity geometrically weighted dyadwise shared "
         "partners",
     .literature = kConnectivity,
     .terms = "gwdsp(decay) of type OTP",
     .conversion = "gwdsp with decay α is the same count with lambda = exp(α), and has the same "
                   "parameter.",
     .lambda = {WeightLaw::falling, "two-path from i to j"},
     .sources = {Source::robins_pattison_wang_2009,
                 Source::snijders_pattison_robins_handcock_2006}},
    {.row = "A2P-D",
     .family = Family::paths,
     .drawing = kA2pD,
     .change = "sum_k x_ik w^s_jk",
     .keywords = "alternating two-path shared popularity structural equivalence geometrically "
                 "weighted dyadwise shared partners",
     .literature = kConnectivity,
     .terms = "gwdsp(decay) of type ISP",
     .conversion = kDspConversion,
     .lambda = {WeightLaw::falling, "third actor that sends to both"},
     .beware = kAtOne,
     .sources = {Source::robins_pattison_wang_2009,
                 Source::snijders_pattison_robins_handcock_2006}},
    {.row = "A2P-U",
     .family = Family::paths,
     .drawing = kA2pU,
     .change = "sum_k x_kj w^r_ik",
     .keywords = "alternating two-path shared activity structural equivalence geometrically "
                 "weighted dyadwise shared partners",
     .literature = kConnectivity,
     .terms = "gwdsp(decay) of type OSP",
     .conversion = kDspConversion,
     .lambda = {WeightLaw::falling, "third actor that both send to"},
     .beware = kAtOne,
     .sources = {Source::robins_pattison_wang_2009,
                 Source::snijders_pattison_robins_handcock_2006}},
    {.row = "A2P-TD",
     .family = Family::paths,
     .drawing = kPooledPaths,
     .change = "1/2 sum_k (x_jk w^p_ik + x_ki w^p_kj + x_ik w^s_jk)",
     .keywords = "alternating two-path pooled connectivity",
     .literature = kMean,
     .lambda = {WeightLaw::falling, "two-path of one direction, times 1/2"},
     .beware = kAtOne,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "A2P-TU",
     .family = Family::paths,
     .drawing = kPooledPaths,
     .change = "1/2 sum_k (x_jk w^p_ik + x_ki w^p_kj + x_kj w^r_ik)",
     .keywords = "alternating two-path pooled connectivity",
     .literature = kMean,
     .lambda = {WeightLaw::falling, "two-path of one direction, times 1/2"},
     .beware = kAtOne,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "A2P-DU",
     .family = Family::paths,
     .drawing = kPooledPaths,
     .change = "1/2 sum_k (x_ik w^s_jk + x_kj w^r_ik)",
     .keywords = "alternating two-path pooled structural equivalence",
     .literature = kMean,
     .lambda = {WeightLaw::falling, "two-path of one direction, times 1/2"},
     .beware = kAtOne,
     .sources = {Source::robins_pattison_wang_2009}},
    {.row = "A2P-TDU",
     .family = Family::paths,
     .drawing = kPooledPaths,
     .change = "1/3 sum_k (x_jk w^p_ik + x_ki w^p_kj + x_ik w^s_jk + x_kj w^r_ik)",
     .keywords = "alternating two-path pooled connectivity",
     .literature = kMean,
     .lambda = {WeightLaw::falling, "two-path of one direction, times 1/3"},
     .beware = kAtOne,
     .sources = {Source::robins_pattison_wang_2009}},
});

}  // namespace

std::span<const EffectPage> digraph_pages() { return kPages; }
