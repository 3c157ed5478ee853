// Pages of the attribute and covariate effects of both kinds of network.
#include "encyclopaedia/page_tables.h"

namespace {

constexpr const char* kSelection =
    "A social selection effect: who the actors are decides on their ties.";
constexpr const char* kStarSelection =
    "A social selection effect on a Markov configuration; used beside the plain configuration, "
    "which it then tells apart for bearers.";
constexpr const char* kHomophily =
    "Homophily: ties between actors that are alike. Use it beside the main effects of the "
    "attribute.";
constexpr const char* kDyadic =
    "A dyadic covariate: a measured relation, distance or other network "
    "as a predictor of ties.";
constexpr const char* kWeighted =
    "A dyadic covariate on a Markov configuration; used beside the plain configuration.";
constexpr const char* kMissingValues =
    "Missing values: the effect of the value itself leaves them out, this one gives those actors a "
    "level of their own.";

constexpr const char* kFromBearer = R"(
 @ ----> o        @ bears the attribute
)";
constexpr const char* kToBearer = R"(
 o ----> @        @ bears the attribute
)";
constexpr const char* kBearers = R"(
 @ ----- @        @ bears the attribute
)";
constexpr const char* kBearer = R"(
 @ ----- o        @ bears the attribute
)";
constexpr const char* kFromMissing = R"(
 ? ----> o        ? the value is not known
)";
constexpr const char* kToMissing = R"(
 o ----> ?        ? the value is not known
)";
constexpr const char* kValues = R"(
 a_i ----- a_j    a_i, a_j the two values
)";
constexpr const char* kArcValues = R"(
 a_i ----> a_j    a_i, a_j the two values
)";
constexpr const char* kMutualValues = R"(
 a_i <----> a_j   a_i, a_j the two values
)";
constexpr const char* kSameDrawing = R"(
 A ----- A        A a category
)";
constexpr const char* kDifferentDrawing = R"(
 A ----- B        A, B two categories
)";

constexpr auto kGraphBinary = std::to_array<EffectPage>({
    {.row = "%s_activity",
     .family = Family::ties,
     .drawing = kBearer,
     .change = "a_i + a_j",
     .keywords = "main effect sociality popularity",
     .literature = kSelection,
     .terms = "nodefactor, nodecov",
     .conversion = "The same count: nodefactor of the level 1, or nodecov of the values 0 and 1.",
     .identity = "sum_i a_i d_i",
     .sources = {Source::robins_elliott_pattison_2001, Source::lusher_koskinen_robins_2013}},
    {.row = "%s_interaction",
     .family = Family::ties,
     .drawing = kBearers,
     .change = "a_i a_j",
     .keywords = "homophily assortativity both",
     .literature = kHomophily,
     .terms = "nodemix, nodematch with its levels apart",
     .conversion = "The same count: the ties within the level 1.",
     .sources = {Source::robins_elliott_pattison_2001, Source::lusher_koskinen_robins_2013}},
    {.row = "%s_O1au",
     .family = Family::degrees,
     .drawing = R"(
 o       o
  \     /
   \   /
     @            @ bears the attribute
)",
     .change = "d_i a_i + d_j a_j",
     .keywords = "star centralisation hub",
     .literature = kStarSelection,
     .identity = "sum_i a_i C(d_i,2)",
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_O1bu",
     .family = Family::degrees,
     .drawing = R"(
 @       o
  \     /
   \   /
     o            @ bears the attribute
)",
     .change = "sum_k (x_ik (a_j + a_k) + x_jk (a_i + a_k))",
     .keywords = "star leaf",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_O2au",
     .family = Family::degrees,
     .drawing = R"(
 @       o
  \     /
   \   /
     @            @ bears the attribute
)",
     .change = "sum_k (x_ik a_i (a_j + a_k) + x_jk a_j (a_i + a_k))",
     .keywords = "star",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_O2b",
     .family = Family::degrees,
     .drawing = R"(
 @       @
  \     /
   \   /
     o            @ bears the attribute
)",
     .change = "sum_k (x_ik a_j a_k + x_jk a_i a_k)",
     .keywords = "star brokerage between",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_O3u",
     .family = Family::degrees,
     .drawing = R"(
 @       @
  \     /
   \   /
     @            @ bears the attribute
)",
     .change = "sum_k (x_ik + x_jk) a_i a_j a_k",
     .keywords = "star",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_T1u",
     .family = Family::closure,
     .drawing = R"(
     @
    / \
   /   \
  o --- o         @ bears the attribute
)",
     .change = "sum_k x_ik x_jk (a_i + a_j + a_k)",
     .keywords = "closure transitivity clustering",
     .literature = kStarSelection,
     .identity = "sum_i a_i t_i",
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_T2u",
     .family = Family::closure,
     .drawing = R"(
     o
    / \
   /   \
  @ --- @         @ bears the attribute
)",
     .change = "sum_k x_ik x_jk (a_i a_j + a_i a_k + a_j a_k)",
     .keywords = "closure transitivity clustering",
     .literature = kStarSelection,
     .identity = "sum_{i<j} x_ij p_ij a_i a_j",
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_T3u",
     .family = Family::closure,
     .drawing = R"(
     @
    / \
   /   \
  @ --- @         @ bears the attribute
)",
     .change = "sum_k x_ik x_jk a_i a_j a_k",
     .keywords = "closure transitivity clustering homophily",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
});

