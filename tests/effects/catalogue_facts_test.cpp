// What the catalogue says of each effect, held against what its functions do on random networks.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "effects/cliques.h"
#include "effects/evaluation.h"
#include "support/catalogue_lists.h"
#include "support/formula.h"
#include "support/random_networks.h"

namespace {

constexpr int kActors = 8;

using Matrix = std::vector<std::vector<int>>;

template <class Network>
constexpr NetworkKind kKind =
    std::is_same_v<Network, Graph> ? NetworkKind::undirected : NetworkKind::directed;

template <class Network>
Matrix random_ties(TestRandom& random, double density) {
    Matrix ties(kActors, std::vector<int>(kActors, 0));
    for (std::size_t i = 0; i < kActors; ++i) {
        for (std::size_t j = 0; j < kActors; ++j) {
            if (i < j || (i > j && kKind<Network> == NetworkKind::directed)) {
                ties[i][j] = draw_unit(random) < density ? 1 : 0;
            } else if (i > j) {
                ties[i][j] = ties[j][i];
            }
        }
    }
    return ties;
}

template <class Network>
void set_tie(Matrix& ties, int i, int j, int tie) {
    ties[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] = tie;
    if (kKind<Network> == NetworkKind::undirected) {
        ties[static_cast<std::size_t>(j)][static_cast<std::size_t>(i)] = tie;
    }
}

// Every dyad of a graph once, every ordered pair of a digraph.
template <class Network>
std::vector<std::pair<int, int>> all_pairs() {
    std::vector<std::pair<int, int>> pairs;
    for (int i = 0; i < kActors; ++i) {
        for (int j = 0; j < kActors; ++j) {
            if (i < j || (i > j && kKind<Network> == NetworkKind::directed)) {
                pairs.emplace_back(i, j);
            }
        }
    }
    return pairs;
}

// The attribute values that every attribute effect of a model reads.
struct Values {
    std::vector<int> codes;
    std::vector<float> reals;
    FloatTable covariate;
};

Values random_values(TestRandom& random, const std::vector<int>& codes,
                     const std::vector<float>& reals, const std::vector<float>& cells) {
    Values values{random_codes(random, kActors, codes), random_reals(random, kActors, reals),
                  FloatTable(kActors, kActors)};
    for (int i = 0; i < kActors; ++i) {
        for (int j = i + 1; j < kActors; ++j) {
            const float cell =
                cells[static_cast<std::size_t>(draw_below(random, static_cast<int>(cells.size())))];
            values.covariate[i][j] = cell;
            values.covariate[j][i] = cell;
        }
    }
    return values;
}
Values plain_values(TestRandom& random) {
    return random_values(random, {0, 1}, {0.5F, 1.25F, 3.0F}, {0.0F, 0.5F, 2.0F});
}
Values strange_values(TestRandom& random) {
    return random_values(random, {0, 1, 2, -1, kMissing}, {-0.5F, 1.25F, 3.0F, 9999.0F},
                         {0.0F, 0.5F, -2.0F});
}

// Every effect of a kind, slots included, with one attribute of each type.
template <class Network>
class EveryEffect {
  public:
    EveryEffect(float lambda, const Values& values)
        : selection_(full_selection(kKind<Network>, {"a"}, true)) {
        for (StructuralChoice& choice : selection_.structural) {
            choice.lambda = lambda;
        }
        selection_.actors = kActors;
        selection_.table.binary = {coded_attribute(values.codes)};
        selection_.table.categorical = {coded_attribute(values.codes)};
        selection_.table.continuous = {continuous_attribute(values.reals)};
        selection_.table.covariates = {values.covariate};
        parameters_ = assemble_parameters(selection_);
        model_ = active_model<Network>(selection_);
    }
    EveryEffect(const EveryEffect&) = delete;
    EveryEffect& operator=(const EveryEffect&) = delete;

