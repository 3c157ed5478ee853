// Pages of the undirected structural effects, in the order of the setup file.
#include "encyclopaedia/page_tables.h"

namespace {

constexpr const char* kMarkov =
    "A Markov effect: ties that share an actor depend on each other. Stars and triangles without "
    "alternating partners often make models degenerate.";
constexpr const char* kSocialCircuit =
    "One of the social circuit (\"alternating\") effects that made models of closure and degrees "
    "stable.";
constexpr const char* kHigher =
    "A higher-order configuration of the hierarchy of dependence assumptions; used with simpler "
    "ones beside it.";
constexpr const char* kEdgeTriangle =
    "An edge-triangle configuration: closure and degree within one count.";
constexpr const char* kTruncated =
    "The alternating sum with lambda 2, cut off behind its second term; a stable stand-in where a "
    "count of whole configurations is wanted.";

constexpr const char* kTie = R"(
i ------- j
)";
constexpr const char* kTwoStar = R"(
o       o
 \     /
  \   /
    o
)";
constexpr const char* kThreeStar = R"(
o   o   o
 \  |  /
  \ | /
    o
)";
constexpr const char* kFourStar = R"(
o       o
 \     /
  \   /
    o
  /   \
 /     \
o       o
)";
constexpr const char* kFiveStar = R"(
o   o   o
 \  |  /
  \ | /
    o
  /   \
 /     \
o       o
)";
constexpr const char* kTriangle = R"(
    o
   / \
  /   \
 o ---- o
)";
constexpr const char* kClique = R"(
 o ------- o
 | \     / |
 |   \ /   |
 |   / \   |     all tied; the 4-clique is drawn
 | /     \ |
 o ------- o
)";
constexpr const char* kSharedTie = R"(
    o
   / \
  /   \
 o ---- o
  \   /
   \ /
    o
)";
constexpr const char* kBowTie = R"(
 o           o
 | \       / |
 |    \ /    |
 |     o     |
 |    / \    |
 | /       \ |
 o           o
)";
constexpr const char* kApart = R"(
    o           o
   / \         / \
  /   \       /   \
 o --- o     o --- o
)";
constexpr const char* kBridged = R"(
    o           o
   / \         / \
  /   \       /   \
 o --- o --- o --- o
)";
constexpr const char* kPath = R"(
 o --- o --- o --- o
)";
constexpr const char* kRing = R"(
 o --- o
 |     |
 |     |
 o --- o
)";
constexpr const char* kOneEt = R"(
    o
   / \
  /   \
 o --- o --- o
)";
constexpr const char* kTwoEt = R"(
    o         o
   / \       /
  /   \     /
 o --- o ---
            \
             \
              o
)";
constexpr const char* kFreeTie = R"(
    o
   / \
  /   \
 o --- o --- o   this tie is in no triangle
)";
constexpr const char* kFreeActor = R"(
    o
   / \
  /   \
 o --- o --- o   this actor is in no triangle
)";
constexpr const char* kManyStar = R"(
o  o  o ... o
 \  \ |    /
  \  \|   /
    \ |  /       the k-th tie beside k - 1 others
      o
)";
constexpr const char* kManyTriangle = R"(
   .--- o ---.
  /           \
 i ---- o ---- j    k common neighbours of i and j,
 |\           /|    and below them the tie itself
 | '--- o ---' |
 |             |
 '-------------'
)";
constexpr const char* kManyTwoPath = R"(
   .--- o ---.
  /           \
 i ---- o ---- j    k common neighbours of i and j,
  \           /     tied or not
   '--- o ---'
)";
constexpr const char* kManyEt = R"(
    o        o
   / \      /
  /   \    /
 o --- o ------ o     a triangle, and k further ties at
           \          one of its actors
            \ ..
             o
)";
constexpr const char* kIsolate = R"(
 o               no tie at all
)";

