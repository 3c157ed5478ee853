#include "study/gof_measures.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

#include "base/no_number.h"
#include "measures/clustering.h"
#include "measures/descriptives.h"
#include "measures/triad_census.h"
#include "study/names.h"
#include "study/study_chain.h"

namespace {

// Attributes of more categories have their pairs told as same and different only.
constexpr int kMostCategories = 12;

std::size_t index_of(int number) { return static_cast<std::size_t>(number); }

// Adds an effect unless the model has it, or as many of its name as it may have.
void add_effect(const EffectExpression& expression, int most, StudyModel& model) {
    const auto alike =
        std::count_if(model.effects.begin(), model.effects.end(), [&](const StudyEffect& each) {
            return names_match(each.expression.name, expression.name) &&
                   names_match(each.expression.argument, expression.argument);
        });
    const bool there = std::any_of(
        model.effects.begin(), model.effects.end(),
        [&](const StudyEffect& each) { return effects_match(each.expression, expression); });
    if (!there && alike < most) {
        model.effects.push_back({expression, {}, {}});
    }
}

void add_structural(const Catalogue& catalogue, StudyModel& model) {
    std::map<std::string, int> seen;
    for (const int id : catalogue.setup_order) {
        const StructuralEffect& effect = catalogue.effects[index_of(id)];
        if (!effect.traits.full_model) {
            continue;
        }
        const int number = ++seen[effect.facts.name];
        EffectExpression expression{effect.facts.name, {}, {}};
        if (effect.traits.alternating) {
            expression.lambda = number == 1 ? double{effect.traits.full_model_lambda} : 1.0;
        }
        add_effect(expression, number, model);
    }
}

void add_group(const Catalogue& catalogue, AttributeGroup group, const std::string& argument,
               StudyModel& model) {
    const AttributeGroupCatalogue& effects = group_catalogue(catalogue, group);
    for (const int row : effects.setup_order) {
        add_effect({effects.effects[index_of(row)].facts.name, {}, argument}, 1, model);
    }
}

AttributeGroup group_of_type(AttributeType type) {
    return type == AttributeType::binary       ? AttributeGroup::binary
           : type == AttributeType::continuous ? AttributeGroup::continuous
                                               : AttributeGroup::categorical;
}

SparseCounts sparse(const std::vector<int>& histogram, int first) {
    SparseCounts counts;
    for (std::size_t k = 0; k < histogram.size(); ++k) {
        if (histogram[k] != 0) {
            counts.emplace_back(first + static_cast<int>(k), histogram[k]);
        }
    }
    return counts;
}

SparseCounts sparse(const std::vector<double>& histogram) {
    SparseCounts counts;
    for (std::size_t k = 0; k < histogram.size(); ++k) {
        if (histogram[k] != 0.0) {
            counts.emplace_back(static_cast<int>(k), histogram[k]);
        }
    }
    return counts;
}

void count_at(std::vector<int>& histogram, int entry) {
    if (index_of(entry) >= histogram.size()) {
        histogram.resize(index_of(entry) + 1, 0);
    }
    ++histogram[index_of(entry)];
}

// Two-paths between the ends of each tie.
template <class Network>
SparseCounts edgewise_partners(const Network& network, const std::vector<ActorTie>& ties) {
    std::vector<int> histogram;
    for (const ActorTie& tie : ties) {
        count_at(histogram, network.two_paths[tie.from][tie.to]);
    }
    return sparse(histogram, 0);
}

SparseCounts dyadwise_partners(const Graph& graph) {
    return sparse(graph.two_path_distribution, 0);
}

SparseCounts dyadwise_partners(const Digraph& digraph) {
    std::vector<int> histogram(1, 0);
    int any = 0;
    for (int i = 0; i < digraph.vertices; ++i) {
        row_for_each(digraph.any_two_paths[i], digraph.any_two_paths.words_per_row, [&](int j) {
            if (i != j) {
                count_at(histogram, digraph.two_paths[i][j]);
                ++any;
            }
        });
    }
    histogram[0] = digraph.vertices * (digraph.vertices - 1) - any;
    return sparse(histogram, 0);
}

// Sizes of the components, direction left aside, by union of the ties' ends.
std::vector<int> component_sizes(int actors, const std::vector<ActorTie>& ties) {
    std::vector<int> parent(index_of(actors));
    std::iota(parent.begin(), parent.end(), 0);
    const auto root = [&parent](int actor) {
        while (parent[index_of(actor)] != actor) {
            parent[index_of(actor)] = parent[index_of(parent[index_of(actor)])];
            actor = parent[index_of(actor)];
        }
        return actor;
    };
    for (const ActorTie& tie : ties) {
        parent[index_of(root(tie.from))] = root(tie.to);
    }
    std::vector<int> members(parent.size(), 0);
    for (int actor = 0; actor < actors; ++actor) {
        ++members[index_of(root(actor))];
    }
    members.erase(std::remove(members.begin(), members.end(), 0), members.end());
    return members;
}

SparseCounts size_counts(const std::vector<int>& sizes) {
    std::map<int, double> counts;
    for (const int size : sizes) {
        counts[size] += 1.0;
    }
    return {counts.begin(), counts.end()};
}

// Triads by their number of ties.
std::vector<double> triads_of(const Graph& graph) {
    const double n = graph.vertices;
    double stars = 0.0;
    double corners = 0.0;
    for (std::size_t actor = 0; actor < graph.degree.size(); ++actor) {
        const double degree = graph.degree[actor];
        stars += degree * (degree - 1.0) / 2.0;
        corners += graph.triangles[actor];
    }
    const double three = corners / 3.0;
    const double two = stars - 3.0 * three;
    const double one = graph.edges * (n - 2.0) - 2.0 * two - 3.0 * three;
    const double all = n * (n - 1.0) * (n - 2.0) / 6.0;
    return {all - one - two - three, one, two, three};
}

// The census with its last classes solved in double: the snapshot forms products of n that wrap.
std::vector<double> triads_of(const Digraph& digraph) {
    enum Class {
        t300,
        t210,
        t120c,
        t120d,
        t120u,
        t201,
        t111d,
        t111u,
        t030t,
        t030c,
        t102,
        t021d,
        t021c,
        t021u,
        t012,
        t003
    };
    std::vector<double> census = digraph.triad_census;
    const double n = digraph.vertices;
    const double mutual = digraph.mutual_dyads;
    census[t102] = (n - 2.0) * mutual -
                   (census[t111u] + census[t111d] + census[t120c] + census[t120d] + census[t120u] +
                    2.0 * census[t201] + 2.0 * census[t210] + 3.0 * census[t300]);
    const double single = digraph.arcs - 2.0 * mutual;
    census[t012] = (n - 2.0) * single -
                   (2.0 * (census[t021u] + census[t021c] + census[t021d]) + census[t111d] +
                    census[t111u] + 3.0 * (census[t030t] + census[t030c]) +
                    2.0 * (census[t120u] + census[t120d] + census[t120c]) + census[t210]);
    census[t003] = 0.0;
    const double others = std::accumulate(census.begin(), census.end(), 0.0);
    census[t003] = n * (n - 1.0) * (n - 2.0) / 6.0 - others;
    return census;
}

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

StudyModel gof_model(const Study& study) {
    const Catalogue& catalogue =
        catalogue_of(study.network.directed ? NetworkKind::directed : NetworkKind::undirected);
    StudyModel model = study.model;
    add_structural(catalogue, model);
    for (const StudyAttribute& attribute : study.attributes) {
        add_group(catalogue, group_of_type(attribute.type), attribute.name, model);
    }
    for (const StudyCovariate& covariate : study.covariates) {
        add_group(catalogue, AttributeGroup::covariate, covariate.name, model);
    }
    return model;
}

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
    return sparse(histogram, 0);
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
        found.distributions = {sparse(network.in_degree_distribution, 0),
                               sparse(network.out_degree_distribution, 0)};
    } else {
        found.distributions = {sparse(network.degree_distribution, 0)};
    }
    found.distributions.push_back(edgewise_partners(network, ties));
    found.distributions.push_back(dyadwise_partners(network));
    found.distributions.push_back(sparse(network.geodesic_distribution, 1));
    found.distributions.push_back(size_counts(sizes));
    found.distributions.push_back(sparse(triads_of(network)));
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