    struct Row {
        std::string label;
        EffectFacts facts;
        std::size_t place;
        bool structural;
        AttributeGroup group;
    };
    std::vector<Row> rows() const {
        std::vector<Row> rows;
        for (std::size_t id = 0; id < selection_.structural.size(); ++id) {
            const StructuralEffect& effect = selection_.catalogue->effects[id];
            const int place = selection_.structural[id].position;
            rows.push_back({effect.row, effect.facts, static_cast<std::size_t>(place), true,
                            AttributeGroup::binary});
        }
        for_each_attribute_effect(
            selection_, [&](AttributeGroup group, int row, int, int position) {
                const AttributeEffect& effect = group_catalogue(*selection_.catalogue, group)
                                                    .effects[static_cast<std::size_t>(row)];
                rows.push_back({effect.update, effect.facts, static_cast<std::size_t>(position),
                                false, group});
            });
        return rows;
    }

    // Indexed by place.
    std::vector<double> counts(const Matrix& ties) const {
        Network network = record(ties);
        count(network);
        return network.statistics;
    }
    std::vector<double> changes(const Matrix& ties, int i, int j, bool deletion) const {
        Matrix state = ties;
        set_tie<Network>(state, i, j, deletion ? 1 : 0);
        Network network = record(state);
        if (deletion) {
            clear_bits(network, i, j);
        }
        std::vector<double> changes(parameters_.size(), 0.0);
        evaluate(network, changes, i, j, deletion ? 0 : 1);
        return changes;
    }

  private:
    Network record(const Matrix& ties) const {
        const int places = static_cast<int>(parameters_.size());
        if constexpr (std::is_same_v<Network, Graph>) {
            Graph graph = graph_create(kActors, places, clique_depth(selection_));
            for (const auto& [i, j] : all_pairs<Graph>()) {
                if (ties[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] != 0) {
                    graph_add_tie(graph, i, j);
                }
            }
            return graph;
        } else {
            Digraph digraph = digraph_create(kActors, places);
            for (const auto& [i, j] : all_pairs<Digraph>()) {
                if (ties[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] != 0) {
                    digraph_add_tie(digraph, i, j);
                }
            }
            return digraph;
        }
    }
    static void clear_bits(Graph& graph, int i, int j) { graph_remove_edge(graph, i, j); }
    static void clear_bits(Digraph& digraph, int i, int j) { digraph_remove_arc(digraph, i, j); }
    void count(Graph& graph) const {
        graph_count_cliques(graph);
        compute_statistics(graph, model_);
    }
    void count(Digraph& digraph) const { compute_statistics(digraph, model_); }
    void evaluate(Graph& graph, std::vector<double>& changes, int i, int j, int adding) const {
        graph_evaluate_toggle(graph, model_, parameters_.data(), changes.data(), i, j, adding);
    }
    void evaluate(Digraph& digraph, std::vector<double>& changes, int i, int j, int adding) const {
        digraph_evaluate_toggle(digraph, model_, parameters_.data(), changes.data(), i, j, adding);
    }

