#include "support/chain_models.h"

#include <gtest/gtest.h>

#include <random>
#include <type_traits>

#include "effects/cliques.h"

namespace {

template <class Network>
constexpr NetworkKind kind_of() {
    return std::is_same_v<Network, Graph> ? NetworkKind::undirected : NetworkKind::directed;
}

int id_of(const Catalogue& catalogue, std::string_view row) {
    for (std::size_t id = 0; id < catalogue.effects.size(); ++id) {
        if (catalogue.effects[id].row == row) {
            return static_cast<int>(id);
        }
    }
    ADD_FAILURE() << "no effect is called " << row;
    return 0;
}

}  // namespace

template <class Network>
ChainModel<Network>::ChainModel(const std::vector<ModelTerm>& terms)
    : selection(selection_create(kind_of<Network>())) {
    // Enough for every network of these tests; the tables of powers reach as far.
    selection.actors = 64;
    selection.structural_flag = 1;
    for (const ModelTerm& term : terms) {
        StructuralChoice& choice =
            selection.structural[static_cast<std::size_t>(id_of(*selection.catalogue, term.row))];
        choice.position = 0;
        choice.value = term.value;
        choice.lambda = term.lambda;
    }
    for (const int id : selection.catalogue->setup_order) {
        StructuralChoice& choice = selection.structural[static_cast<std::size_t>(id)];
        if (choice.position == 0) {
            choice.position = selection.structural_count++;
        }
    }
    parameters = assemble_parameters(selection);
    active = active_model<Network>(selection);
}

template <class Network>
int ChainModel<Network>::place(std::string_view row) const {
    return selection.structural[static_cast<std::size_t>(id_of(*selection.catalogue, row))]
        .position;
}

template struct ChainModel<Graph>;
template struct ChainModel<Digraph>;

std::vector<ModelTerm> all_terms(NetworkKind kind, double value, float lambda) {
    const Catalogue& catalogue = catalogue_of(kind);
    std::vector<ModelTerm> terms;
    for (const int id : catalogue.setup_order) {
        terms.push_back({catalogue.effects[static_cast<std::size_t>(id)].row, value, lambda});
    }
    return terms;
}

template <class Network>
std::vector<ActorPair> all_dyads(int n) {
    std::vector<ActorPair> dyads;
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            if (kind_of<Network>() == NetworkKind::directed ? i != j : i < j) {
                dyads.emplace_back(i, j);
            }
        }
    }
    return dyads;
}
template std::vector<ActorPair> all_dyads<Graph>(int);
template std::vector<ActorPair> all_dyads<Digraph>(int);

void tie(Graph& graph, int i, int j) { graph_add_tie(graph, i, j); }
void tie(Digraph& digraph, int i, int j) { digraph_add_tie(digraph, i, j); }

template <>
Graph empty_network<Graph>(int n, int p, int cliques) {
    return graph_create(n, p, cliques);
}
template <>
Digraph empty_network<Digraph>(int n, int p, int) {
    return digraph_create(n, p);
}

template <class Network>
Network network_of_code(int n, std::uint32_t code, int p, int cliques) {
    Network network = empty_network<Network>(n, p, cliques);
    std::uint32_t bit = 1;
    for (const auto& [i, j] : all_dyads<Network>(n)) {
        if ((code & bit) != 0) {
            tie(network, i, j);
        }
        bit <<= 1U;
    }
    return network;
}
template Graph network_of_code<Graph>(int, std::uint32_t, int, int);
template Digraph network_of_code<Digraph>(int, std::uint32_t, int, int);

template <class Network>
std::uint32_t code_of_network(const Network& network) {
    constexpr bool directed = kind_of<Network>() == NetworkKind::directed;
    std::uint32_t code = 0;
    std::uint32_t bit = 1;
    for (int i = 0; i < network.vertices; ++i) {
        for (int j = directed ? 0 : i + 1; j < network.vertices; ++j) {
            if (i != j) {
                code |= has_tie(network, i, j) ? bit : 0U;
                bit <<= 1U;
            }
        }
    }
    return code;
}
template std::uint32_t code_of_network<Graph>(const Graph&);
template std::uint32_t code_of_network<Digraph>(const Digraph&);

void count_statistics(Graph& graph, const ActiveModel<Graph>& model) {
    graph_count_cliques(graph);
    compute_statistics(graph, model);
}
void count_statistics(Digraph& digraph, const ActiveModel<Digraph>& model) {
    compute_statistics(digraph, model);
}

template <class Network>
Network random_network(const ChainModel<Network>& model, int n, double density,
                       std::uint32_t seed) {
    std::mt19937 random(seed);
    Network network = empty_network<Network>(n, model.size(), clique_depth(model.selection));
    for (const auto& [i, j] : all_dyads<Network>(n)) {
        if (static_cast<double>(random()) < density * 4294967296.0) {
            tie(network, i, j);
        }
    }
    count_statistics(network, model.active);
    return network;
}
template Graph random_network<Graph>(const ChainModel<Graph>&, int, double, std::uint32_t);
template Digraph random_network<Digraph>(const ChainModel<Digraph>&, int, double, std::uint32_t);
