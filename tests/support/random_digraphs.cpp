#include "support/random_digraphs.h"

#include <array>

reference::PlainDigraph random_digraph(int n, double density, std::mt19937& random) {
    reference::PlainDigraph digraph = reference::empty_digraph(n);
    for_each_ordered_pair(n, [&](int i, int j) {
        // 2^32 draws, so a density of 1 takes every one of them.
        if (static_cast<double>(random()) < density * 4294967296.0) {
            reference::cell(digraph.arc, i, j) = 1;
        }
    });
    return digraph;
}

std::vector<reference::PlainDigraph> random_digraphs(int smallest, int largest, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<reference::PlainDigraph> digraphs;
    for (int n = smallest; n <= largest; ++n) {
        for (const double density : {0.0, 0.12, 0.3, 0.5, 0.75, 1.0}) {
            digraphs.push_back(random_digraph(n, density, random));
        }
    }
    return digraphs;
}

std::vector<reference::PlainDigraph> all_digraphs_of_three() {
    std::vector<reference::PlainDigraph> digraphs;
    for (unsigned pattern = 0; pattern < 64; ++pattern) {
        reference::PlainDigraph digraph = reference::empty_digraph(3);
        unsigned bit = 0;
        for_each_ordered_pair(3, [&](int i, int j) {
            reference::cell(digraph.arc, i, j) = static_cast<int>((pattern >> bit) & 1U);
            ++bit;
        });
        digraphs.push_back(digraph);
    }
    return digraphs;
}

Digraph engine_digraph(const reference::PlainDigraph& plain, int statistic_count) {
    Digraph digraph = digraph_create(plain.n, statistic_count);
    for_each_ordered_pair(plain.n, [&](int i, int j) {
        if (reference::has_arc(plain, i, j)) {
            digraph_add_tie(digraph, i, j);
        }
    });
    return digraph;
}

void stage_evaluation(Digraph& digraph, int i, int j, reference::Stage stage) {
    switch (stage) {
        case reference::Stage::addition:
            if (digraph_has_arc(digraph, i, j)) {
                digraph_remove_arc(digraph, i, j);
                digraph_update_two_paths(digraph, i, j, 0);
            }
            break;
        case reference::Stage::deletion:
            if (!digraph_has_arc(digraph, i, j)) {
                digraph_add_tie(digraph, i, j);
            }
            digraph_remove_arc(digraph, i, j);
            break;
        case reference::Stage::as_it_stands:
            break;
    }
}
