#include "support/graph_effect_checks.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <sstream>

#include "effects/cliques.h"
#include "reference/structural.h"
#include "support/random_networks.h"

using reference::PlainGraph;
using reference::Stage;

namespace {

constexpr std::array kStages = {Stage::addition, Stage::deletion, Stage::as_it_stands};

using Models = std::vector<std::unique_ptr<StructuralModel>>;

Models models_of(const Names& names, const std::vector<float>& lambdas) {
    Models models;
    for (const float lambda : lambdas) {
        models.push_back(std::make_unique<StructuralModel>(names, lambda));
    }
    return models;
}

std::string exact(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

std::string ties_of(const PlainGraph& plain) {
    std::ostringstream text;
    text << "n = " << plain.n << ", ties";
    for (int a = 0; a < plain.n; ++a) {
        for (int b = a + 1; b < plain.n; ++b) {
            if (reference::tied(plain, a, b)) {
                text << ' ' << a << '-' << b;
            }
        }
    }
    return text.str();
}

testing::AssertionResult differs(std::string_view name, float lambda, const std::string& where,
                                 double found, double expected, const PlainGraph& plain) {
    return testing::AssertionFailure()
           << name << " at lambda " << lambda << ", " << where << ": " << exact(found)
           << ", expected " << exact(expected) << "; " << ties_of(plain);
}

std::string dyad_text(int i, int j, Stage stage) {
    std::ostringstream text;
    text << (stage == Stage::addition   ? "adding "
             : stage == Stage::deletion ? "deleting "
                                        : "as it stands ")
         << i << '-' << j;
    return text.str();
}

// Changes of all effects of a model at once.
std::vector<double> changes_of(Graph& graph, const StructuralModel& model, int i, int j,
                               int adding) {
    std::vector<double> changes(model.parameters.size(), 0.0);
    evaluate_toggle(graph, model.effects, model.parameters.data(), changes.data(), i, j, adding);
    return changes;
}

std::vector<double> counts_of(const PlainGraph& plain, const StructuralModel& model) {
    Graph graph = engine_graph(plain, static_cast<int>(model.parameters.size()),
                               clique_depth(model.selection));
    graph_count_cliques(graph);
    compute_statistics(graph, model.effects);
    return graph.statistics;
}

// Calls visit(graph, i, j) for dyads of every network until it gives a failure. Both orders of a
// dyad take turns.
template <class Visit>
testing::AssertionResult over_dyads(const PlainGraphs& graphs, int dyads, Visit visit) {
    int turn = 0;
    for (const PlainGraph& plain : graphs) {
        const int all = plain.n * (plain.n - 1) / 2;
        const int step = dyads > 0 && all > dyads ? all / dyads : 1;
        int index = 0;
        for (int i = 0; i < plain.n; ++i) {
            for (int j = i + 1; j < plain.n; ++j) {
                if (index++ % step != 0) {
                    continue;
                }
                const bool swapped = (turn++ & 1) != 0;
                const auto result = visit(plain, swapped ? j : i, swapped ? i : j);
                if (!result) {
                    return result;
                }
            }
        }
    }
    return turn > 0 ? testing::AssertionSuccess()
                    : testing::AssertionFailure() << "no dyad was looked at";
}

}  // namespace

const std::vector<float>& all_lambdas() {
    static const std::vector<float> lambdas = {0.5F, 1.0F, 1.5F, 2.0F, 3.0F, 100.0F};
    return lambdas;
}

bool same_number(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

int structural_id(std::string_view name) {
    const auto& effects = graph_catalogue().effects;
    for (std::size_t id = 0; id < effects.size(); ++id) {
        if (name == effects[id].row) {
            return static_cast<int>(id);
        }
    }
    ADD_FAILURE() << "no row " << name;
    return 0;
}

StructuralModel::StructuralModel(const Names& names, float lambda)
    : selection(selection_create(NetworkKind::undirected)) {
    selection.actors = 12;
    for (const std::string_view name : names) {
        StructuralChoice& choice =
            selection.structural[static_cast<std::size_t>(structural_id(name))];
        choice.position = selection.structural_count++;
        choice.lambda = lambda;
    }
    parameters = assemble_parameters(selection);
    effects = active_model<Graph>(selection);
}

double engine_change(const PlainGraph& plain, int i, int j, Stage stage, std::string_view name,
                     float lambda) {
    const StructuralModel model({name}, lambda);
    EngineState state = engine_state(plain, i, j, stage, clique_depth(model.selection));
    return changes_of(state.graph, model, i, j, state.adding)[0];
}

double engine_count(const PlainGraph& plain, std::string_view name, float lambda) {
    return counts_of(plain, StructuralModel({name}, lambda))[0];
}

testing::AssertionResult changes_match_reference(const Names& names,
                                                 const std::vector<float>& lambdas,
                                                 const PlainGraphs& graphs, int dyads) {
    const Models models = models_of(names, lambdas);
    return over_dyads(graphs, dyads, [&](const PlainGraph& plain, int i, int j) {
        for (const Stage stage : kStages) {
            const reference::EvaluationState expected =
                reference::evaluation_state(plain, i, j, stage);
            EngineState state =
                engine_state(plain, i, j, stage, clique_depth(models[0]->selection));
            for (std::size_t which = 0; which < models.size(); ++which) {
                const float lambda = lambdas[which];
                const auto changes = changes_of(state.graph, *models[which], i, j, state.adding);
                for (std::size_t effect = 0; effect < names.size(); ++effect) {
                    const auto& twin = reference::structural_effect(names[effect]);
                    const double value = twin.change(expected, i, j, lambda);
                    if (!same_number(changes[effect], value)) {
                        return differs(names[effect], lambda, dyad_text(i, j, stage),
                                       changes[effect], value, plain);
                    }
                }
            }
        }
        return testing::AssertionSuccess();
    });
}

testing::AssertionResult counts_match_reference(const Names& names,
                                                const std::vector<float>& lambdas,
                                                const PlainGraphs& graphs) {
    const Models models = models_of(names, lambdas);
    for (const PlainGraph& plain : graphs) {
        for (std::size_t which = 0; which < models.size(); ++which) {
            const auto counts = counts_of(plain, *models[which]);
            for (std::size_t effect = 0; effect < names.size(); ++effect) {
                const auto& twin = reference::structural_effect(names[effect]);
                const double value = twin.count(plain, lambdas[which]);
                if (!same_number(counts[effect], value)) {
                    return differs(names[effect], lambdas[which], "whole value", counts[effect],
                                   value, plain);
                }
            }
        }
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult additions_match_deletions(const Names& names,
                                                   const std::vector<float>& lambdas,
                                                   const PlainGraphs& graphs) {
    const Models models = models_of(names, lambdas);
    return over_dyads(graphs, 0, [&](const PlainGraph& plain, int i, int j) {
        EngineState addition =
            engine_state(plain, i, j, Stage::addition, clique_depth(models[0]->selection));
        EngineState deletion =
            engine_state(plain, i, j, Stage::deletion, clique_depth(models[0]->selection));
        for (std::size_t which = 0; which < models.size(); ++which) {
            const auto added = changes_of(addition.graph, *models[which], i, j, 1);
            const auto deleted = changes_of(deletion.graph, *models[which], i, j, 0);
            for (std::size_t effect = 0; effect < names.size(); ++effect) {
                if (!same_number(added[effect], deleted[effect])) {
                    return differs(names[effect], lambdas[which], dyad_text(i, j, Stage::deletion),
                                   deleted[effect], added[effect], plain);
                }
            }
        }
        return testing::AssertionSuccess();
    });
}

testing::AssertionResult changes_are_differences(const Names& names,
                                                 const std::vector<float>& lambdas,
                                                 const PlainGraphs& graphs, double tolerance) {
    const Models models = models_of(names, lambdas);
    return over_dyads(graphs, 0, [&](const PlainGraph& plain, int i, int j) {
        const PlainGraph with = reference::with_tie(plain, i, j);
        const PlainGraph without = reference::without_tie(plain, i, j);
        EngineState state =
            engine_state(plain, i, j, Stage::addition, clique_depth(models[0]->selection));
        for (std::size_t which = 0; which < models.size(); ++which) {
            const float lambda = lambdas[which];
            const auto changes = changes_of(state.graph, *models[which], i, j, state.adding);
            const auto more = counts_of(with, *models[which]);
            const auto less = counts_of(without, *models[which]);
            const double allowed =
                tolerance * static_cast<double>(lambda) * static_cast<double>(lambda) * plain.n;
            for (std::size_t effect = 0; effect < names.size(); ++effect) {
                const double difference = more[effect] - less[effect];
                if (!(std::fabs(changes[effect] - difference) <= allowed)) {
                    return differs(names[effect], lambda, dyad_text(i, j, Stage::addition),
                                   changes[effect], difference, plain);
                }
            }
        }
        return testing::AssertionSuccess();
    });
}