constexpr auto kGraphContinuous = std::to_array<EffectPage>({
    {.row = "%s_sum_of_Continuous",
     .family = Family::ties,
     .drawing = kValues,
     .change = "a_i + a_j",
     .keywords = "main effect activity sociality",
     .literature = kSelection,
     .terms = "nodecov",
     .conversion = "The same count.",
     .identity = "sum_i a_i d_i",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_diff_of_Continuous",
     .family = Family::ties,
     .drawing = kValues,
     .change = "|a_i - a_j|",
     .keywords = "homophily heterophily distance similarity",
     .literature = "Homophily on a scale: a negative parameter means ties between actors that are "
                   "near.",
     .terms = "absdiff",
     .conversion = "The same count.",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_prod_of_Continuous",
     .family = Family::ties,
     .drawing = kValues,
     .change = "a_i a_j",
     .keywords = "interaction homophily assortativity",
     .literature = kSelection,
     .terms = "edgecov",
     .conversion = "The same count with the products of the values as the covariate.",
     .sources = {Source::robins_elliott_pattison_2001}},
});

constexpr auto kGraphCategorical = std::to_array<EffectPage>({
    {.row = "%s_Same_Category_edge",
     .family = Family::ties,
     .drawing = kSameDrawing,
     .change = "[a_i = a_j]",
     .keywords = "homophily matching assortativity within group",
     .literature = kHomophily,
     .terms = "nodematch",
     .conversion = "The same count.",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_Different_Category_edge",
     .family = Family::ties,
     .drawing = kDifferentDrawing,
     .change = "[a_i != a_j]",
     .keywords = "heterophily mismatch between groups",
     .literature = "Heterophily; with edge in the model it carries what `same` carries, with the "
                   "opposite sign: a model has one of the two.",
     .terms = "edges, nodematch",
     .conversion = "edges less nodematch: a model with edge at a and different at b is one with "
                   "edges at a + b and nodematch at -b.",
     .identity = "sum_{i<j} x_ij - sum_{i<j} x_ij [a_i = a_j]",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
});

constexpr auto kGraphCovariate = std::to_array<EffectPage>({
    {.row = "%s_edge",
     .family = Family::ties,
     .drawing = R"(
     c_ij
 i ------- j
)",
     .change = "c_ij",
     .keywords = "dyadic covariate distance other network multiplex",
     .literature = kDyadic,
     .terms = "edgecov",
     .conversion = "The same count.",
     .sources = {Source::wasserman_pattison_1996, Source::morris_handcock_hunter_2008}},
    {.row = "%s_S21",
     .family = Family::degrees,
     .drawing = R"(
 j       k
  \     /
c_ij   c_ik
    \ /
     i            c_ij + c_ik
)",
     .change = "sum_k (x_ik (c_ij + c_ik) + x_jk (c_ij + c_jk))",
     .keywords = "dyadic covariate star",
     .literature = kWeighted,
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "%s_S22",
     .family = Family::degrees,
     .drawing = R"(
 j       k
  \     /
c_ij   c_ik
    \ /
     i            c_ij x c_ik
)",
     .change = "sum_k (x_ik c_ij c_ik + x_jk c_ij c_jk)",
     .keywords = "dyadic covariate star",
     .literature = kWeighted,
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "%s_T1",
     .family = Family::closure,
     .drawing = R"(
     k
    / \
   /   \
  i --- j         c_ij + c_ik + c_jk
)",
     .change = "sum_k x_ik x_jk (c_ij + c_ik + c_jk)",
     .keywords = "dyadic covariate closure",
     .literature = kWeighted,
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "%s_T2",
     .family = Family::closure,
     .drawing = R"(
     k
    / \
   /   \
  i --- j         c_ij c_ik + c_ij c_jk + c_ik c_jk
)",
     .change = "sum_k x_ik x_jk (c_ij c_ik + c_ij c_jk + c_ik c_jk)",
     .keywords = "dyadic covariate closure",
     .literature = kWeighted,
     .sources = {Source::lusher_koskinen_robins_2013}},
    {.row = "%s_T3",
     .family = Family::closure,
     .drawing = R"(
     k
    / \
   /   \
  i --- j         c_ij x c_ik x c_jk
)",
     .change = "sum_k x_ik x_jk c_ij c_ik c_jk",
     .keywords = "dyadic covariate closure",
     .literature = kWeighted,
     .sources = {Source::lusher_koskinen_robins_2013}},
});

