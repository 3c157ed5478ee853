// The one place that knows what an effect is called.
//
// Some eighty effects stand in up to ten outputs, in different spellings, number formats and
// orders. All of that is data here: one row per effect, and per output its order of rows. Readers
// and writers loop over a catalogue; none of them spells an effect's name. The spellings are an
// interface: hosts, spreadsheets and syntax files match them to the letter, misspellings included.
#pragma once

#include <array>
#include <span>
#include <string_view>
#include <type_traits>

#include "effects/effect.h"
#include "effects/geometric_weights.h"

enum class NetworkKind { undirected = 1, directed = 2 };

// The outputs that name effects. Setup rows and update files have labels of their own.
enum class Output {
    parameter,      // values of a simulation
    simulation,     // columns of the sample table
    syntax,         // variables of the SPSS syntax file
    result,         // result table of an estimation
    fit_parameter,  // values of a fit
    fit,            // rows of a fit report
    bayes_fit,      // rows of a Bayesian fit report
    report,         // rows of a statistics report
    change,         // columns of the change-statistics table
    trace           // variables in the trace plots of the syntax file
};
constexpr int kOutputs = 10;

// What an output shows of an effect: its label ("%s" stands for an attribute's name, "%.2f" for a
// lambda) and the format of its number. Without a label the effect is not shown there.
struct OutputText {
    const char* label;
    const char* format;
};

struct Labels {
    const char* parameter = nullptr;
    const char* simulation = nullptr;
    const char* syntax = nullptr;
    const char* result = nullptr;
    const char* fit_parameter = nullptr;
    const char* fit = nullptr;
    const char* report = nullptr;
    const char* change = nullptr;
    // The variable in the effect's trace plot, where it is not the effect's own.
    const char* trace = nullptr;
};

// One label in tables of columns (sample table, syntax file) and another elsewhere; one label
// everywhere; one for the values of a simulation and another elsewhere.
constexpr Labels shown_as(const char* label, const char* column, const char* change = nullptr) {
    return {label, column, column, label, label, label, label, change};
}
constexpr Labels labelled(const char* label, const char* change = nullptr) {
    return shown_as(label, label, change);
}
constexpr Labels valued_as(const char* value, const char* label, const char* change = nullptr) {
    return {value, label, label, label, label, label, label, change};
}

// Number formats where effects differ. Every parameter of a simulation is "%.5f", every change
// statistic "%lf".
struct NumberFormats {
    const char* simulation;
    const char* syntax;
    const char* fit_parameter;
    const char* fit;
    const char* bayes_fit;
    const char* report;
};

OutputText output_text(const Labels& labels, const NumberFormats& formats, Output output);

struct EffectTraits {
    // Belongs to the full model of a fit.
    bool full_model = false;
    // Has a lambda: its setup row holds one more number.
    bool alternating = false;
    // Keeps a table of geometric weights.
    bool weighted = false;
    // The lambda that the full model gives it when it has 0.0.
    float full_model_lambda = kDefaultLambda;
    // Largest clique that it reads from the clique tables; 0 when it reads none.
    int cliques = 0;
    // Reads the two power tables.
    bool powers = false;
    // Counts the ties themselves: every change is 1.
    bool counts_ties = false;
    // Its change reads ties and degrees, none of the tables of two-paths and triangles.
    bool without_tables = false;
};
constexpr EffectTraits without_tables(EffectTraits traits) {
    traits.without_tables = true;
    return traits;
}
constexpr EffectTraits kFull = {.full_model = true};
constexpr EffectTraits kTies = {.full_model = true, .counts_ties = true, .without_tables = true};
constexpr EffectTraits kDegrees = without_tables(kFull);
constexpr EffectTraits kOutside = {.full_model = false};
constexpr EffectTraits kLambda = {.full_model = true, .alternating = true, .weighted = true};
constexpr EffectTraits kLambdaOne = {
    .full_model = true, .alternating = true, .weighted = true, .full_model_lambda = 1.0F};
constexpr EffectTraits kLambdaDegrees = without_tables(kLambda);
constexpr EffectTraits kLambdaOneDegrees = without_tables(kLambdaOne);
constexpr EffectTraits kLambdaPowers = {
    .full_model = true, .alternating = true, .weighted = true, .powers = true};
constexpr EffectTraits kAlternatingClique = {.full_model = true, .alternating = true, .cliques = 8};
constexpr EffectTraits clique_traits(int size) { return {.full_model = true, .cliques = size}; }

// What one change costs, beyond the words of a bit row.
enum class Cost {
    constant,           // O(1)
    common_neighbours,  // each common neighbour of the two ends
    neighbours,         // each neighbour of either end
    neighbourhood,      // ties among the neighbours of either end or of a common neighbour
    cliques,            // cliques among the common neighbours
    network             // triangles anywhere
};

// What the count's difference that one tie makes depends on.
enum class Dependence {
    none,         // neither on other ties nor on the arc back
    reverse_arc,  // on the arc back alone: arcs within a dyad depend on each other, dyads do not
    other_dyads
};