    EffectSelection selection_;
    std::vector<double> parameters_;
    ActiveModel<Network> model_;
};

// Weights are single-precision numbers.
bool near(double a, double b, double size) {
    return std::fabs(a - b) <= 2e-5 * (1.0 + std::fabs(size));
}

// Names of the effects that hold some property, for messages that show all that differ at once.
using Labels = std::set<std::string>;

// Effects for which, somewhere, a change was not the difference of the counts.
template <class Network>
Labels disagreeing(float lambda, bool strange) {
    TestRandom random(71);
    Labels found;
    for (const double density : {0.2, 0.45, 0.75}) {
        const Values values = strange ? strange_values(random) : plain_values(random);
        const EveryEffect<Network> every(lambda, values);
        Matrix ties = random_ties<Network>(random, density);
        for (const auto& [i, j] : all_pairs<Network>()) {
            Matrix more = ties;
            Matrix less = ties;
            set_tie<Network>(more, i, j, 1);
            set_tie<Network>(less, i, j, 0);
            const std::vector<double> with = every.counts(more);
            const std::vector<double> without = every.counts(less);
            for (const bool deletion : {false, true}) {
                const std::vector<double> change = every.changes(ties, i, j, deletion);
                for (const auto& row : every.rows()) {
                    if (!near(change[row.place], with[row.place] - without[row.place],
                              with[row.place])) {
                        found.insert(row.label);
                    }
                }
            }
        }
    }
    return found;
}

template <class Network, class Holds>
Labels effects_with(Holds holds) {
    TestRandom random(1);
    const EveryEffect<Network> every(2.0F, plain_values(random));
    Labels labels;
    for (const auto& row : every.rows()) {
        if (holds(row)) {
            labels.insert(row.label);
        }
    }
    return labels;
}

template <class Network>
void expect_agreement() {
    const auto flagged = [](std::set<Agreement> flags) {
        return effects_with<Network>(
            [&](const auto& row) { return flags.count(row.facts.agreement) != 0; });
    };
    for (const float lambda : {1.5F, 2.0F, 3.0F}) {
        EXPECT_EQ(disagreeing<Network>(lambda, false), flagged({Agreement::never})) << lambda;
    }
    EXPECT_EQ(disagreeing<Network>(1.0F, false),
              flagged({Agreement::never, Agreement::above_lambda_one}));
    EXPECT_EQ(disagreeing<Network>(2.0F, true),
              flagged({Agreement::never, Agreement::zero_one_values, Agreement::values_from_zero}));
}

TEST(CatalogueFacts, AgreementOfChangeAndCountIsAsDeclared) {
    expect_agreement<Graph>();
    expect_agreement<Digraph>();
}

// What the difference that a tie makes was seen to depend on, and whether the change ever moved a
// statistic.
template <class Network>
void expect_dependence() {
    TestRandom random(5);
    const EveryEffect<Network> every(
        2.0F, random_values(random, {0, 1, 1, kMissing}, {0.5F, 1.25F, 9999.0F}, {0.5F, 2.0F}));
    const auto rows = every.rows();
    std::map<std::string, Dependence> seen;
    Labels carried;
    // What decides: the change, or the counts of an effect whose change says nothing.
    const auto differences = [&](const Matrix& ties, int i, int j) {
        std::vector<double> values = every.changes(ties, i, j, false);
        Matrix more = ties;
        Matrix less = ties;
        set_tie<Network>(more, i, j, 1);
        set_tie<Network>(less, i, j, 0);
        const std::vector<double> with = every.counts(more);
        const std::vector<double> without = every.counts(less);
        for (const auto& row : rows) {
            if (values[row.place] != 0.0) {
                carried.insert(row.label);
            }
            if (!row.facts.carried) {
                values[row.place] = with[row.place] - without[row.place];
            }
        }
        return values;
    };
    for (const auto& row : rows) {
        seen[row.label] = Dependence::none;
    }
    for (const double density : {0.15, 0.45, 0.9}) {
        const Matrix ties = random_ties<Network>(random, density);
        for (const auto& [i, j] : all_pairs<Network>()) {
            if ((i + j) % 2 == 0) {
                continue;
            }
            const std::vector<double> before = differences(ties, i, j);
            for (const auto& [p, q] : all_pairs<Network>()) {
                if (p == i && q == j) {
                    continue;
                }
                Matrix toggled = ties;
                set_tie<Network>(
                    toggled, p, q,
                    1 - ties[static_cast<std::size_t>(p)][static_cast<std::size_t>(q)]);
                const std::vector<double> after = differences(toggled, i, j);
                const Dependence found =
                    p == j && q == i ? Dependence::reverse_arc : Dependence::other_dyads;
                for (const auto& row : rows) {
                    if (before[row.place] != after[row.place]) {
                        seen[row.label] = std::max(seen[row.label], found);
                    }
                }
            }
        }
    }
    for (const auto& row : rows) {
        EXPECT_EQ(seen[row.label], row.facts.dependence) << row.label;
        EXPECT_EQ(carried.count(row.label) != 0, row.facts.carried) << row.label;
    }
}

TEST(CatalogueFacts, DependenceOnOtherTiesAndCarryingAreAsDeclared) {
    expect_dependence<Graph>();
    expect_dependence<Digraph>();
}

FormulaData formula_data(const Matrix& ties, const Values& values, AttributeGroup group,
                         float lambda) {
    FormulaData data;
    data.ties = ties;
    data.lambda = static_cast<double>(lambda);
    for (std::size_t actor = 0; actor < kActors; ++actor) {
        const double value = group == AttributeGroup::continuous
                                 ? static_cast<double>(values.reals[actor])
                                 : static_cast<double>(values.codes[actor]);
        data.missing.push_back(value == kMissing ? 1 : 0);
        data.values.push_back(value == kMissing ? 0.0 : value);
        data.covariate.emplace_back();
        for (int other = 0; other < kActors; ++other) {
            data.covariate.back().push_back(
                static_cast<double>(values.covariate[static_cast<int>(actor)][other]));
        }
    }
    return data;
}

template <class Network>
void expect_formulas(const Values& values, const std::set<std::string>& names) {
    TestRandom random(23);
    for (const float lambda : {1.5F, 2.0F, 3.0F}) {
        const EveryEffect<Network> every(lambda, values);
        for (const double density : {0.25, 0.5, 0.8}) {
            const Matrix ties = random_ties<Network>(random, density);
            const std::vector<double> counts = every.counts(ties);
            for (const auto& row : every.rows()) {
                if (!names.empty() && names.count(row.facts.name) == 0) {
                    continue;
                }
                const double expected =
                    formula_value(row.facts.formula, formula_data(ties, values, row.group, lambda));
                EXPECT_TRUE(near(counts[row.place], expected, expected))
                    << row.label << " at lambda " << lambda << ": " << counts[row.place]
                    << ", by its formula " << expected;
            }
        }
    }
}

TEST(CatalogueFacts, FormulasGiveTheCounts) {
    TestRandom random(11);
    const Values values = plain_values(random);
    expect_formulas<Graph>(values, {});
    expect_formulas<Digraph>(values, {});
}

TEST(CatalogueFacts, FormulasOfSendersAndReceiversKnowMissingValues) {
    TestRandom random(12);
    const Values values = random_values(random, {0, 1, kMissing}, {0.5F, 3.0F, 9999.0F}, {1.0F});
    expect_formulas<Digraph>(values, {"sender", "receiver", "sender-missing", "receiver-missing"});
}

TEST(CatalogueFacts, AFormulaOutsideTheNotationIsRefused) {
    FormulaData data;
    data.ties = Matrix(3, std::vector<int>(3, 1));
    for (const char* formula : {"sum_i z_i", "sum_{i<j} x_ik", "(1", "1)", "[1 < 2]"}) {
        EXPECT_THROW(formula_value(formula, data), std::invalid_argument) << formula;
    }
}

std::string comparable(const std::string& name) {
    std::string letters;
    for (const char character : name) {
        if (character != '-' && character != '_') {
            letters += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
        }
    }
    return letters;
}

TEST(CatalogueFacts, CanonicalNamesTellTheEffectsOfAKindApart) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        const Catalogue& catalogue = catalogue_of(kind);
        std::map<std::string, std::vector<std::string>> bearers;
        for (const StructuralEffect& effect : catalogue.effects) {
            bearers[comparable(effect.facts.name)].emplace_back(effect.row);
        }
        std::vector<std::vector<std::string>> shared;
        for (const auto& [name, rows] : bearers) {
            if (rows.size() > 1) {
                shared.push_back(rows);
            }
        }
        const std::vector<std::vector<std::string>> twins = {{"AS", "AS2"}, {"AT", "AT2"}};
        EXPECT_EQ(shared, kind == NetworkKind::undirected ? twins : decltype(twins){});

