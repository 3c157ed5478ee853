// The distributions that a test of fit counts of one network.
#pragma once

#include <utility>
#include <vector>

#include "study/study_chain.h"

// A histogram: (entry, count), ascending, only counts that are not 0.
using SparseCounts = std::vector<std::pair<int, double>>;

SparseCounts sparse_counts(const std::vector<int>& histogram, int first);
SparseCounts sparse_counts(const std::vector<double>& histogram);

// Two-paths between the ends of each tie.
template <class Network>
SparseCounts edgewise_partners(const Network& network, const std::vector<ActorTie>& ties);

// Two-paths between the actors of each pair; of each ordered pair, where direction counts.
SparseCounts dyadwise_partners(const Graph& graph);
SparseCounts dyadwise_partners(const Digraph& digraph);

// Sizes of the components, direction left aside; and how many there are of each.
std::vector<int> component_sizes(int actors, const std::vector<ActorTie>& ties);
SparseCounts size_counts(const std::vector<int>& sizes);

// Triads by their number of ties; by their class, 300 first. A digraph's snapshot of its census
// must be fresh.
std::vector<double> triads_of(const Graph& graph);
std::vector<double> triads_of(const Digraph& digraph);
