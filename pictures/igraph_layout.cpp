#include <igraph/igraph.h>

#include <cmath>

#include "pictures/layout.h"

namespace {

constexpr igraph_integer_t kMostKamada = 300;
constexpr igraph_integer_t kSeed = 1;

// What igraph keeps, given back at the end.
struct Held {
    igraph_t graph{};
    igraph_matrix_t places{};
    Held() = default;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() {
        igraph_matrix_destroy(&places);
        igraph_destroy(&graph);
    }
};

// Actors without ties would drive the others together: only those with ties are laid out.
std::vector<igraph_integer_t> numbered(const StudyNetwork& network, igraph_integer_t& count) {
    std::vector<igraph_integer_t> numbers(network.actors.size(), -1);
    for (const ActorTie& tie : network.ties) {
        for (const int actor : {tie.from, tie.to}) {
            igraph_integer_t& number = numbers[static_cast<std::size_t>(actor)];
            number = number < 0 ? count++ : number;
        }
    }
    return numbers;
}

}  // namespace

std::vector<Point> layout_of(const StudyNetwork& network) {
    std::vector<Point> places(network.actors.size());
    igraph_integer_t count = 0;
    const std::vector<igraph_integer_t> numbers = numbered(network, count);
    if (count == 0) {
        return places;
    }
    igraph_set_error_handler(igraph_error_handler_ignore);
    igraph_set_warning_handler(igraph_warning_handler_ignore);
    Held held;
    igraph_vector_int_t edges;
    igraph_vector_int_init(&edges, 0);
    for (const ActorTie& tie : network.ties) {
        igraph_vector_int_push_back(&edges, numbers[static_cast<std::size_t>(tie.from)]);
        igraph_vector_int_push_back(&edges, numbers[static_cast<std::size_t>(tie.to)]);
    }
    igraph_create(&held.graph, &edges, count, IGRAPH_UNDIRECTED);
    igraph_vector_int_destroy(&edges);
    igraph_simplify(&held.graph, true, true, nullptr);
    igraph_matrix_init(&held.places, 0, 2);
    igraph_rng_seed(igraph_rng_default(), kSeed);
    igraph_error_t failed = IGRAPH_SUCCESS;
    if (count <= kMostKamada) {
        failed = igraph_layout_kamada_kawai(&held.graph, &held.places, false, 50 * count, 0.0,
                                            static_cast<igraph_real_t>(count), nullptr, nullptr,
                                            nullptr, nullptr, nullptr);
    } else {
        // Within bounds, so that components do not drift away from each other.
        const double half = std::sqrt(static_cast<double>(count)) * 0.75;
        igraph_vector_t low;
        igraph_vector_t high;
        igraph_vector_init(&low, count);
        igraph_vector_init(&high, count);
        igraph_vector_fill(&low, -half);
        igraph_vector_fill(&high, half);
        failed = igraph_layout_fruchterman_reingold(
            &held.graph, &held.places, false, 300, std::sqrt(static_cast<double>(count)) / 5.0,
            IGRAPH_LAYOUT_AUTOGRID, nullptr, &low, &high, &low, &high);
        igraph_vector_destroy(&low);
        igraph_vector_destroy(&high);
    }
    if (failed != IGRAPH_SUCCESS) {
        igraph_layout_circle(&held.graph, &held.places, igraph_vss_all());
    }
    for (std::size_t actor = 0; actor < places.size(); ++actor) {
        if (numbers[actor] >= 0) {
            places[actor] = {MATRIX(held.places, numbers[actor], 0),
                             MATRIX(held.places, numbers[actor], 1)};
        }
    }
    return places;
}