        std::map<std::string, std::vector<AttributeGroup>> groups;
        for (const AttributeGroup group : kAllGroups) {
            for (const AttributeEffect& effect : group_catalogue(catalogue, group).effects) {
                const std::string name = comparable(effect.facts.name);
                groups[name].push_back(group);
                EXPECT_EQ(bearers.count(name), 0U) << name;
            }
        }
        for (const auto& [name, of] : groups) {
            EXPECT_TRUE(of.size() == 1 ||
                        of == std::vector({AttributeGroup::binary, AttributeGroup::continuous}))
                << name;
        }
    }
}

TEST(CatalogueFacts, ABinaryAndAContinuousEffectOfOneNameAreOneStatisticOnZeroAndOne) {
    TestRandom random(3);
    Values values = plain_values(random);
    values.reals.assign(values.codes.begin(), values.codes.end());
    const EveryEffect<Digraph> every(2.0F, values);
    const Matrix ties = random_ties<Digraph>(random, 0.4);
    const std::vector<double> counts = every.counts(ties);
    const std::vector<double> changes = every.changes(ties, 2, 4, false);
    int shared = 0;
    for (const auto& a : every.rows()) {
        for (const auto& b : every.rows()) {
            if (!a.structural && !b.structural && a.group < b.group &&
                std::string(a.facts.name) == b.facts.name) {
                ++shared;
                EXPECT_EQ(counts[a.place], counts[b.place]) << a.facts.name;
                EXPECT_EQ(changes[a.place], changes[b.place]) << a.facts.name;
            }
        }
    }
    EXPECT_EQ(shared, 7);
}