constexpr auto kDigraphBinary = std::to_array<EffectPage>({
    {.row = "%s_interaction",
     .family = Family::ties,
     .drawing = R"(
 @ ----> @        @ bears the attribute
)",
     .change = "a_i a_j",
     .keywords = "homophily assortativity both",
     .literature = kHomophily,
     .terms = "nodemix, nodematch with its levels apart",
     .conversion = "The same count: the arcs within the level 1.",
     .sources = {Source::robins_elliott_pattison_2001, Source::lusher_koskinen_robins_2013}},
    {.row = "%s_sender",
     .family = Family::ties,
     .drawing = kFromBearer,
     .change = "a_i",
     .keywords = "main effect activity expansiveness out-degree",
     .literature = kSelection,
     .terms = "nodeofactor, nodeocov",
     .conversion = "The same count: nodeofactor of the level 1, or nodeocov of the values 0 and 1.",
     .identity = "sum_i a_i out_i",
     .sources = {Source::robins_elliott_pattison_2001, Source::lusher_koskinen_robins_2013}},
    {.row = "%s_receiver",
     .family = Family::ties,
     .drawing = kToBearer,
     .change = "a_j",
     .keywords = "main effect popularity attractiveness in-degree",
     .literature = kSelection,
     .terms = "nodeifactor, nodeicov",
     .conversion = "The same count: nodeifactor of the level 1, or nodeicov of the values 0 and 1.",
     .identity = "sum_i a_i in_i",
     .beware = "The head of the sample table calls it interaction.",
     .sources = {Source::robins_elliott_pattison_2001, Source::lusher_koskinen_robins_2013}},
    {.row = "%s_sender_missing",
     .family = Family::ties,
     .drawing = kFromMissing,
     .change = "u_i",
     .keywords = "missing value NA activity",
     .literature = kMissingValues,
     .identity = "sum_i u_i out_i",
     .beware = "The values of a simulation call it sender."},
    {.row = "%s_receiver_missing",
     .family = Family::ties,
     .drawing = kToMissing,
     .change = "u_j",
     .keywords = "missing value NA popularity",
     .literature = kMissingValues,
     .identity = "sum_i u_i in_i",
     .beware = "The values of a simulation call it receiver."},
    {.row = "%s_activity_reciprocity",
     .family = Family::ties,
     .drawing = R"(
 @ <----> o       @ bears the attribute
)",
     .change = "x_ji [a_i + a_j > 0]",
     .keywords = "mutual mutuality",
     .literature = kSelection,
     .beware = "A mutual dyad of two bearers counts once, not twice.",
     .sources = {Source::robins_elliott_pattison_2001, Source::lusher_koskinen_robins_2013}},
    {.row = "%s_interaction_reciprocity",
     .family = Family::ties,
     .drawing = R"(
 @ <----> @       @ bears the attribute
)",
     .change = "x_ji a_i a_j",
     .keywords = "mutual mutuality homophily",
     .literature = kHomophily,
     .sources = {Source::robins_elliott_pattison_2001, Source::lusher_koskinen_robins_2013}},
    {.row = "%s_out2star",
     .family = Family::degrees,
     .drawing = R"(
 o       o
  ^     ^
   \   /
     @            @ bears the attribute
)",
     .change = "a_i out_i",
     .keywords = "activity spread out-degree",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_path2",
     .family = Family::paths,
     .drawing = R"(
 o --> @ --> o    @ bears the attribute
)",
     .change = "a_i (in_i - x_ji) + a_j (out_j - x_ji)",
     .keywords = "brokerage two-path",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_in2star",
     .family = Family::degrees,
     .drawing = R"(
 o       o
  \     /
   v   v
     @            @ bears the attribute
)",
     .change = "a_j in_j",
     .keywords = "popularity spread in-degree",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
});