// When an effect's change is its count with the tie less its count without it. Where it is not, the
// statistic that a chain carries drifts from a recount.
enum class Agreement {
    always,
    above_lambda_one,  // not at lambda 1
    zero_one_values,   // while every value of the attribute is 0 or 1
    values_from_zero,  // while no value of the covariate is negative
    never
};

// What people need to know of an effect. No file of a host's run shows any of it.
struct EffectFacts {
    // Canonical name, compared without regard to case, '-' and '_'. An attribute effect's stands
    // before the attribute: "same(sex)". Effects of different groups share a name where a binary
    // attribute and a continuous one of values 0 and 1 give the same statistic.
    const char* name;
    // What is counted, in one line.
    const char* meaning;
    // The count, in the notation of the catalogue; of an alternating effect, for lambda above 1.
    const char* formula;
    Cost cost;
    Dependence dependence = Dependence::other_dyads;
    Agreement agreement = Agreement::always;
    // Moves with each accepted tie; a statistic that does not is recounted at samples.
    bool carried = true;
};

struct StructuralEffect {
    // Label in update files; also names the effect's row of the setup file.
    const char* row;
    EffectFacts facts;
    EffectTraits traits;
    Labels labels;
    NumberFormats formats;
    EffectFunctions<Graph> graph = {};
    EffectFunctions<Digraph> digraph = {};
};

// What an effect reads as EffectData::pairs: a table of a continuous attribute, or a covariate.
enum class PairTable { none, sums, differences, products, covariate };

struct AttributeEffect {
    // Label in update files.
    const char* update;
    EffectFacts facts;
    Labels labels;
    NumberFormats formats;
    EffectFunctions<Graph> graph = {};
    EffectFunctions<Digraph> digraph = {};
    PairTable pairs = PairTable::none;
};

enum class AttributeGroup { binary, continuous, categorical, covariate };
constexpr int kAttributeGroups = 4;
constexpr std::array<AttributeGroup, kAttributeGroups> kAllGroups = {
    AttributeGroup::binary, AttributeGroup::continuous, AttributeGroup::categorical,
    AttributeGroup::covariate};

struct AttributeGroupCatalogue {
    // In the order of the statistics vector, which is also the order of every output.
    std::span<const AttributeEffect> effects;
    // Row numbers in the order of the setup file and of the update files.
    std::span<const int> setup_order;
    // Row numbers in the order in which values enter and leave the parameter vector.
    std::span<const int> store_order;
    // As store_order, with what assembly alone writes behind it.
    std::span<const int> assembly_order;
};

struct Catalogue {
    NetworkKind kind;
    // What the letters of its formulas mean.
    const char* formula_notation;
    // In evaluation order; an effect's index here is its id.
    std::span<const StructuralEffect> effects;
    // Ids in the order of setup rows; positions in the model follow it.
    std::span<const int> setup_order;
    std::span<const int> update_order;
    // Ids per output, in the order of Output.
    std::array<std::span<const int>, kOutputs> output_orders;
    // Positions that the full model claims beyond those it hands out.
    int full_model_surplus = 0;
    std::array<AttributeGroupCatalogue, kAttributeGroups> groups;
};

inline std::span<const int> output_order(const Catalogue& catalogue, Output output) {
    return catalogue.output_orders[static_cast<std::size_t>(output)];
}
inline const AttributeGroupCatalogue& group_catalogue(const Catalogue& catalogue,
                                                      AttributeGroup group) {
    return catalogue.groups[static_cast<std::size_t>(group)];
}

const Catalogue& graph_catalogue();
const Catalogue& digraph_catalogue();
const Catalogue& catalogue_of(NetworkKind kind);

// Id of the effect that a setup row selects and that bears this canonical name or, failing that,
// the name of whose setup row it is; -1 without one. Case, '-' and '_' do not matter.
int find_effect(const Catalogue& catalogue, std::string_view name);

// Id of the further effect with the same canonical name ("AS2" for "AS"), -1 without one.
int second_effect(const Catalogue& catalogue, int id);

// Row of the attribute effect with this canonical name or, failing that, this label in update files
// without its attribute; -1 without one.
int find_effect(const AttributeGroupCatalogue& group, std::string_view name);

// The functions of an effect for one record type.
template <class Network, class Effect>
const EffectFunctions<Network>& functions_of(const Effect& effect) {
    if constexpr (std::is_same_v<Network, Graph>) {
        return effect.graph;
    } else {
        return effect.digraph;
    }
}

// Ids of effects that code must tell apart, each found in its table by name.
namespace graph_effect {
extern const int kEdge;
extern const int kClique4;
extern const int kTriangle;
extern const int kIsolates;
extern const int kP0;
extern const int k0et;
extern const int kEtnt;
}  // namespace graph_effect

namespace digraph_effect {
extern const int kArc;
extern const int kTransitiveTriad;
extern const int kCyclicTriad;
// The effects of out-degrees alone.
extern const int kOut2star;
extern const int kOut3star;
extern const int kAoutS;
extern const int kAoutS2;
// Those whose whole value is 0 at a lambda of 1.
extern const int kAinAoutS;
extern const int kAin1outS;
extern const int k1inAoutS;
}  // namespace digraph_effect
