#include "study/gof_measures.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/no_number.h"
#include "measures/clustering.h"
#include "measures/descriptives.h"
#include "measures/triad_census.h"
#include "study/gof_model.h"
#include "study/study_chain.h"

namespace {

// Attributes of more categories have their pairs told as same and different only.
constexpr int kMostCategories = 12;

std::size_t index_of(int number) { return static_cast<std::size_t>(number); }

double correlation_of(double n, double x, double y, double xx, double yy, double xy) {
    const double spread = (n * xx - x * x) * (n * yy - y * y);
    return spread > 0.0 ? (n * xy - x * y) / std::sqrt(spread) : kNoNumber;
}

// Correlation of the values at the two ends of the ties; a tie without direction counts both ways.
double value_correlation(const std::vector<double>& values, const std::vector<ActorTie>& ties,
                         bool directed) {
    double n = 0.0;
    double x = 0.0;
    double y = 0.0;
    double xx = 0.0;
    double yy = 0.0;
    double xy = 0.0;
    for (const ActorTie& tie : ties) {
        const double from = values[index_of(tie.from)];
        const double to = values[index_of(tie.to)];
        if (from == kMissingValue || to == kMissingValue) {
            continue;
        }
        n += 1.0;
        x += directed ? from : (from + to) / 2.0;
        y += directed ? to : (from + to) / 2.0;
        xx += directed ? from * from : (from * from + to * to) / 2.0;
        yy += directed ? to * to : (from * from + to * to) / 2.0;
        xy += from * to;
    }
    return correlation_of(n, x, y, xx, yy, xy);
}

std::vector<std::string> measure_names(bool directed) {
    return directed ? std::vector<std::string>{"in-degree-sd",
                                               "in-degree-skewness",
                                               "out-degree-sd",
                                               "out-degree-skewness",
                                               "degree-correlation",
                                               "clustering-out",
                                               "clustering-in",
                                               "clustering-transitive",
                                               "clustering-cyclic",
                                               "alternating-clustering-T",
                                               "alternating-clustering-D",
                                               "alternating-clustering-U",
                                               "alternating-clustering-C"}
                    : std::vector<std::string>{"degree-sd", "degree-skewness", "clustering",
                                               "local-clustering", "local-clustering-variance"};
}

}  // namespace

template <class Network>
GofMeter<Network>::GofMeter(const Study& study) : study_(study) {
    study_.model = gof_model(study);
    resolved_ = study_selection(study_);
    if (!resolved_.ok()) {
        // An auxiliary effect that this study cannot have: the model's own always can.
        study_.model = study.model;
        resolved_ = study_selection(study_);
    }
    model_ = active_model<Network>(resolved_.selection);
    name_measures();
}

template <class Network>
void GofMeter<Network>::name_measures() {
    names_ = resolved_.names;
    for (const std::string& name : measure_names(kDirected<Network>)) {
        names_.push_back(name);
    }
    names_.insert(names_.end(), {"components", "largest-component"});
    if (kDirected<Network>) {
        shapes_ = {{.name = "in-degree"}, {.name = "out-degree"}};
    } else {
        shapes_ = {{.name = "degree"}};
    }
    const auto actors = static_cast<int>(study_.network.actors.size());
    shapes_.push_back({.name = "edgewise-shared-partners"});
    shapes_.push_back({.name = "dyadwise-shared-partners"});
    shapes_.push_back({.name = "geodesic", .first = 1, .infinite = actors});
    shapes_.push_back({.name = "component-size", .first = 1, .gaps = true});
    shapes_.push_back({.name = "triad-census"});
    if (kDirected<Network>) {
        shapes_.back().labels.assign(kTriadNames.begin(), kTriadNames.end());
    }
    for (const StudyAttribute& attribute : study_.attributes) {
        add_trait(attribute);
    }
}

template <class Network>
void GofMeter<Network>::add_trait(const StudyAttribute& attribute) {
    Trait trait;
    trait.name = attribute.name;
    if (attribute.type == AttributeType::continuous) {
        trait.values = attribute.values;
    } else {
        const int first = attribute.type == AttributeType::binary ? 0 : 1;
        for (const double value : attribute.values) {
            const int code = value == kMissingValue ? -1 : static_cast<int>(value) - first;
            trait.codes.push_back(code);
            trait.categories = std::max(trait.categories, code + 1);
        }
        trait.cells = trait.categories <= kMostCategories;
        std::vector<std::string> labels;
        for (int code = 0; code < trait.categories; ++code) {
            const std::size_t place = index_of(code + first);
            labels.push_back(place < attribute.labels.size() && !attribute.labels[place].empty()
                                 ? attribute.labels[place]
                                 : std::to_string(code + first));
        }
        add_mixing(trait, labels);
    }
    names_.push_back("assortativity(" + trait.name + ")");
    traits_.push_back(std::move(trait));
}

