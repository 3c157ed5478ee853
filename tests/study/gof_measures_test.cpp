// What a test of fit measures, against plain counts over the adjacency matrix.
#include "study/gof_measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

#include "measures/triad_census.h"
#include "study/study_chain.h"
#include "support/small_studies.h"

namespace {

// A network as a matrix of zeros and ones.
using Plain = std::vector<std::vector<int>>;

Study random_study(int n, bool directed, double density, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Study study = ring_study(n, directed, directed ? "arc,reciprocity" : "edge,AT(3)");
    study.network.ties.clear();
    for (int i = 0; i < n; ++i) {
        for (int j = directed ? 0 : i + 1; j < n; ++j) {
            if (i != j && unit(random) < density) {
                study.network.ties.push_back({i, j});
            }
        }
    }
    StudyAttribute group{"group", AttributeType::categorical, {}, {"", "a", "b", "c"}};
    StudyAttribute age{"age", AttributeType::continuous, {}, {}};
    StudyAttribute senior{"senior", AttributeType::binary, {}, {"no", "yes"}};
    for (int i = 0; i < n; ++i) {
        group.values.push_back(i == 2 ? kMissingValue : 1 + static_cast<int>(random() % 3));
        age.values.push_back(i == 4 ? kMissingValue : static_cast<int>(random() % 40));
        senior.values.push_back(static_cast<int>(random() % 2));
    }
    study.attributes = {group, age, senior};
    return study;
}

Plain plain_of(const Study& study) {
    const std::size_t n = study.network.actors.size();
    Plain x(n, std::vector<int>(n, 0));
    for (const ActorTie& tie : study.network.ties) {
        x[static_cast<std::size_t>(tie.from)][static_cast<std::size_t>(tie.to)] = 1;
        if (!study.network.directed) {
            x[static_cast<std::size_t>(tie.to)][static_cast<std::size_t>(tie.from)] = 1;
        }
    }
    return x;
}

template <class Network>
struct Measured {
    explicit Measured(const Study& study)
        : meter(study),
          resolved(study_selection(study)),
          run(study, resolved, study_parameters(study, resolved), 1),
          found(meter.measure(run.network())) {}

    std::map<int, double> distribution(const std::string& name) const {
        for (std::size_t k = 0; k < meter.shapes().size(); ++k) {
            if (meter.shapes()[k].name == name) {
                return {found.distributions[k].begin(), found.distributions[k].end()};
            }
        }
        ADD_FAILURE() << name;
        return {};
    }
    double statistic(const std::string& name) const {
        for (std::size_t k = 0; k < meter.statistics().size(); ++k) {
            if (meter.statistics()[k] == name) {
                return found.statistics[k];
            }
        }
        ADD_FAILURE() << name;
        return 0.0;
    }

