#include "effects/evaluation.h"

#include "effects/cliques.h"
#include "effects/geometric_weights.h"

namespace {

// The pair table that an effect reads of one attribute.
const FloatTable* pair_table(const AttributeTable& table, PairTable which, std::size_t attribute) {
    const auto of_continuous = [&](FloatTable ContinuousAttribute::*pairs) {
        return attribute < table.continuous.size() ? &(table.continuous[attribute].*pairs)
                                                   : nullptr;
    };
    switch (which) {
        case PairTable::none:
            break;
        case PairTable::sums:
            return of_continuous(&ContinuousAttribute::sums);
        case PairTable::differences:
            return of_continuous(&ContinuousAttribute::differences);
        case PairTable::products:
            return of_continuous(&ContinuousAttribute::products);
        case PairTable::covariate:
            return attribute < table.covariates.size() ? &table.covariates[attribute] : nullptr;
    }
    return nullptr;
}

const CodedAttribute* coded_attribute_of(const AttributeTable& table, AttributeGroup group,
                                         std::size_t attribute) {
    const auto& list = group == AttributeGroup::binary ? table.binary : table.categorical;
    const bool coded = group == AttributeGroup::binary || group == AttributeGroup::categorical;
    return coded && attribute < list.size() ? &list[attribute] : nullptr;
}

void prepare(Graph& graph, int i, int j) { graph_clique_changes(graph, i, j); }
void prepare(Digraph&, int, int) {}

// Evaluates the effects whose parameter is (or is not) exactly 0.0; the clique enumeration runs
// once, when the first effect that reads it is met.
template <bool weighted, class Network>
double evaluate(Network& network, const ActiveModel<Network>& model, const double* parameters,
                double* change, int i, int j, int adding) {
    double sum = 0.0;
    bool prepared = false;
    for (const ActiveEffect<Network>& effect : model) {
        const double parameter = parameters[effect.position];
        if ((parameter != 0.0) != weighted) {
            continue;
        }
        if (effect.reads_cliques && !prepared) {
            prepare(network, i, j);
            prepared = true;
        }
        const double value = effect.change(network, effect.data, i, j, adding);
        change[effect.position] = value;
        if constexpr (weighted) {
            sum += parameter * value;
        }
    }
    return sum;
}

}  // namespace

template <class Network>
ActiveModel<Network> active_model(const EffectSelection& selection) {
    const Catalogue& catalogue = *selection.catalogue;
    const int size = selection_size(selection);
    ActiveModel<Network> model;
    for (std::size_t id = 0; id < catalogue.effects.size(); ++id) {
        const StructuralChoice& choice = selection.structural[id];
        if (choice.position < 0 || choice.position >= size) {
            continue;
        }
        const StructuralEffect& effect = catalogue.effects[id];
        const auto& functions = functions_of<Network>(effect);
        EffectData data;
        data.lambda = choice.lambda;
        data.weights = choice.weights.data();
        data.exact_weights = exact_weight_count(choice.weights);
        data.powers_a = &choice.powers_a;
        data.powers_b = &choice.powers_b;
        model.push_back(
            {functions.change, functions.count, data, choice.position, effect.traits.cliques > 0});
    }
    for_each_attribute_effect(
        selection, [&](AttributeGroup group, int row, int attribute, int position) {
            const AttributeEffect& effect =
                group_catalogue(catalogue, group).effects[static_cast<std::size_t>(row)];
            const auto& functions = functions_of<Network>(effect);
            const auto index = static_cast<std::size_t>(attribute);
            EffectData data;
            data.coded = coded_attribute_of(selection.table, group, index);
            data.pairs = pair_table(selection.table, effect.pairs, index);
            if (group == AttributeGroup::continuous && index < selection.table.continuous.size()) {
                data.reals = selection.table.continuous[index].values.data();
            }
            model.push_back({functions.change, functions.count, data, position, false});
        });
    return model;
}

template ActiveModel<Graph> active_model<Graph>(const EffectSelection&);
template ActiveModel<Digraph> active_model<Digraph>(const EffectSelection&);

double evaluate_weighted(Graph& graph, const ActiveModel<Graph>& model, const double* parameters,
                         double* change, int i, int j, int adding) {
    return evaluate<true>(graph, model, parameters, change, i, j, adding);
}
double evaluate_weighted(Digraph& digraph, const ActiveModel<Digraph>& model,
                         const double* parameters, double* change, int i, int j, int adding) {
    return evaluate<true>(digraph, model, parameters, change, i, j, adding);
}

void evaluate_unweighted(Graph& graph, const ActiveModel<Graph>& model, const double* parameters,
                         double* change, int i, int j, int adding) {
    evaluate<false>(graph, model, parameters, change, i, j, adding);
}
void evaluate_unweighted(Digraph& digraph, const ActiveModel<Digraph>& model,
                         const double* parameters, double* change, int i, int j, int adding) {
    evaluate<false>(digraph, model, parameters, change, i, j, adding);
}

template <class Network>
void compute_statistics(Network& network, const ActiveModel<Network>& model) {
    for (const ActiveEffect<Network>& effect : model) {
        network.statistics[static_cast<std::size_t>(effect.position)] =
            effect.count(network, effect.data);
    }
}

template void compute_statistics<Graph>(Graph&, const ActiveModel<Graph>&);
template void compute_statistics<Digraph>(Digraph&, const ActiveModel<Digraph>&);
