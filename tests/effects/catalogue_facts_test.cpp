// What the catalogue says of each effect, held against what its functions do on random networks.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "support/every_effect.h"

namespace {

using namespace every_effect;

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
