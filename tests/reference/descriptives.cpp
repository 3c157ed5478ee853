#include "descriptives.h"

#include "directed_structural.h"
#include "structural.h"

#include <algorithm>

namespace reference {

namespace {

std::vector<int> zeros(int count) {
    return std::vector<int>(count > 0 ? static_cast<std::size_t>(count) : 0, 0);
}

IntTable shortest_paths(const IntTable& adjacency) {
    const int n = static_cast<int>(adjacency.size());
    IntTable lengths = adjacency;
    for (int a = 0; a < n; ++a) {
        for (int b = 0; b < n; ++b) {
            if (a != b && cell(lengths, a, b) == 0) {
                cell(lengths, a, b) = unreachable;
            }
        }
    }
    for (int k = 0; k < n; ++k) {
        for (int a = 0; a < n; ++a) {
            for (int b = 0; b < n; ++b) {
                const int over_k = cell(lengths, a, k) + cell(lengths, k, b);
                if (cell(lengths, a, b) > over_k) {
                    cell(lengths, a, b) = over_k;
                }
            }
        }
    }
    return lengths;
}

void count_distance(std::vector<int>& distribution, int distance) {
    const int last = static_cast<int>(distribution.size()) - 1;
    ++item(distribution, distance == unreachable ? last : distance - 1);
}

double ratio(double numerator, double denominator) {
    return denominator == 0.0 ? 0.0 : numerator / denominator;
}

}  // namespace

double density(const PlainGraph& graph) {
    return 2.0 * edge_count(graph) / (static_cast<double>(graph.n) * (graph.n - 1));
}

double density(const PlainDigraph& digraph) {
    return static_cast<double>(arc_count(digraph)) / digraph.n / (digraph.n - 1);
}

double mean_degree(const PlainGraph& graph) { return 2.0 * edge_count(graph) / graph.n; }

double mean_degree(const PlainDigraph& digraph) {
    double sum = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        sum += in_degree(digraph, v);
    }
    return sum / digraph.n;
}

std::vector<int> degree_distribution(const PlainGraph& graph) {
    std::vector<int> histogram = zeros(graph.n);
    for (int v = 0; v < graph.n; ++v) {
        ++item(histogram, degree(graph, v));
    }
    return histogram;
}

std::vector<int> in_degree_distribution(const PlainDigraph& digraph) {
    std::vector<int> histogram = zeros(digraph.n);
    for (int v = 0; v < digraph.n; ++v) {
        ++item(histogram, in_degree(digraph, v));
    }
    return histogram;
}

std::vector<int> out_degree_distribution(const PlainDigraph& digraph) {
    std::vector<int> histogram = zeros(digraph.n);
    for (int v = 0; v < digraph.n; ++v) {
        ++item(histogram, out_degree(digraph, v));
    }
    return histogram;
}

std::vector<int> two_path_distribution(const PlainGraph& graph) {
    std::vector<int> histogram = zeros(graph.n - 1);
    for (int a = 0; a < graph.n; ++a) {
        for (int b = a + 1; b < graph.n; ++b) {
            ++item(histogram, common_neighbours(graph, a, b));
        }
    }
    return histogram;
}

std::vector<int> triangle_distribution(const PlainGraph& graph) {
    std::vector<int> histogram = zeros((graph.n - 1) * (graph.n - 2) / 2 + 1);
    for (int v = 0; v < graph.n; ++v) {
        ++item(histogram, triangles_through(graph, v));
    }
    return histogram;
}

IntTable geodesics(const PlainGraph& graph) { return shortest_paths(graph.tie); }

IntTable geodesics(const PlainDigraph& digraph) { return shortest_paths(digraph.arc); }

std::vector<int> geodesic_distribution(const PlainGraph& graph) {
    const IntTable lengths = geodesics(graph);
    std::vector<int> distribution = zeros(graph.n);
    for (int a = 0; a < graph.n; ++a) {
        for (int b = a + 1; b < graph.n; ++b) {
            count_distance(distribution, cell(lengths, a, b));
        }
    }
    return distribution;
}

std::vector<int> geodesic_distribution(const PlainDigraph& digraph) {
    const IntTable lengths = geodesics(digraph);
    std::vector<int> distribution = zeros(digraph.n);
    for (int a = 0; a < digraph.n; ++a) {
        for (int b = 0; b < digraph.n; ++b) {
            if (a != b) {
                count_distance(distribution, cell(lengths, a, b));
            }
        }
    }
    return distribution;
}

std::vector<int> geodesic_quartiles(const std::vector<int>& distribution, int k) {
    std::vector<int> distances;
    for (int entry = 0; entry < static_cast<int>(distribution.size()); ++entry) {
        for (int pair = 0; pair < item(distribution, entry); ++pair) {
            distances.push_back(entry + 1);
        }
    }
    std::vector<int> quartiles = zeros(k);
    if (distances.empty()) {
        return quartiles;
    }
    const int count = static_cast<int>(distances.size());
    const double step = 1.0 / k;
    double share = 0.0;
    for (int& quartile : quartiles) {
        share += step;
        quartile = item(distances, static_cast<int>((count - 1) * share));
    }
    return quartiles;
}

std::vector<double> local_clustering(const PlainGraph& graph) {
    std::vector<double> clustering;
    for (int v = 0; v < graph.n; ++v) {
        const int d = degree(graph, v);
        const double pairs = static_cast<double>(d) * (d - 1) / 2;
        clustering.push_back(pairs == 0.0 ? 0.0 : triangles_through(graph, v) / pairs);
    }
    return clustering;
}

double mean_local_clustering(const PlainGraph& graph) {
    double sum = 0.0;
    for (const double clustering : local_clustering(graph)) {
        sum += clustering;
    }
    int actors = 0;
    for (int v = 0; v < graph.n; ++v) {
        if (degree(graph, v) > 1) {
            ++actors;
        }
    }
    return actors == 0 ? 0.0 : sum / actors;
}

double global_clustering(const PlainGraph& graph) {
    return ratio(3.0 * structural_effect("Triangle").count(graph, 0.0F),
                 structural_effect("2-star").count(graph, 0.0F));
}

int largest_component(const PlainGraph& graph) {
    const IntTable lengths = geodesics(graph);
    int largest = 0;
    for (int a = 0; a < graph.n; ++a) {
        int reached = 0;
        for (int b = 0; b < graph.n; ++b) {
            if (cell(lengths, a, b) != 0 && cell(lengths, a, b) != unreachable) {
                ++reached;
            }
        }
        largest = std::max(largest, reached);
    }
    return largest + 1;
}

DirectedClustering directed_clustering(const PlainDigraph& digraph, float lambda) {
    const auto value = [&](std::string_view name) {
        return directed_effect(name).count(digraph, lambda);
    };
    DirectedClustering clustering;
    clustering.cto = ratio(0.5 * value("Transitive-Triad"), value("out2star"));
    clustering.cti = ratio(0.5 * value("Transitive-Triad"), value("in2star"));
    clustering.ctm = ratio(value("Transitive-Triad"), value("path2"));
    clustering.ccm = ratio(3.0 * value("Cyclic-Triad"), value("path2"));
    clustering.akc_t = ratio(value("AT-T"), value("A2P-T"));
    clustering.akc_d = ratio(0.5 * value("AT-D"), value("A2P-D"));
    clustering.akc_u = ratio(0.5 * value("AT-U"), value("A2P-U"));
    clustering.akc_c = ratio(value("AT-C"), value("A2P-T"));
    return clustering;
}

}  // namespace reference
