// The one place that knows what an effect is called.
//
// Some eighty effects stand in up to ten outputs, in different spellings, number formats and
// orders. All of that is data here: one row per effect, and per output its order of rows. Readers
// and writers loop over a catalogue; none of them spells an effect's name. The spellings are an
// interface: hosts, spreadsheets and syntax files match them to the letter, misspellings included.
#pragma once

#include <array>
#include <span>
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
};
constexpr EffectTraits kFull = {.full_model = true};
constexpr EffectTraits kOutside = {.full_model = false};
constexpr EffectTraits kLambda = {.full_model = true, .alternating = true, .weighted = true};
constexpr EffectTraits kLambdaOne = {
    .full_model = true, .alternating = true, .weighted = true, .full_model_lambda = 1.0F};
constexpr EffectTraits kLambdaPowers = {
    .full_model = true, .alternating = true, .weighted = true, .powers = true};
constexpr EffectTraits kAlternatingClique = {.full_model = true, .alternating = true, .cliques = 8};
constexpr EffectTraits clique_traits(int size) { return {.full_model = true, .cliques = size}; }

struct StructuralEffect {
    // Label in update files; also names the effect's row of the setup file.
    const char* row;
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
}  // namespace digraph_effect