constexpr const char* kOutOfStep =
    "In a host's run whose model has `sum`, both `difference` and `product`, or "
    "`product-reciprocity` of continuous attributes, estimates stand under a neighbour's name in "
    "the update files, and a fit behind the estimation starts from shifted values.";

constexpr auto kDigraphContinuous = std::to_array<EffectPage>({
    {.row = "%s_sender",
     .family = Family::ties,
     .drawing = kArcValues,
     .change = "a_i",
     .keywords = "main effect activity expansiveness out-degree",
     .literature = kSelection,
     .terms = "nodeocov",
     .conversion = "The same count.",
     .identity = "sum_i a_i out_i",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_receiver",
     .family = Family::ties,
     .drawing = kArcValues,
     .change = "a_j",
     .keywords = "main effect popularity attractiveness in-degree",
     .literature = kSelection,
     .terms = "nodeicov",
     .conversion = "The same count.",
     .identity = "sum_i a_i in_i",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_sender_missing",
     .family = Family::ties,
     .drawing = kFromMissing,
     .change = "u_i",
     .keywords = "missing value NA activity",
     .literature = kMissingValues,
     .identity = "sum_i u_i out_i"},
    {.row = "%s_receiver_missing",
     .family = Family::ties,
     .drawing = kToMissing,
     .change = "u_j",
     .keywords = "missing value NA popularity",
     .literature = kMissingValues,
     .identity = "sum_i u_i in_i"},
    {.row = "%s_sum",
     .family = Family::ties,
     .drawing = kArcValues,
     .change = "a_i + a_j",
     .keywords = "main effect activity popularity",
     .literature = kSelection,
     .terms = "nodecov",
     .conversion = "The same count; sender and receiver beside it would be too much.",
     .identity = "sum_i a_i (in_i + out_i)",
     .beware = kOutOfStep,
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_diff",
     .family = Family::ties,
     .drawing = kArcValues,
     .change = "|a_i - a_j|",
     .keywords = "homophily heterophily distance similarity",
     .literature = "Homophily on a scale: a negative parameter means arcs between actors that are "
                   "near.",
     .terms = "absdiff",
     .conversion = "The same count.",
     .beware = kOutOfStep,
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_prod",
     .family = Family::ties,
     .drawing = kArcValues,
     .change = "a_i a_j",
     .keywords = "interaction homophily assortativity",
     .literature = kSelection,
     .terms = "edgecov",
     .conversion = "The same count with the products of the values as the covariate.",
     .beware = kOutOfStep,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_sum_reciprocity",
     .family = Family::ties,
     .drawing = kMutualValues,
     .change = "x_ji (a_i + a_j)",
     .keywords = "mutual mutuality",
     .literature = kSelection,
     .beware = "A chain, and so an estimate, follows the change, which looks for the arc back; the "
               "recount does not.",
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_diff_reciprocity",
     .family = Family::ties,
     .drawing = kMutualValues,
     .change = "x_ji |a_i - a_j|",
     .keywords = "mutual mutuality homophily",
     .literature = kSelection,
     .beware = "A chain, and so an estimate, follows the change, which looks for the arc back; the "
               "recount does not.",
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_prod_reciprocity",
     .family = Family::ties,
     .drawing = kMutualValues,
     .change = "x_ji a_i a_j",
     .keywords = "mutual mutuality homophily",
     .literature = kSelection,
     .beware = "A chain, and so an estimate, follows the change, which looks for the arc back; the "
               "recount does not. In a host's run estimates stand under a neighbour's name in the "
               "update files.",
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_in2star",
     .family = Family::degrees,
     .drawing = R"(
 o       o
  \     /
   v   v
    a_i           a_i the value of the centre
)",
     .change = "a_j in_j",
     .keywords = "popularity spread in-degree",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_out2star",
     .family = Family::degrees,
     .drawing = R"(
 o       o
  ^     ^
   \   /
    a_i           a_i the value of the centre
)",
     .change = "a_i out_i",
     .keywords = "activity spread out-degree",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
    {.row = "%s_path2",
     .family = Family::paths,
     .drawing = R"(
 o --> a_i --> o  a_i the value of the centre
)",
     .change = "a_i (in_i - x_ji) + a_j (out_j - x_ji)",
     .keywords = "brokerage two-path",
     .literature = kStarSelection,
     .sources = {Source::robins_elliott_pattison_2001}},
});

