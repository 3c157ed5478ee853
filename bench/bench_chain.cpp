// What one proposal costs, by model, size of the network and kind of proposal, beside the floor: a
// bare loop of three draws, one bit test and one exponential.
//
//   bench_chain                              the whole table, sizes 50, 200, 1000 and 3000
//   bench_chain --sizes 200,10000            the same at other sizes
//   bench_chain --only NAME                  the cases whose name contains NAME
//   bench_chain --case NAME ACTORS PROPOSALS one case, once, for a profiler: no output but the
//                                            checksum
//
// Times are processor time, the best of three runs; every run repeats the same proposals, and its
// checksum tells whether two builds did the same work.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "bench_models.h"

namespace {

constexpr int kRuns = 3;

double processor_nanoseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

struct Outcome {
    double nanoseconds = 0.0;  // for one proposal
    double accepted = 0.0;     // share of the proposals
    double checksum = 0.0;
};

struct Size {
    int actors;
    long proposals;
    int runs;
};

struct Case {
    std::string name;
    std::function<Outcome(Size)> run;
    // Sizes beyond these cost more than they tell.
    int smallest = 0;
    int largest = 1 << 30;
};

// Times `run`, which returns how many of its proposals were accepted.
template <class Run>
Outcome timed_run(long proposals, Run run) {
    Outcome outcome;
    const double start = processor_nanoseconds();
    const double accepted = run();
    outcome.nanoseconds = (processor_nanoseconds() - start) / static_cast<double>(proposals);
    outcome.accepted = accepted / static_cast<double>(proposals);
    return outcome;
}

// Times `step`, which returns 1 for an accepted proposal.
template <class Step>
Outcome timed(long proposals, Step step) {
    return timed_run(proposals, [&] {
        double accepted = 0.0;
        for (long proposal = 0; proposal < proposals; ++proposal) {
            accepted += step();
        }
        return accepted;
    });
}

template <class Run>
Outcome best_of(int runs, Run run) {
    Outcome best = run();
    for (int repeat = 1; repeat < runs; ++repeat) {
        const Outcome again = run();
        best.nanoseconds = std::min(best.nanoseconds, again.nanoseconds);
    }
    return best;
}

template <class Network>
constexpr NetworkKind kKind =
    std::is_same_v<Network, Graph> ? NetworkKind::undirected : NetworkKind::directed;

template <class Network>
Network random_start(const EffectSelection& selection, int mean_degree) {
    const BenchModel<Network> model(selection);
    const int actors = selection.actors;
    if constexpr (std::is_same_v<Network, Graph>) {
        Graph graph = random_graph(actors, mean_degree, model.size(), clique_depth(selection));
        graph_count_cliques(graph);
        compute_statistics(graph, model.active);
        return graph;
    } else {
        Digraph digraph = random_digraph(actors, mean_degree, model.size());
        compute_statistics(digraph, model.active);
        return digraph;
    }
}

template <class Network>
Outcome chain_cost(const EffectSelection& selection, int mean_degree, int proposal_kind,
                   Size size) {
    const BenchModel<Network> model(selection);
    const Network start = random_start<Network>(selection, mean_degree);
    return best_of(size.runs, [&] {
        Network network = start;
        RandomSource random = seeded_random();
        Chain<Network> chain{network, model.active, model.parameters.data(), random};
        chain.proposal_kind = proposal_kind;
        chain_prepare(chain);
        Outcome outcome = timed_run(size.proposals, [&] {
            return chain_run(chain, static_cast<double>(size.proposals), [](double) {});
        });
        outcome.checksum = checksum(network);
        for (const double value : network.statistics) {
            outcome.checksum += value;
        }
        return outcome;
    });
}

// The log-odds of a density at which a random start network of this mean degree stays.
double keeping(int mean_degree, int actors) { return log_odds(mean_degree, actors); }

using Values = std::function<std::vector<NamedValue>(int actors, int mean_degree)>;

template <class Network>
Case model_case(const std::string& name, Values values, int proposal_kind = 0) {
    return {name, [=](Size size) {
                const EffectSelection selection =
                    structural_selection(kKind<Network>, size.actors, values(size.actors, 6));
                return chain_cost<Network>(selection, 6, proposal_kind, size);
            }};
}

// Three parameters at work in the full model, as a fit runs it.
template <class Network>
Case full_case(const std::string& name, Values values, int proposal_kind = 0) {
    Case full{name, [=](Size size) {
                  EffectSelection selection =
                      structural_selection(kKind<Network>, size.actors, values(size.actors, 6));
                  assign_full_model(selection);
                  return chain_cost<Network>(selection, 6, proposal_kind, size);
              }};
    full.largest = 1000;
    return full;
}

// Density 0.3.
template <class Network>
Case dense_case(const std::string& name, Values values) {
    Case dense{name, [=](Size size) {
                   const int mean_degree = size.actors * 3 / 10;
                   const EffectSelection selection = structural_selection(
                       kKind<Network>, size.actors, values(size.actors, mean_degree));
                   size.proposals = std::min(size.proposals, 30000L);
                   return chain_cost<Network>(selection, mean_degree, 0, size);
               }};
    dense.smallest = 200;
    dense.largest = 1000;
    return dense;
}

// Every effect of the attributes of one type, at parameters too small to matter, with the tie's
// own.
template <class Network>
Case attribute_case(const std::string& name, const char* tie) {
    return {name,
            [=](Size size) {
                Case found;
                Outcome total;
                // One model for each effect: the mean over them.
                double effects = 0.0;
                size.proposals /= 20;
                size.runs = std::min(size.runs, 2);
                for_each_effect(kKind<Network>, size.actors,
                                [&](const std::string&, const EffectSelection& selection) {
                                    if (selection.structural_count > 0) {
                                        return;
                                    }
                                    const EffectSelection with_tie =
                                        structural_selection(kKind<Network>, size.actors,
                                                             {{tie, keeping(6, size.actors)}});
                                    EffectSelection both = selection;
                                    both.structural = with_tie.structural;
                                    both.structural_count = 1;
                                    const Outcome one = chain_cost<Network>(both, 6, 0, size);
                                    total.nanoseconds += one.nanoseconds;
                                    total.accepted += one.accepted;
                                    total.checksum += one.checksum;
                                    effects += 1.0;
                                });
                total.nanoseconds /= effects;
                total.accepted /= effects;
                return total;
            },
            0, 1000};
}

Case floor_case() {
    return {"floor", [](Size size) {
                const Graph graph = random_graph(size.actors, 6, 0, 0);
                const double edge = keeping(6, size.actors);
                return best_of(size.runs, [&] {
                    RandomSource random = seeded_random();
                    double sum = 0.0;
                    Outcome outcome = timed(size.proposals, [&] {
                        const int i = random_below(random, size.actors);
                        const int j = random_below(random, size.actors);
                        const double sign = graph_has_edge(graph, i, j) ? -1.0 : 1.0;
                        sum += 1.0;
                        return std::exp(sign * edge) >= random_uniform(random) ? 1 : 0;
                    });
                    outcome.checksum = sum;
                    return outcome;
                });
            }};
}

// A plain toggle of model (iii) over a matrix of zeros and ones with a table of common neighbours:
// what the same sums cost in the obvious loops.
class PlainChain {
  public:
    explicit PlainChain(const Graph& graph)
        : n_(graph.vertices), tie_(cells()), paths_(cells()), degree_(row()) {
        for (int i = 0; i < n_; ++i) {
            for (int j = 0; j < n_; ++j) {
                at(tie_, i, j) = graph_has_edge(graph, i, j) ? 1 : 0;
                at(paths_, i, j) = graph.two_paths[i][j];
            }
            degree_[static_cast<std::size_t>(i)] = graph.degree[static_cast<std::size_t>(i)];
        }
    }

