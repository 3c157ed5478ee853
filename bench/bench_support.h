// Seeded networks and models for the benchmarks, and checksums that show whether two builds did the
// same work.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/random_source.h"
#include "effects/evaluation.h"
#include "report/output_paths.h"

// A source whose every reseeding gives the same stream.
RandomSource seeded_random();

// Random networks with the given number of ties per actor (arcs per sender).
Graph random_graph(int actors, int mean_degree, int statistic_count, int clique_depth);
Digraph random_digraph(int actors, int mean_out_degree, int statistic_count);

// A model with all that its effects refer to. Stays where it is made.
template <class Network>
struct BenchModel {
    EffectSelection selection;
    std::vector<double> parameters;
    ActiveModel<Network> active;

    explicit BenchModel(EffectSelection filled);
    BenchModel(const BenchModel&) = delete;
    BenchModel& operator=(const BenchModel&) = delete;
    int size() const { return static_cast<int>(parameters.size()); }
};

struct NamedValue {
    std::string row;
    double value;
};

// The structural effects with these row names, lambdas at 2.
EffectSelection structural_selection(NetworkKind kind, int actors,
                                     const std::vector<NamedValue>& effects);

// Calls visit(name, selection) with a selection of one effect at a time, its parameter 1 and its
// lambda 2: every structural effect of the kind, then every effect of an attribute of each type and
// of a covariate.
void for_each_effect(NetworkKind kind, int actors,
                     const std::function<void(const std::string&, const EffectSelection&)>& visit);

// A number that depends on every tie.
double checksum(const Graph& graph);
double checksum(const Digraph& digraph);

// All outputs thrown away.
OutputPaths discarded_outputs();

// Runs what has been registered; the body of every main.
int run_benchmarks(int argc, char** argv);
