// The exact answers of a model on a handful of actors, by going through every network.
//
// Nothing of the engine's effects is used: statistics come from a function that counts them from
// the ties. What the engine simulates can so be held against what it must be.
#pragma once

#include <functional>
#include <vector>

#include "study/study.h"

// ties[i * n + j]: whether i is tied to j; both cells are set in an undirected network.
using TieCells = std::vector<char>;
using CountStatistics = std::function<std::vector<double>(const TieCells& ties, int actors)>;

struct ExactAnswers {
    std::vector<double> estimates;  // the maximum of the likelihood
    std::vector<double> standard_errors;
    double log_likelihood = 0.0;  // there
};

// O(2^dyads x cost of counting): up to 20 dyads. NaN everywhere where the likelihood has no
// maximum.
ExactAnswers enumerate_answers(const StudyNetwork& network, const CountStatistics& count);

// edge and AT(2): sum over ties of 2 (1 - 2^-p), p the common neighbours of its two actors.
std::vector<double> count_edges_and_alternating_triangles(const TieCells& ties, int actors);

// arc, reciprocity, and triples of actors with i -> j, j -> k and i -> k.
std::vector<double> count_arcs_mutuals_and_transitive_triads(const TieCells& ties, int actors);