    int step(RandomSource& random, double edge) {
        const int i = random_below(random, n_);
        int j = i;
        while (j == i) {
            j = random_below(random, n_);
        }
        const int tied = at(tie_, i, j);
        const double log_odds = edge + 1e-9 * stars(i, j, tied) + 1e-9 * paths(i, j, tied);
        if (!(std::exp(tied == 1 ? -log_odds : log_odds) >= random_uniform(random))) {
            return 0;
        }
        const int by = tied == 1 ? -1 : 1;
        for (int k = 0; k < n_; ++k) {
            if (k != i && k != j && at(tie_, i, k) == 1) {
                at(paths_, k, j) += by;
                at(paths_, j, k) += by;
            }
            if (k != i && k != j && at(tie_, j, k) == 1) {
                at(paths_, k, i) += by;
                at(paths_, i, k) += by;
            }
        }
        at(tie_, i, j) = 1 - tied;
        at(tie_, j, i) = 1 - tied;
        degree_[static_cast<std::size_t>(i)] += by;
        degree_[static_cast<std::size_t>(j)] += by;
        return 1;
    }

  private:
    std::size_t row() const { return static_cast<std::size_t>(n_); }
    std::vector<int> cells() const { return std::vector<int>(row() * row(), 0); }
    int& at(std::vector<int>& table, int i, int j) const {
        return table[static_cast<std::size_t>(i) * row() + static_cast<std::size_t>(j)];
    }
    double stars(int i, int j, int tied) {
        return 2.0 * (2.0 - std::ldexp(1.0, tied - degree_[static_cast<std::size_t>(i)]) -
                      std::ldexp(1.0, tied - degree_[static_cast<std::size_t>(j)]));
    }
    double paths(int i, int j, int tied) {
        double triangles = 0.0;
        double two_paths = 0.0;
        for (int k = 0; k < n_; ++k) {
            if (k == i || k == j) {
                continue;
            }
            const double of_i = std::ldexp(1.0, tied - at(paths_, i, k));
            const double of_j = std::ldexp(1.0, tied - at(paths_, j, k));
            two_paths += at(tie_, j, k) * of_i + at(tie_, i, k) * of_j;
            triangles += at(tie_, i, k) * at(tie_, j, k) * (of_i + of_j);
        }
        return triangles + two_paths + 2.0 * (1.0 - std::ldexp(1.0, -at(paths_, i, j)));
    }

