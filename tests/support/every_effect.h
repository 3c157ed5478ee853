// Networks of a few actors on which every effect of a kind is counted and changed at once.
#pragma once

#include <cmath>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "effects/cliques.h"
#include "effects/evaluation.h"
#include "network/network_verbs.h"
#include "support/catalogue_lists.h"
#include "support/formula.h"
#include "support/random_networks.h"

namespace every_effect {

inline constexpr int kActors = 8;

using Matrix = std::vector<std::vector<int>>;

template <class Network>
inline constexpr NetworkKind kKind =
    std::is_same_v<Network, Graph> ? NetworkKind::undirected : NetworkKind::directed;

template <class Network>
Matrix random_ties(TestRandom& random, double density) {
    Matrix ties(kActors, std::vector<int>(kActors, 0));
    for (std::size_t i = 0; i < kActors; ++i) {
        for (std::size_t j = 0; j < kActors; ++j) {
            if (i < j || (i > j && kKind<Network> == NetworkKind::directed)) {
                ties[i][j] = draw_unit(random) < density ? 1 : 0;
            } else if (i > j) {
                ties[i][j] = ties[j][i];
            }
        }
    }
    return ties;
}

template <class Network>
void set_tie(Matrix& ties, int i, int j, int tie) {
    ties[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] = tie;
    if (kKind<Network> == NetworkKind::undirected) {
        ties[static_cast<std::size_t>(j)][static_cast<std::size_t>(i)] = tie;
    }
}

// Every dyad of a graph once, every ordered pair of a digraph.
template <class Network>
std::vector<std::pair<int, int>> all_pairs() {
    std::vector<std::pair<int, int>> pairs;
    for (int i = 0; i < kActors; ++i) {
        for (int j = 0; j < kActors; ++j) {
            if (i < j || (i > j && kKind<Network> == NetworkKind::directed)) {
                pairs.emplace_back(i, j);
            }
        }
    }
    return pairs;
}

// The attribute values that every attribute effect of a model reads.
struct Values {
    std::vector<int> codes;
    std::vector<float> reals;
    FloatTable covariate;
};

inline Values random_values(TestRandom& random, const std::vector<int>& codes,
                            const std::vector<float>& reals, const std::vector<float>& cells) {
    Values values{random_codes(random, kActors, codes), random_reals(random, kActors, reals),
                  FloatTable(kActors, kActors)};
    for (int i = 0; i < kActors; ++i) {
        for (int j = i + 1; j < kActors; ++j) {
            const float cell =
                cells[static_cast<std::size_t>(draw_below(random, static_cast<int>(cells.size())))];
            values.covariate[i][j] = cell;
            values.covariate[j][i] = cell;
        }
    }
    return values;
}
inline Values plain_values(TestRandom& random) {
    return random_values(random, {0, 1}, {0.5F, 1.25F, 3.0F}, {0.0F, 0.5F, 2.0F});
}
inline Values strange_values(TestRandom& random) {
    return random_values(random, {0, 1, 2, -1, kMissing}, {-0.5F, 1.25F, 3.0F, 9999.0F},
                         {0.0F, 0.5F, -2.0F});
}

// Every effect of a kind, slots included, with one attribute of each type.
template <class Network>
class EveryEffect {
  public:
    EveryEffect(float lambda, const Values& values)
        : selection_(full_selection(kKind<Network>, {"a"}, true)) {
        for (StructuralChoice& choice : selection_.structural) {
            choice.lambda = lambda;
        }
        selection_.actors = kActors;
        selection_.table.binary = {coded_attribute(values.codes)};
        selection_.table.categorical = {coded_attribute(values.codes)};
        selection_.table.continuous = {continuous_attribute(values.reals)};
        selection_.table.covariates = {values.covariate};
        parameters_ = assemble_parameters(selection_);
        model_ = active_model<Network>(selection_);
    }
    EveryEffect(const EveryEffect&) = delete;
    EveryEffect& operator=(const EveryEffect&) = delete;

    struct Row {
        std::string label;
        EffectFacts facts;
        std::size_t place;
        bool structural;
        AttributeGroup group;
    };
    std::vector<Row> rows() const {
        std::vector<Row> rows;
        for (std::size_t id = 0; id < selection_.structural.size(); ++id) {
            const StructuralEffect& effect = selection_.catalogue->effects[id];
            const int place = selection_.structural[id].position;
            rows.push_back({effect.row, effect.facts, static_cast<std::size_t>(place), true,
                            AttributeGroup::binary});
        }
        for_each_attribute_effect(
            selection_, [&](AttributeGroup group, int row, int, int position) {
                const AttributeEffect& effect = group_catalogue(*selection_.catalogue, group)
                                                    .effects[static_cast<std::size_t>(row)];
                rows.push_back({effect.update, effect.facts, static_cast<std::size_t>(position),
                                false, group});
            });
        return rows;
    }

    // Indexed by place.
    std::vector<double> counts(const Matrix& ties) const {
        Network network = record(ties);
        count(network);
        return network.statistics;
    }
    std::vector<double> changes(const Matrix& ties, int i, int j, bool deletion) const {
        Matrix state = ties;
        set_tie<Network>(state, i, j, deletion ? 1 : 0);
        Network network = record(state);
        if (deletion) {
            remove_bit(network, i, j);
        }
        std::vector<double> changes(parameters_.size(), 0.0);
        evaluate_toggle(network, model_, parameters_.data(), changes.data(), i, j,
                        deletion ? 0 : 1);
        return changes;
    }

    const ActiveModel<Network>& model() const { return model_; }

    // The network with its tables.
    Network record(const Matrix& ties) const {
        const int places = static_cast<int>(parameters_.size());
        if constexpr (std::is_same_v<Network, Graph>) {
            Graph graph = graph_create(kActors, places, clique_depth(selection_));
            for (const auto& [i, j] : all_pairs<Graph>()) {
                if (ties[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] != 0) {
                    graph_add_tie(graph, i, j);
                }
            }
            return graph;
        } else {
            Digraph digraph = digraph_create(kActors, places);
            for (const auto& [i, j] : all_pairs<Digraph>()) {
                if (ties[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] != 0) {
                    digraph_add_tie(digraph, i, j);
                }
            }
            return digraph;
        }
    }
    void count(Graph& graph) const {
        graph_count_cliques(graph);
        compute_statistics(graph, model_);
    }
    void count(Digraph& digraph) const { compute_statistics(digraph, model_); }

    EffectSelection selection_;
    std::vector<double> parameters_;
    ActiveModel<Network> model_;
};

// Weights are single-precision numbers.
inline bool near(double a, double b, double size) {
    return std::fabs(a - b) <= 2e-5 * (1.0 + std::fabs(size));
}

// What the formulas' letters stand for in an effect of that group.
inline FormulaData formula_data(const Matrix& ties, const Values& values, AttributeGroup group,
                                float lambda) {
    FormulaData data;
    data.ties = ties;
    data.lambda = static_cast<double>(lambda);
    for (std::size_t actor = 0; actor < kActors; ++actor) {
        const double value = group == AttributeGroup::continuous
                                 ? static_cast<double>(values.reals[actor])
                                 : static_cast<double>(values.codes[actor]);
        data.missing.push_back(value == kMissing ? 1 : 0);
        data.values.push_back(value == kMissing ? 0.0 : value);
        data.covariate.emplace_back();
        for (int other = 0; other < kActors; ++other) {
            data.covariate.back().push_back(
                static_cast<double>(values.covariate[static_cast<int>(actor)][other]));
        }
    }
    return data;
}

}  // namespace every_effect