    GofMeter<Network> meter;
    StudySelection resolved;
    StudyChain<Network> run;
    GofMeasures found;
};

int sum(const std::vector<int>& values) {
    int total = 0;
    for (const int value : values) {
        total += value;
    }
    return total;
}

// Third actors on a path from i to j.
int partners(const Plain& x, std::size_t i, std::size_t j) {
    int count = 0;
    for (std::size_t k = 0; k < x.size(); ++k) {
        count += k != i && k != j ? x[i][k] * x[k][j] : 0;
    }
    return count;
}

// Lengths of shortest paths by relaxing, 1e9 without one.
std::vector<std::vector<double>> distances(const Plain& x) {
    constexpr double kApart = 1e9;
    std::vector<std::vector<double>> d(x.size(), std::vector<double>(x.size(), kApart));
    for (std::size_t i = 0; i < x.size(); ++i) {
        for (std::size_t j = 0; j < x.size(); ++j) {
            d[i][j] = i == j ? 0.0 : x[i][j] == 1 ? 1.0 : kApart;
        }
    }
    for (std::size_t k = 0; k < x.size(); ++k) {
        for (std::size_t i = 0; i < x.size(); ++i) {
            for (std::size_t j = 0; j < x.size(); ++j) {
                d[i][j] = std::min(d[i][j], d[i][k] + d[k][j]);
            }
        }
    }
    return d;
}

Plain both_ways(Plain x) {
    for (std::size_t i = 0; i < x.size(); ++i) {
        for (std::size_t j = 0; j < x.size(); ++j) {
            x[i][j] = x[i][j] | x[j][i];
        }
    }
    return x;
}

std::map<int, double> plain_component_sizes(const Plain& x) {
    const auto d = distances(both_ways(x));
    std::map<int, double> actors;
    for (const std::vector<double>& row : d) {
        ++actors[static_cast<int>(
            std::count_if(row.begin(), row.end(), [](double each) { return each < 1e8; }))];
    }
    for (auto& [size, count] : actors) {
        count /= size;
    }
    return actors;
}

// The class of a triad of a digraph: mutual, asymmetric and null dyads, and where they point.
std::string triad_class(const Plain& x, const std::array<std::size_t, 3>& at) {
    int mutual = 0;
    int single = 0;
    std::array<int, 3> out{};
    std::array<int, 3> in{};
    for (std::size_t a = 0; a < 3; ++a) {
        for (std::size_t b = 0; b < 3; ++b) {
            if (a != b && x[at[a]][at[b]] == 1) {
                ++out[a];
                ++in[b];
                mutual += a < b && x[at[b]][at[a]] == 1 ? 1 : 0;
                single += x[at[b]][at[a]] == 0 ? 1 : 0;
            }
        }
    }
    const std::string name =
        std::to_string(mutual) + std::to_string(single) + std::to_string(3 - mutual - single);
    const int most_out = *std::max_element(out.begin(), out.end());
    const int most_in = *std::max_element(in.begin(), in.end());
    if (name == "021") {
        return name + (most_out == 2 ? "D" : most_in == 2 ? "U" : "C");
    }
    if (name == "111") {
        // The actor outside the mutual dyad receives (U) or sends (D).
        for (std::size_t a = 0; a < 3; ++a) {
            if (out[a] + in[a] == 1) {
                return name + (in[a] == 1 ? "U" : "D");
            }
        }
    }
    if (name == "030") {
        return name + (most_out == 2 ? "T" : "C");
    }
    if (name == "120") {
        for (std::size_t a = 0; a < 3; ++a) {
            const std::size_t b = (a + 1) % 3;
            const std::size_t c = (a + 2) % 3;
            if (x[at[b]][at[c]] == 1 && x[at[c]][at[b]] == 1) {
                return name + (out[a] == 2 ? "D" : in[a] == 2 ? "U" : "C");
            }
        }
    }
    return name;
}

template <class Visit>
void for_each_triad(std::size_t n, Visit visit) {
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = i + 1; j < n; ++j) {
            for (std::size_t k = j + 1; k < n; ++k) {
                visit(std::array{i, j, k});
            }
        }
    }
}

template <class Network>
void expect_plain_distributions(const Study& study) {
    const Measured<Network> measured(study);
    const Plain x = plain_of(study);
    const bool directed = study.network.directed;
    const int n = static_cast<int>(x.size());
    std::map<int, double> out;
    std::map<int, double> in;
    std::map<int, double> edgewise;
    std::map<int, double> dyadwise;
    std::map<int, double> paths;
    const auto d = distances(x);
    for (std::size_t i = 0; i < x.size(); ++i) {
        ++out[sum(x[i])];
        int received = 0;
        for (std::size_t j = 0; j < x.size(); ++j) {
            received += x[j][i];
            if (i == j || (!directed && j < i)) {
                continue;
            }
            ++dyadwise[partners(x, i, j)];
            edgewise[partners(x, i, j)] += x[i][j];
            ++paths[d[i][j] < 1e8 ? static_cast<int>(d[i][j]) : n];
        }
        ++in[received];
    }
    std::erase_if(edgewise, [](const auto& each) { return each.second == 0.0; });
    EXPECT_EQ(measured.distribution(directed ? "out-degree" : "degree"), out);
    if (directed) {
        EXPECT_EQ(measured.distribution("in-degree"), in);
    }
    EXPECT_EQ(measured.distribution("edgewise-shared-partners"), edgewise);
    EXPECT_EQ(measured.distribution("dyadwise-shared-partners"), dyadwise);
    EXPECT_EQ(measured.distribution("geodesic"), paths);
    const std::map<int, double> sizes = plain_component_sizes(x);
    EXPECT_EQ(measured.distribution("component-size"), sizes);
    EXPECT_EQ(measured.statistic("largest-component"), sizes.rbegin()->first);
}