template <class Network>
void GofMeter<Network>::add_mixing(const Trait& trait, const std::vector<std::string>& labels) {
    GofShape shape{.name = "mixing(" + trait.name + ")"};
    if (!trait.cells) {
        shape.labels = {"different", "same"};
        shapes_.push_back(std::move(shape));
        return;
    }
    for (int from = 0; from < trait.categories; ++from) {
        for (int to = kDirected<Network> ? 0 : from; to < trait.categories; ++to) {
            shape.labels.push_back(labels[index_of(from)] + (kDirected<Network> ? " -> " : " - ") +
                                   labels[index_of(to)]);
        }
    }
    shapes_.push_back(std::move(shape));
}

template <class Network>
std::vector<double> GofMeter<Network>::effect_statistics(Network& network) const {
    std::vector<double> carried(index_of(selection_size(resolved_.selection)), 0.0);
    carried.swap(network.statistics);
    if constexpr (kDirected<Network>) {
        compute_statistics(network, model_);
    } else {
        const int depth = clique_depth(resolved_.selection);
        std::vector<double> counts(index_of(depth), 0.0);
        const int carried_depth = std::exchange(network.clique_depth, depth);
        counts.swap(network.clique_counts);
        count_anew(network, model_);
        network.clique_depth = carried_depth;
        counts.swap(network.clique_counts);
    }
    carried.swap(network.statistics);
    std::vector<double> statistics;
    for (const int place : resolved_.places) {
        statistics.push_back(carried[index_of(place)]);
    }
    return statistics;
}

// Newman (2003), Mixing patterns in networks: the share of ties within categories beyond what the
// categories' shares of tie ends give, by the most that it can be; of numbers, their correlation.
template <class Network>
double GofMeter<Network>::assortativity(const Trait& trait,
                                        const std::vector<ActorTie>& ties) const {
    if (trait.codes.empty()) {
        return value_correlation(trait.values, ties, kDirected<Network>);
    }
    double all = 0.0;
    double same = 0.0;
    std::vector<double> from(index_of(trait.categories), 0.0);
    std::vector<double> to(index_of(trait.categories), 0.0);
    for (const ActorTie& tie : ties) {
        const int a = trait.codes[index_of(tie.from)];
        const int b = trait.codes[index_of(tie.to)];
        if (a < 0 || b < 0) {
            continue;
        }
        all += 1.0;
        same += a == b ? 1.0 : 0.0;
        from[index_of(a)] += kDirected<Network> ? 1.0 : 0.5;
        to[index_of(b)] += kDirected<Network> ? 1.0 : 0.5;
        if (!kDirected<Network>) {
            from[index_of(b)] += 0.5;
            to[index_of(a)] += 0.5;
        }
    }
    double expected = 0.0;
    for (std::size_t k = 0; k < from.size(); ++k) {
        expected += from[k] * to[k];
    }
    const double most = all * all - expected;
    return most > 0.0 ? (all * same - expected) / most : kNoNumber;
}

template <class Network>
SparseCounts GofMeter<Network>::mixing(const Trait& trait,
                                       const std::vector<ActorTie>& ties) const {
    const int k = trait.categories;
    std::vector<int> histogram(trait.cells ? index_of(k * k) : 2, 0);
    for (const ActorTie& tie : ties) {
        int a = trait.codes[index_of(tie.from)];
        int b = trait.codes[index_of(tie.to)];
        if (a < 0 || b < 0) {
            continue;
        }
        if (!trait.cells) {
            ++histogram[a == b ? 1 : 0];
            continue;
        }
        if (!kDirected<Network> && a > b) {
            std::swap(a, b);
        }
        // The cells of an unordered pair: rows of the upper triangle, one after the other.
        const int cell = kDirected<Network> ? a * k + b : a * k - a * (a - 1) / 2 + (b - a);
        ++histogram[index_of(cell)];
    }
    return sparse_counts(histogram, 0);
}

template <class Network>
GofMeasures GofMeter<Network>::measure(Network& network) const {
    GofMeasures found;
    found.statistics = effect_statistics(network);
    refresh_descriptives(network);
    const std::vector<double> described = descriptive_measures(network, resolved_.selection);
    found.statistics.insert(found.statistics.end(), described.begin(), described.end());
    const std::vector<ActorTie> ties = ties_of(network);
    const std::vector<int> sizes = component_sizes(network.vertices, ties);
    found.statistics.push_back(static_cast<double>(sizes.size()));
    found.statistics.push_back(sizes.empty() ? 0.0 : *std::max_element(sizes.begin(), sizes.end()));
    if constexpr (kDirected<Network>) {
        found.distributions = {sparse_counts(network.in_degree_distribution, 0),
                               sparse_counts(network.out_degree_distribution, 0)};
    } else {
        found.distributions = {sparse_counts(network.degree_distribution, 0)};
    }
    found.distributions.push_back(edgewise_partners(network, ties));
    found.distributions.push_back(dyadwise_partners(network));
    found.distributions.push_back(sparse_counts(network.geodesic_distribution, 1));
    found.distributions.push_back(size_counts(sizes));
    found.distributions.push_back(sparse_counts(triads_of(network)));
    for (const Trait& trait : traits_) {
        found.statistics.push_back(assortativity(trait, ties));
        if (!trait.codes.empty()) {
            found.distributions.push_back(mixing(trait, ties));
        }
    }
    return found;
}

template class GofMeter<Graph>;
template class GofMeter<Digraph>;