constexpr auto kPages = std::to_array<EffectPage>({
    {.row = "edge",
     .family = Family::ties,
     .drawing = kTie,
     .change = "1",
     .keywords = "density intercept baseline edges degree",
     .literature = "The density effect; in nearly every model. Alone it is the random graph whose "
                   "ties are independent, and its parameter the log-odds of a tie.",
     .terms = "edges",
     .conversion = "The same count.",
     .identity = "1/2 sum_i d_i",
     .sources = {Source::frank_strauss_1986, Source::wasserman_pattison_1996}},
    {.row = "2-star",
     .family = Family::degrees,
     .drawing = kTwoStar,
     .change = "d_i + d_j",
     .keywords = "centralisation popularity two-path degree variance",
     .literature = kMarkov,
     .terms = "kstar(2), twopath",
     .conversion = "The same count.",
     .identity = "sum_{i<j} p_ij",
     .sources = {Source::frank_strauss_1986}},
    {.row = "3-star",
     .family = Family::degrees,
     .drawing = kThreeStar,
     .change = "C(d_i,2) + C(d_j,2)",
     .keywords = "centralisation popularity degree skewness",
     .literature = kMarkov,
     .terms = "kstar(3)",
     .conversion = "The same count.",
     .sources = {Source::frank_strauss_1986}},
    {.row = "4-star",
     .family = Family::degrees,
     .drawing = kFourStar,
     .change = "C(d_i,3) + C(d_j,3)",
     .keywords = "centralisation popularity degree",
     .literature = kMarkov,
     .terms = "kstar(4)",
     .conversion = "The same count.",
     .beware = "The products of degrees are formed in 32-bit integers: they wrap from a degree of "
               "about 216.",
     .sources = {Source::frank_strauss_1986}},
    {.row = "5-star",
     .family = Family::degrees,
     .drawing = kFiveStar,
     .change = "C(d_i,4) + C(d_j,4)",
     .keywords = "centralisation popularity degree",
     .literature = kMarkov,
     .terms = "kstar(5)",
     .conversion = "The same count.",
     .beware = "The products of degrees are formed in 32-bit integers: they wrap from a degree of "
               "about 76.",
     .sources = {Source::frank_strauss_1986}},
    {.row = "Triangle",
     .family = Family::closure,
     .drawing = kTriangle,
     .change = "p_ij",
     .keywords = "closure transitivity clustering friends of friends",
     .literature = kMarkov,
     .terms = "triangle",
     .conversion = "The same count.",
     .identity = "1/3 sum_{i<j} x_ij p_ij",
     .beware = "With edge and 2-star alone it is the classic model that falls apart into nearly "
               "empty and nearly complete networks; AT is the usual way out.",
     .sources = {Source::frank_strauss_1986, Source::snijders_pattison_robins_handcock_2006}},
    {.row = "4-clique",
     .family = Family::cliques,
     .drawing = kClique,
     .change = "L_2",
     .keywords = "clique closure cohesion",
     .literature = kHigher,
     .sources = {Source::pattison_robins_2002}},
    {.row = "5-clique",
     .family = Family::cliques,
     .drawing = kClique,
     .change = "L_3",
     .keywords = "clique closure cohesion",
     .literature = kHigher,
     .sources = {Source::pattison_robins_2002}},
    {.row = "6-clique",
     .family = Family::cliques,
     .drawing = kClique,
     .change = "L_4",
     .keywords = "clique closure cohesion",
     .literature = kHigher,
     .sources = {Source::pattison_robins_2002}},
    {.row = "7-clique",
     .family = Family::cliques,
     .drawing = kClique,
     .change = "L_5",
     .keywords = "clique closure cohesion",
     .literature = kHigher,
     .sources = {Source::pattison_robins_2002}},
    {.row = "Isolates",
     .family = Family::actors,
     .drawing = kIsolate,
     .change = "-[d_i = 0] - [d_j = 0]",
     .keywords = "isolate degree zero alone",
     .literature = "Lets a model hold more or fewer actors without ties than its degrees alone "
                   "would.",
     .terms = "isolates, degree(0)",
     .conversion = "The same count.",
     .beware = "The trace plot of the syntax file shows `triangle` in the place of `iso`.",
     .sources = {Source::morris_handcock_hunter_2008}},
    {.row = "Triangle2",
     .family = Family::triangle_pairs,
     .drawing = kSharedTie,
     .change = "C(p_ij,2) + sum_k x_ik x_jk (p_ik + p_jk)",
     .keywords = "two-triangle k-triangle closure diamond",
     .literature = "The 2-triangle: the second of the k-triangles that AT sums with alternating "
                   "signs.",
     .sources = {Source::snijders_pattison_robins_handcock_2006}},
    {.row = "Bow_tie",
     .family = Family::triangle_pairs,
     .drawing = kBowTie,
     .change = "sum_k x_ik x_jk (t_i + t_j + t_k - 2 p_ik - 2 p_jk)",
     .keywords = "bowtie butterfly bridge between triangles",
     .literature = kHigher,
     .beware = "Not in the full model of a fit unless the model has it.",
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "P3",
     .family = Family::triangle_pairs,
     .drawing = kApart,
     .change = "sum_k x_ik x_jk (K_3 - t_i - t_j - t_k + p_ik + p_jk)",
     .keywords = "disjoint triangles",
     .literature = kHigher,
     .beware =
         "Not in the full model of a fit unless the model has it. It has no likeness to 3Path "
         "but for its name.",
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "Q10",
     .family = Family::triangle_pairs,
     .drawing = R"(
    o
   / \
  /   \
 o ---- o        the actors above and below are not tied
  \   /
   \ /
    o
)",
     .change = "sum_{k<l} x_ik x_jk x_il x_jl [x_kl = 0] + sum_{k,l} x_ik x_jk x_kl [x_il + x_jl = "
               "1] - L_2",
     .keywords = "diamond induced shared tie",
     .literature = kHigher,
     .beware = "Not in the full model of a fit unless the model has it.",
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "Q20",
     .family = Family::triangle_pairs,
     .drawing = R"(
 o           o
 | \       / |
 |    \ /    |
 |     o     |   no tie between the left pair and the
 |    / \    |   right one
 | /       \ |
 o           o
)",
     .change = nullptr,
     .keywords = "bowtie induced shared actor bridge",
     .literature = kHigher,
     .beware = "Not in the full model of a fit unless the model has it.",
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "Q30",
     .family = Family::triangle_pairs,
     .drawing = R"(
    o           o
   / \         / \
  /   \       /   \    no tie between the two
 o --- o     o --- o
)",
     .change = nullptr,
     .keywords = "disjoint triangles induced",
     .literature = kHigher,
     .beware = "Not in the full model of a fit unless the model has it.",
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "Q31",
     .family = Family::triangle_pairs,
     .drawing = kBridged,
     .change = nullptr,
     .keywords = "bridge between triangles induced",
     .literature = kHigher,
     .beware = "Not in the full model of a fit unless the model has it.",
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "3Path",
     .family = Family::paths,
     .drawing = kPath,
     .change = "d_i d_j + sum_k (x_ik + x_jk) (d_k - 1)",
     .keywords = "path connectivity degree assortativity",
     .literature = "The three-path of the realisation-dependent models: ties at a distance depend "
                   "on each other when a tie joins them.",
     .terms = "threetrail",
     .conversion =
         "The trail counts sum_{i<j} x_ij (d_i - 1) (d_j - 1), closed walks included: the "
         "sum of this effect's changes is that count, so a parameter estimated here is "
         "the trail's.",
     .beware = "A chain carries the change, which counts closed walks: the carried value drifts "
               "from a recount by three for each common neighbour of an accepted tie.",
     .sources = {Source::pattison_robins_2002}},
    {.row = "cycle4",
     .family = Family::paths,
     .drawing = kRing,
     .change = "sum_k x_jk p_ik",
     .keywords = "four-cycle ring square closure bipartite",
     .literature = "The four-cycle, which the partial conditional (social circuit) dependence "
                   "brings in.",
     .terms = "cycle(4)",
     .conversion = "The same count.",
     .sources = {Source::pattison_robins_2002, Source::snijders_pattison_robins_handcock_2006}},
    {.row = "1ET",
     .family = Family::triangle_ties,
     .drawing = kOneEt,
     .change = "t_i + t_j + (d_i + d_j - 2) p_ij + sum_k x_ik x_jk (d_k - 2)",
     .keywords = "edge-triangle paw tailed triangle",
     .literature = kEdgeTriangle,
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "2ET",
     .family = Family::triangle_ties,
     .drawing = kTwoEt,
     .change = "p_ij (C(d_i - 1,2) + C(d_j - 1,2)) + (d_i - 2) t_i + (d_j - 2) t_j + sum_k x_ik "
               "x_jk C(d_k - 2,2)",
     .keywords = "edge-triangle two tails",
     .literature = kEdgeTriangle,
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "0ET",
     .family = Family::triangle_ties,
     .drawing = kFreeTie,
     .change = "0",
     .keywords = "edge-triangle bridge local bridge",
     .literature = kEdgeTriangle,
     .beware =
         "The values of a simulation show it twice, the second time where ETNT belongs. Since "
         "no change carries it, a parameter of it does nothing to a chain.",
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "ETNT",
     .family = Family::triangle_ties,
     .drawing = kFreeActor,
     .change = "0",
     .keywords = "edge-triangle no triangle bridge periphery",
     .literature = kEdgeTriangle,
     .beware = "The values of a simulation do not show it. Since no change carries it, a parameter "
               "of it does nothing to a chain.",
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "two3star",
     .family = Family::degrees,
     .drawing = kTwoStar,
     .change = "d_i + d_j - 1/2 (C(d_i,2) + C(d_j,2))",
     .keywords = "truncated alternating star centralisation",
     .literature = kTruncated,
     .sources = {Source::snijders_pattison_robins_handcock_2006}},
    {.row = "one2triangle",
     .family = Family::closure,
     .drawing = kTriangle,
     .change = "p_ij - 1/2 C(p_ij,2) - 1/2 sum_k x_ik x_jk (p_ik + p_jk)",
     .keywords = "truncated alternating triangle closure transitivity",
     .literature = kTruncated,
     .sources = {Source::snijders_pattison_robins_handcock_2006}},
    {.row = "one2et",
     .family = Family::triangle_ties,
     .drawing = kOneEt,
     .change = "t_i + t_j + (d_i + d_j - 2) p_ij + sum_k x_ik x_jk (d_k - 2) - 1/2 (p_ij (C(d_i - "
               "1,2) + C(d_j - 1,2)) + (d_i - 2) t_i + (d_j - 2) t_j + sum_k x_ik x_jk C(d_k - "
               "2,2))",
     .keywords = "truncated alternating edge-triangle",
     .literature = kTruncated,
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "AS",
     .family = Family::degrees,
     .drawing = kManyStar,
     .change = "λ (2 - w^d_i - w^d_j)",
     .keywords = "alternating k-star geometrically weighted degree centralisation hubs",
     .literature = "The alternating k-star: all stars from two ties on, with alternating signs and "
                   "weights that fall by 1/lambda. A positive parameter beside a negative edge "
                   "gathers ties at hubs; beyond some degree a further tie adds no more.",
     .terms = "altkstar(lambda), gwdegree(decay)",
     .conversion =
         "altkstar is the same count. gwdegree with decay α, lambda = exp(α), counts G = λ sum_i "
         "(1 - w^d_i), and AS = 2 λ edges - λ G: a model with edge at a and AS at b is one with "
         "edges at a + 2 λ b and gwdegree at -λ b. The signs are opposite.",
     .identity = "2 λ sum_{i<j} x_ij - λ λ sum_i (1 - w^d_i)",
     .lambda = {WeightLaw::rising, "tie of an actor"},
     .sources = {Source::snijders_pattison_robins_handcock_2006, Source::hunter_handcock_2006,
                 Source::hunter_2007}},
    {.row = "AT",
     .family = Family::closure,
     .drawing = kManyTriangle,
     .change = "λ (1 - w^p_ij) + sum_k x_ik x_jk (w^p_ik + w^p_jk)",
     .keywords = "alternating k-triangle geometrically weighted edgewise shared partners "
                 "transitivity closure clustering friends of friends",
     .literature =
         "The alternating k-triangle: closure whose further common neighbours weigh less, "
         "so that it does not run away. The usual effect for closure.",
     .terms = "gwesp(decay)",
     .conversion = "gwesp with decay α is the same count with lambda = exp(α), and has the same "
                   "parameter: decay 0.693 is lambda 2.",
     .lambda = {WeightLaw::falling, "common neighbour of a tie"},
     .sources = {Source::snijders_pattison_robins_handcock_2006, Source::hunter_handcock_2006,
                 Source::hunter_2007}},
    {.row = "A2P",
     .family = Family::paths,
     .drawing = kManyTwoPath,
     .change = "sum_k (x_jk w^p_ik + x_ik w^p_jk)",
     .keywords = "alternating two-path geometrically weighted dyadwise shared partners "
                 "connectivity brokerage precondition of closure",
     .literature = "The alternating independent two-path, the lower side of AT: with both in a "
                   "model, AT tells closure apart from mere opportunity for it.",
     .terms = "gwdsp(decay)",
     .conversion = "gwdsp with decay α is the same count with lambda = exp(α), and has the same "
                   "parameter.",
     .lambda = {WeightLaw::falling, "common neighbour of a pair"},
     .sources = {Source::snijders_pattison_robins_handcock_2006, Source::hunter_2007}},
    {.row = "AC",
     .family = Family::cliques,
     .drawing = kClique,
     .change = "L_2 - L_3/λ + L_4/λ^2 - L_5/λ^3 + L_6/λ^4",
     .keywords = "alternating clique cohesion closure",
     .literature = "The cliques of all sizes as one statistic with alternating signs, cut off "
                   "behind the 8-cliques.",
     .lambda = {WeightLaw::alternating, "clique of k actors"},
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "AET",
     .family = Family::triangle_ties,
     .drawing = kManyEt,
     .change = "λ sum_k x_ik x_jk (1 - w^(d_k - 2)) + λ ((t_i + p_ij) (1 - w^(d_i - 1)) + (t_j + "
               "p_ij) (1 - w^(d_j - 1)) - t_i (1 - w^(d_i - 2)) - t_j (1 - w^(d_j - 2)))",
     .keywords = "alternating edge-triangle",
     .literature = kEdgeTriangle,
     .lambda = {WeightLaw::falling, "further tie at an actor of a triangle"},
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "AEAT",
     .family = Family::triangle_ties,
     .drawing = R"(
   .--- o ---.
  /           \      o
 i ---- o ---- j ---<    k common neighbours of a tie,
 |\           /|      o   l further ties at one end
 | '--- o ---' |
 |             |
 '-------------'
)",
     .change =
         "λ^2 ([d_i > 1] [p_ij > 0] (1 - w^p_ij + w^(d_i - p_ij) ((1 - 2/λ)^p_ij - (-1/λ)^p_ij)) + "
         "[d_j > 1] [p_ij > 0] (1 - w^p_ij + w^(d_j - p_ij) ((1 - 2/λ)^p_ij - (-1/λ)^p_ij))) + λ "
         "sum_k (x_jk [d_j > 1] [p_jk > 0] ((-1/λ)^p_jk - (1 - 2/λ)^p_jk) w^(d_j - p_jk - 1) + "
         "x_ik [d_i > 1] [p_ik > 0] ((-1/λ)^p_ik - (1 - 2/λ)^p_ik) w^(d_i - p_ik - 1) + x_jk [d_i "
         "> 1] (w^p_ik - w^(d_i - p_ik) (1 - 2/λ)^p_ik) + x_ik [d_j > 1] (w^p_jk - w^(d_j - p_jk) "
         "(1 - 2/λ)^p_jk) + x_ik x_jk [d_k > 2] (w^p_ik + w^p_jk - w^(d_k - p_ik - 1) (1 - "
         "2/λ)^p_ik - w^(d_k - p_jk - 1) (1 - 2/λ)^p_jk))",
     .keywords = "alternating edge-triangle each tie",
     .literature = kEdgeTriangle,
     .beware = "The count and the change are two measures of one name: the change alternates with "
               "-1/λ, and squares λ only in the new tie's own term. A chain, and so an estimate, "
               "follows the change. Count and change are given for lambda above 1.",
     .sources = {Source::lusher_koskinen_robins_2013}},
});

}  // namespace

std::span<const EffectPage> graph_pages() { return kPages; }
