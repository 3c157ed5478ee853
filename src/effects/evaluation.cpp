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

void list_cliques(Graph& graph, int i, int j) { graph_clique_changes(graph, i, j); }
void list_cliques(Digraph&, int, int) {}

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
        model.push_back({functions.change, functions.count, data, choice.position,
                         effect.traits.cliques > 0, effect.traits.counts_ties,
                         effect.traits.without_tables});
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
            // What depends on no other dyad reads no table of two-paths.
            model.push_back({functions.change, functions.count, data, position, false, false,
                             effect.facts.dependence != Dependence::other_dyads});
        });
    return model;
}

template ActiveModel<Graph> active_model<Graph>(const EffectSelection&);
template ActiveModel<Digraph> active_model<Digraph>(const EffectSelection&);

template <class Network>
void part_model(const ActiveModel<Network>& model, const double* parameters,
                PartedModel<Network>& parted) {
    parted.weighted.clear();
    parted.resting.clear();
    parted.start = 0.0;
    parted.start_position = -1;
    bool first = true;
    bool listed[2] = {false, false};
    for (const ActiveEffect<Network>& effect : model) {
        const double parameter = parameters[effect.position];
        const bool weighted = parameter != 0.0;
        if (weighted && first && effect.counts_ties) {
            parted.start = parameter;
            parted.start_position = effect.position;
        } else {
            bool& cliques = listed[weighted ? 1 : 0];
            (weighted ? parted.weighted : parted.resting)
                .push_back({effect.change, &effect.data, parameter,
                            static_cast<std::size_t>(effect.position),
                            effect.reads_cliques && !cliques});
            cliques = cliques || effect.reads_cliques;
        }
        first = first && !weighted;
    }
}
template void part_model<Graph>(const ActiveModel<Graph>&, const double*, PartedModel<Graph>&);
template void part_model<Digraph>(const ActiveModel<Digraph>&, const double*,
                                  PartedModel<Digraph>&);

// The clique enumeration runs once, when the first effect that reads it is met.
template <class Network>
double evaluate_toggle(Network& network, const ActiveModel<Network>& model,
                       const double* parameters, double* change, int i, int j, int adding) {
    double sum = 0.0;
    bool listed = false;
    for (const ActiveEffect<Network>& effect : model) {
        if (effect.reads_cliques && !listed) {
            list_cliques(network, i, j);
            listed = true;
        }
        const double value = effect.change(network, effect.data, i, j, adding);
        change[effect.position] = value;
        if (parameters[effect.position] != 0.0) {
            sum += parameters[effect.position] * value;
        }
    }
    return sum;
}
template double evaluate_toggle<Graph>(Graph&, const ActiveModel<Graph>&, const double*, double*,
                                       int, int, int);
template double evaluate_toggle<Digraph>(Digraph&, const ActiveModel<Digraph>&, const double*,
                                         double*, int, int, int);

template <class Network>
void compute_statistics(Network& network, const ActiveModel<Network>& model) {
    for (const ActiveEffect<Network>& effect : model) {
        network.statistics[static_cast<std::size_t>(effect.position)] =
            effect.count(network, effect.data);
    }
}

template void compute_statistics<Graph>(Graph&, const ActiveModel<Graph>&);
template void compute_statistics<Digraph>(Digraph&, const ActiveModel<Digraph>&);