    int n_;
    std::vector<int> tie_;
    std::vector<int> paths_;
    std::vector<int> degree_;
};

Case plain_case() {
    return {"plain (iii)",
            [](Size size) {
                const Graph graph = random_graph(size.actors, 6, 0, 0);
                const double edge = keeping(6, size.actors);
                return best_of(1, [&] {
                    RandomSource random = seeded_random();
                    PlainChain chain(graph);
                    Outcome outcome =
                        timed(size.proposals / 100, [&] { return chain.step(random, edge); });
                    return outcome;
                });
            },
            0, 1000};
}

Values at_work(const char* tie, std::vector<std::string> others) {
    return [=](int actors, int mean_degree) {
        std::vector<NamedValue> values{{tie, keeping(mean_degree, actors)}};
        for (const std::string& other : others) {
            values.push_back({other, 1e-9});
        }
        return values;
    };
}

Values fixed(std::vector<NamedValue> values) {
    return [=](int, int) { return values; };
}

Values swapped(std::vector<NamedValue> others, const char* tie) {
    return [=](int actors, int mean_degree) {
        std::vector<NamedValue> values{{tie, keeping(mean_degree, actors)}};
        values.insert(values.end(), others.begin(), others.end());
        return values;
    };
}

std::vector<Case> all_cases() {
    const Values alternating = at_work("edge", {"AS", "AT", "A2P"});
    const Values directed = at_work("arc", {"reciprocity", "AT-T", "A2P-T"});
    const Values clustered = swapped({{"AS", 0.1}, {"AT", 0.6}}, "edge");
    const Values clustered_arcs = swapped({{"reciprocity", 1.5}, {"AT-T", 0.4}}, "arc");
    return {
        floor_case(),
        plain_case(),
        model_case<Graph>("(i) edge", at_work("edge", {})),
        model_case<Graph>("(ii) edge, 2-star, Triangle", at_work("edge", {"2-star", "Triangle"})),
        model_case<Graph>("(iii) edge, AS, AT, A2P", alternating),
        model_case<Digraph>("(iv) arc, reciprocity, in2star, out2star",
                            at_work("arc", {"reciprocity", "in2star", "out2star"})),
        model_case<Digraph>("(v) arc, reciprocity, AT-T, A2P-T", directed),
        model_case<Graph>("(iii) at (-3.8, .2, .7, -.1)",
                          fixed({{"edge", -3.8}, {"AS", 0.2}, {"AT", 0.7}, {"A2P", -0.1}})),
        model_case<Digraph>(
            "(v) at (-3.25, 1.5, .5, -.05)",
            fixed({{"arc", -3.25}, {"reciprocity", 1.5}, {"AT-T", 0.5}, {"A2P-T", -0.05}})),
        model_case<Graph>("swap, edge, AS, AT", clustered, 1),
        model_case<Digraph>("swap, arc, reciprocity, AT-T", clustered_arcs, 1),
        model_case<Digraph>("sender swap, arc, reciprocity, AT-T", clustered_arcs, 2),
        full_case<Graph>("full model, edge, AS, AT at work", clustered),
        full_case<Graph>("full model, the same, swap", clustered, 1),
        full_case<Digraph>("full model, arc, reciprocity, AT-T at work", clustered_arcs),
        full_case<Digraph>("full model, the same, swap", clustered_arcs, 1),
        dense_case<Graph>("dense, (iii)", alternating),
        dense_case<Digraph>("dense, (v)", directed),
        attribute_case<Graph>("attributes, one effect each", "edge"),
        attribute_case<Digraph>("attributes, one effect each, arcs", "arc"),
    };
}

long proposals_for(int actors) { return actors > 1000 ? 400000 : 1000000; }

void print_table(const std::vector<int>& sizes, const std::string& only) {
    std::printf("%-46s %7s %9s %8s %9s  %s\n", "case", "n", "ns", "/ floor", "accepted",
                "checksum");
    for (const int actors : sizes) {
        double bare = 0.0;
        for (const Case& one : all_cases()) {
            const bool is_floor = one.name == "floor";
            if (actors < one.smallest || actors > one.largest ||
                (!is_floor && one.name.find(only) == std::string::npos)) {
                continue;
            }
            const Outcome outcome = one.run({actors, proposals_for(actors), kRuns});
            if (is_floor) {
                bare = outcome.nanoseconds;
            }
            std::printf("%-46s %7d %9.1f %8.1f %9.4f  %.17g\n", one.name.c_str(), actors,
                        outcome.nanoseconds, outcome.nanoseconds / bare, outcome.accepted,
                        outcome.checksum);
            std::fflush(stdout);
        }
    }
}

std::vector<int> numbers_in(const std::string& list) {
    std::vector<int> numbers;
    std::stringstream parts(list);
    for (std::string part; std::getline(parts, part, ',');) {
        numbers.push_back(std::atoi(part.c_str()));
    }
    return numbers;
}

int run_one(const std::string& name, int actors, long proposals) {
    for (const Case& one : all_cases()) {
        if (one.name == name) {
            std::printf("%.17g\n", one.run({actors, proposals, 1}).checksum);
            return 0;
        }
    }
    std::fprintf(stderr, "bench_chain: no case is called %s\n", name.c_str());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<int> sizes{50, 200, 1000, 3000};
    std::string only;
    for (int at = 1; at < argc; ++at) {
        if (std::strcmp(argv[at], "--case") == 0 && at + 3 < argc) {
            return run_one(argv[at + 1], std::atoi(argv[at + 2]), std::atol(argv[at + 3]));
        }
        if (std::strcmp(argv[at], "--sizes") == 0 && at + 1 < argc) {
            sizes = numbers_in(argv[++at]);
        } else if (std::strcmp(argv[at], "--only") == 0 && at + 1 < argc) {
            only = argv[++at];
        } else {
            std::fprintf(stderr, "bench_chain: unknown argument %s\n", argv[at]);
            return 1;
        }
    }
    print_table(sizes, only);
    return 0;
}