TEST(GofMeasures, DistributionsAreThoseOfPlainCounts) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        for (const double density : {0.0, 0.08, 0.2, 0.6, 1.0}) {
            expect_plain_distributions<Graph>(random_study(14, false, density, seed));
            expect_plain_distributions<Digraph>(random_study(14, true, density, seed));
        }
    }
}

TEST(GofMeasures, TriadsAreThoseOfPlainCounts) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        const Study directed = random_study(12, true, 0.35, seed);
        const Plain x = plain_of(directed);
        std::map<int, double> classes;
        for_each_triad(x.size(), [&](const std::array<std::size_t, 3>& at) {
            const std::string name = triad_class(x, at);
            const auto place = std::find(kTriadNames.begin(), kTriadNames.end(), name);
            ASSERT_NE(place, kTriadNames.end()) << name;
            ++classes[static_cast<int>(place - kTriadNames.begin())];
        });
        EXPECT_EQ(Measured<Digraph>(directed).distribution("triad-census"), classes);
        const Study undirected = random_study(12, false, 0.35, seed);
        const Plain y = plain_of(undirected);
        std::map<int, double> ties;
        for_each_triad(y.size(), [&](const std::array<std::size_t, 3>& at) {
            ++ties[y[at[0]][at[1]] + y[at[0]][at[2]] + y[at[1]][at[2]]];
        });
        EXPECT_EQ(Measured<Graph>(undirected).distribution("triad-census"), ties);
    }
}

TEST(GofMeasures, ALargeCensusDoesNotWrap) {
    // 1500 actors have more triads than 32 bits tell.
    Study study = ring_study(1500, true, "arc");
    const Measured<Digraph> measured(study);
    const double n = 1500.0;
    const auto census = measured.distribution("triad-census");
    double all = 0.0;
    for (const auto& [at, count] : census) {
        EXPECT_GT(count, 0.0);
        all += count;
    }
    EXPECT_EQ(all, n * (n - 1) * (n - 2) / 6);
    EXPECT_EQ(census.at(12), n);              // 021C
    EXPECT_EQ(census.at(14), n * (n - 4.0));  // 012
}

template <class Network>
void expect_plain_mixing(const Study& study) {
    const Measured<Network> measured(study);
    const bool directed = study.network.directed;
    std::map<std::string, double> expected;
    double all = 0.0;
    double same = 0.0;
    std::map<double, double> from;
    std::map<double, double> to;
    const StudyAttribute& group = study.attributes[0];
    for (const ActorTie& tie : study.network.ties) {
        double a = group.values[static_cast<std::size_t>(tie.from)];
        double b = group.values[static_cast<std::size_t>(tie.to)];
        if (a == kMissingValue || b == kMissingValue) {
            continue;
        }
        all += 1;
        same += a == b ? 1 : 0;
        from[a] += directed ? 1 : 0.5;
        to[b] += directed ? 1 : 0.5;
        from[b] += directed ? 0 : 0.5;
        to[a] += directed ? 0 : 0.5;
        if (!directed && a > b) {
            std::swap(a, b);
        }
        ++expected[group.labels[static_cast<std::size_t>(a)] + (directed ? " -> " : " - ") +
                   group.labels[static_cast<std::size_t>(b)]];
    }
    double chance = 0.0;
    for (const auto& [code, ends] : from) {
        chance += ends / all * to[code] / all;
    }
    EXPECT_NEAR(measured.statistic("assortativity(group)"), (same / all - chance) / (1 - chance),
                1e-12);
    std::map<std::string, double> found;
    for (std::size_t k = 0; k < measured.meter.shapes().size(); ++k) {
        const GofShape& shape = measured.meter.shapes()[k];
        if (shape.name == "mixing(group)") {
            EXPECT_EQ(shape.labels.size(), directed ? 9U : 6U);
            for (const auto& [at, count] : measured.found.distributions[k]) {
                found[shape.labels[static_cast<std::size_t>(at)]] = count;
            }
        }
    }
    EXPECT_EQ(found, expected);
}