constexpr auto kDigraphCategorical = std::to_array<EffectPage>({
    {.row = "%s_same_Category",
     .family = Family::ties,
     .drawing = R"(
 A ----> A        A a category
)",
     .change = "[a_i = a_j]",
     .keywords = "homophily matching assortativity within group",
     .literature = kHomophily,
     .terms = "nodematch",
     .conversion = "The same count.",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_diff_Category",
     .family = Family::ties,
     .drawing = R"(
 A ----> B        A, B two categories
)",
     .change = "[a_i != a_j]",
     .keywords = "heterophily mismatch between groups",
     .literature = "Heterophily; with arc in the model it carries what `same` carries, with the "
                   "opposite sign: a model has one of the two.",
     .terms = "edges, nodematch",
     .conversion = "edges less nodematch: a model with arc at a and different at b is one with "
                   "edges at a + b and nodematch at -b.",
     .identity = "sum_{i,j} x_ij - sum_{i,j} x_ij [a_i = a_j]",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_same_Category_reciprocity",
     .family = Family::ties,
     .drawing = R"(
 A <----> A       A a category
)",
     .change = "x_ji [a_i = a_j]",
     .keywords = "mutual mutuality homophily matching",
     .literature = kHomophily,
     .terms = "mutual with same",
     .conversion = "The same count.",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
    {.row = "%s_diff_Category_reciprocity",
     .family = Family::ties,
     .drawing = R"(
 A <----> B       A, B two categories
)",
     .change = "x_ji [a_i != a_j]",
     .keywords = "mutual mutuality heterophily mismatch",
     .literature = "Heterophily of mutual dyads; with reciprocity in the model it carries what "
                   "`same-reciprocity` carries, with the opposite sign.",
     .terms = "mutual, mutual with same",
     .conversion = "mutual less mutual with same.",
     .identity = "sum_{i<j} y_ij - sum_{i<j} y_ij [a_i = a_j]",
     .sources = {Source::robins_elliott_pattison_2001, Source::morris_handcock_hunter_2008}},
});

constexpr auto kDigraphCovariate = std::to_array<EffectPage>({
    {.row = "%s_arc",
     .family = Family::ties,
     .drawing = R"(
     c_ij
 i -------> j
)",
     .change = "c_ij",
     .keywords = "dyadic covariate distance other network multiplex",
     .literature = kDyadic,
     .terms = "edgecov",
     .conversion = "The same count.",
     .sources = {Source::wasserman_pattison_1996, Source::morris_handcock_hunter_2008}},
});

}  // namespace

std::span<const EffectPage> graph_attribute_pages(AttributeGroup group) {
    const std::array<std::span<const EffectPage>, kAttributeGroups> pages = {
        kGraphBinary, kGraphContinuous, kGraphCategorical, kGraphCovariate};
    return pages[static_cast<std::size_t>(group)];
}

std::span<const EffectPage> digraph_attribute_pages(AttributeGroup group) {
    const std::array<std::span<const EffectPage>, kAttributeGroups> pages = {
        kDigraphBinary, kDigraphContinuous, kDigraphCategorical, kDigraphCovariate};
    return pages[static_cast<std::size_t>(group)];
}