TEST(CatalogueFacts, EveryEffectIsFoundByItsNameHoweverItIsWritten) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        const Catalogue& catalogue = catalogue_of(kind);
        for (const int id : catalogue.setup_order) {
            const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
            std::string shouted = std::string("_") + effect.facts.name + "-";
            std::transform(shouted.begin(), shouted.end(), shouted.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
            const int found = find_effect(catalogue, shouted);
            EXPECT_TRUE(found == id || second_effect(catalogue, found) == id) << effect.row;
            EXPECT_EQ(find_effect(catalogue, effect.row), id) << effect.row;
        }
        for (const AttributeGroup group : kAllGroups) {
            const AttributeGroupCatalogue& rows = group_catalogue(catalogue, group);
            for (const int row : rows.setup_order) {
                const AttributeEffect& effect = rows.effects[static_cast<std::size_t>(row)];
                EXPECT_EQ(find_effect(rows, effect.facts.name), row) << effect.update;
                EXPECT_EQ(find_effect(rows, std::string(effect.update).substr(3)), row);
            }
        }
    }
}

TEST(CatalogueFacts, NamesThatNoSetupRowBearsAreNotFound) {
    EXPECT_EQ(find_effect(graph_catalogue(), "P0"), -1);
    EXPECT_EQ(find_effect(digraph_catalogue(), "4-in-star"), -1);
    EXPECT_EQ(find_effect(graph_catalogue(), "arc"), -1);
    EXPECT_EQ(find_effect(graph_catalogue(), ""), -1);
    EXPECT_EQ(find_effect(group_catalogue(graph_catalogue(), AttributeGroup::binary), "sum"), -1);
}

TEST(CatalogueFacts, OnlyTheUndirectedAlternatingStarAndTriangleHaveASecond) {
    const auto second = [](const char* name) {
        const Catalogue& catalogue = graph_catalogue();
        const int id = second_effect(catalogue, find_effect(catalogue, name));
        return id < 0 ? std::string()
                      : std::string(catalogue.effects[static_cast<std::size_t>(id)].row);
    };
    EXPECT_EQ(second("as"), "AS2");
    EXPECT_EQ(second("at"), "AT2");
    EXPECT_EQ(second("AS2"), "");
    EXPECT_EQ(second("edge"), "");
}

}  // namespace