TEST(GofMeasures, MixingIsThatOfPlainCounts) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        expect_plain_mixing<Graph>(random_study(15, false, 0.3, seed));
        expect_plain_mixing<Digraph>(random_study(15, true, 0.3, seed));
    }
}

// Correlation over the ends of the ties, each tie without direction from both its ends.
double plain_correlation(const Study& study) {
    std::vector<double> a;
    std::vector<double> b;
    const std::vector<double>& values = study.attributes[1].values;
    for (const ActorTie& tie : study.network.ties) {
        const double x = values[static_cast<std::size_t>(tie.from)];
        const double y = values[static_cast<std::size_t>(tie.to)];
        if (x == kMissingValue || y == kMissingValue) {
            continue;
        }
        a.push_back(x);
        b.push_back(y);
        if (!study.network.directed) {
            a.push_back(y);
            b.push_back(x);
        }
    }
    double mean_a = 0.0;
    double mean_b = 0.0;
    for (std::size_t k = 0; k < a.size(); ++k) {
        mean_a += a[k] / static_cast<double>(a.size());
        mean_b += b[k] / static_cast<double>(a.size());
    }
    double ab = 0.0;
    double aa = 0.0;
    double bb = 0.0;
    for (std::size_t k = 0; k < a.size(); ++k) {
        ab += (a[k] - mean_a) * (b[k] - mean_b);
        aa += (a[k] - mean_a) * (a[k] - mean_a);
        bb += (b[k] - mean_b) * (b[k] - mean_b);
    }
    return ab / std::sqrt(aa * bb);
}

TEST(GofMeasures, NumbersCorrelateAlongTies) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        const Study undirected = random_study(15, false, 0.3, seed);
        EXPECT_NEAR(Measured<Graph>(undirected).statistic("assortativity(age)"),
                    plain_correlation(undirected), 1e-9);
        const Study directed = random_study(15, true, 0.3, seed);
        EXPECT_NEAR(Measured<Digraph>(directed).statistic("assortativity(age)"),
                    plain_correlation(directed), 1e-9);
    }
}

TEST(GofMeasures, WithoutTiesThereIsNoAssortativity) {
    const Measured<Graph> measured(random_study(8, false, 0.0, 1));
    EXPECT_TRUE(std::isnan(measured.statistic("assortativity(age)")));
    EXPECT_TRUE(std::isnan(measured.statistic("assortativity(group)")));
    EXPECT_EQ(measured.statistic("components"), 8.0);
}

TEST(GofMeasures, TheModelComesFirstAndTheFullModelBehindIt) {
    const Study study = random_study(12, false, 0.3, 1);
    const Measured<Graph> measured(study);
    const std::vector<std::string>& names = measured.meter.statistics();
    EXPECT_EQ(names[0], "edge");
    EXPECT_EQ(names[1], "AT(3)");
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    for (const char* name : {"2-star", "triangle", "AS(2)", "AT(1)", "same(group)", "sum(age)",
                             "activity(senior)", "clustering"}) {
        EXPECT_NE(std::find(names.begin(), names.end(), name), names.end()) << name;
    }
    EXPECT_EQ(measured.statistic("edge"), static_cast<double>(study.network.ties.size()));
}

TEST(GofMeasures, AMeasuredNetworkGoesOnAsItWas) {
    Study study = random_study(14, false, 0.4, 2);
    study.model = {};
    add_effects_of("edge,4-clique,AT(2)", study.model);
    Measured<Graph> measured(study);
    Graph& graph = measured.run.network();
    const std::vector<double> statistics = graph.statistics;
    const std::vector<double> cliques = graph.clique_counts;
    const int depth = graph.clique_depth;
    measured.meter.measure(graph);
    EXPECT_EQ(graph.statistics, statistics);
    EXPECT_EQ(graph.clique_counts, cliques);
    EXPECT_EQ(graph.clique_depth, depth);
}

}  // namespace
