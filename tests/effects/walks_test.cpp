// Ways of summing that effects choose between: neighbours by lists or by bits, weights in any order
// or in ascending order. Every effect gives the same double either way.
#include <gtest/gtest.h>

#include <string>

#include "effects/evaluation.h"
#include "network/network_files.h"
#include "network/network_verbs.h"

namespace {

constexpr int kActors = 600;

RandomSource seeded() {
    return {7, [] { return std::int64_t{7}; }};
}

// Every structural effect of the kind, lambda as given.
EffectSelection all_effects(NetworkKind kind, float lambda) {
    EffectSelection selection = selection_create(kind);
    selection.structural_flag = 1;
    selection.actors = kActors;
    for (StructuralChoice& choice : selection.structural) {
        choice.lambda = lambda;
        choice.value = 1.0;
        choice.position = selection.structural_count++;
    }
    return selection;
}

// A network with sparse and crowded actors, of which some have no list.
Graph start(const Graph*) {
    RandomSource random = seeded();
    Graph graph = graph_random_with_edges(kActors, 1800, 0, 0, random);
    for (int i = 0; i < 80; ++i) {
        for (int j = i + 1; j < 80; ++j) {
            if (!graph_has_edge(graph, i, j) && (i * 7 + j * 3) % 4 == 0) {
                graph_add_tie(graph, i, j);
            }
        }
    }
    for (int j = 100; j < 180; ++j) {
        graph_add_tie(graph, 90, j);
    }
    return graph;
}

Digraph start(const Digraph*) {
    RandomSource random = seeded();
    Digraph digraph = digraph_random_with_arcs(kActors, 2400, 0, random);
    for (int i = 0; i < 80; ++i) {
        for (int j = 0; j < 80; ++j) {
            if (i != j && !digraph_has_arc(digraph, i, j) && (i * 7 + j * 3) % 4 == 0) {
                digraph_add_tie(digraph, i, j);
            }
        }
    }
    for (int j = 100; j < 180; ++j) {
        if (!digraph_has_arc(digraph, 90, j)) {
            digraph_add_tie(digraph, 90, j);
        }
    }
    return digraph;
}

void drop_lists(Graph& graph) { graph.neighbours = {}; }
void drop_lists(Digraph& digraph) {
    digraph.receivers = {};
    digraph.senders = {};
}

template <class Network>
ActiveModel<Network> in_ascending_order(ActiveModel<Network> model) {
    for (ActiveEffect<Network>& effect : model) {
        effect.data.exact_weights = -1000;
    }
    return model;
}

template <class Network>
void expect_same_changes(NetworkKind kind, float lambda) {
    EffectSelection selection = all_effects(kind, lambda);
    assemble_parameters(selection);
    const ActiveModel<Network> model = active_model<Network>(selection);
    const ActiveModel<Network> ordered = in_ascending_order(model);
    Network listed = start(static_cast<Network*>(nullptr));
    Network bits_alone = listed;
    drop_lists(bits_alone);
    RandomSource random = seeded();
    for (int draw = 0; draw < 60; ++draw) {
        const int n = draw % 2 == 0 ? kActors : 100;
        const int i = random_below(random, n);
        const int j = (i + 1 + random_below(random, n - 1)) % n;
        const bool tied = has_tie(listed, i, j);
        const int adding = tied ? 0 : 1;
        if (tied) {
            remove_bit(listed, i, j);
            remove_bit(bits_alone, i, j);
        }
        for (std::size_t effect = 0; effect < model.size(); ++effect) {
            if (model[effect].reads_cliques) {
                continue;
            }
            const auto& change = model[effect].change;
            const auto& data = model[effect].data;
            const int position = model[effect].position;
            const double by_lists = change(listed, data, i, j, adding);
            EXPECT_EQ(by_lists, change(bits_alone, data, i, j, adding)) << position;
            EXPECT_EQ(by_lists, ordered[effect].change(listed, ordered[effect].data, i, j, adding))
                << position << " at lambda " << lambda;
        }
    }
}

TEST(Walks, UndirectedChangesAreTheSameByListsAndByBitsInAnyOrder) {
    for (const float lambda : {1.0F, 1.2F, 4.5F}) {
        expect_same_changes<Graph>(NetworkKind::undirected, lambda);
    }
}

TEST(Walks, DirectedChangesAreTheSameByListsAndByBitsInAnyOrder) {
    for (const float lambda : {1.0F, 1.2F, 4.5F}) {
        expect_same_changes<Digraph>(NetworkKind::directed, lambda);
    }
}

TEST(Walks, OfBothKindsAreMetInTheseNetworks) {
    const Graph graph = start(static_cast<Graph*>(nullptr));
    EXPECT_FALSE(graph.neighbours.listed(90));
    EXPECT_TRUE(graph.neighbours.listed(kActors - 1));
    EXPECT_GT(graph.two_paths[0][4], 0);
}

}  // namespace
