// What the pages say of each effect, held against the catalogue and its functions.
#include "encyclopaedia/effect_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "encyclopaedia/effect_article.h"
#include "encyclopaedia/effect_entries.h"
#include "support/every_effect.h"

namespace {

using namespace every_effect;

// The page of a row; null for those that no setup row selects.
template <class Row>
const EffectPage* page_of(NetworkKind kind, const Row& row) {
    std::string label = row.label;
    if (row.structural && (label == "AS2" || label == "AT2")) {
        label.pop_back();
    }
    const std::span<const EffectPage> pages =
        row.structural ? structural_pages(kind) : attribute_pages(kind, row.group);
    for (const EffectPage& page : pages) {
        if (page.row == label) {
            return &page;
        }
    }
    return nullptr;
}

template <class Network>
std::set<const EffectPage*> expect_changes(const Values& values,
                                           const std::vector<float>& lambdas) {
    TestRandom random(31);
    std::set<const EffectPage*> compared;
    for (const float lambda : lambdas) {
        const EveryEffect<Network> every(lambda, values);
        for (const double density : {0.0, 0.25, 0.5, 0.8}) {
            const Matrix ties = random_ties<Network>(random, density);
            for (const auto& [i, j] : all_pairs<Network>()) {
                if ((i + j) % 3 != 0) {
                    continue;
                }
                Matrix without = ties;
                set_tie<Network>(without, i, j, 0);
                const std::vector<double> changes = every.changes(ties, i, j, false);
                for (const auto& row : every.rows()) {
                    const EffectPage* page = page_of(kKind<Network>, row);
                    if (page == nullptr || page->change == nullptr) {
                        continue;
                    }
                    const double expected = change_formula_value(
                        page->change, formula_data(without, values, row.group, lambda), i, j);
                    EXPECT_TRUE(near(changes[row.place], expected, expected))
                        << row.label << " at lambda " << lambda << ": " << changes[row.place]
                        << ", by its formula " << expected;
                    compared.insert(page);
                }
            }
        }
    }
    return compared;
}

TEST(EffectPages, FormulasOfChangesGiveTheChanges) {
    TestRandom random(17);
    const Values values = plain_values(random);
    EXPECT_EQ(expect_changes<Graph>(values, {1.5F, 2.0F, 3.0F}).size(), 33U - 3U + 21U);
    EXPECT_EQ(expect_changes<Digraph>(values, {1.5F, 2.0F, 3.0F}).size(), 42U + 28U);
}

TEST(EffectPages, FormulasOfChangesKnowMissingValues) {
    TestRandom random(18);
    const Values values = random_values(random, {0, 1, kMissing}, {0.5F, 9999.0F}, {1.0F});
    const EveryEffect<Digraph> every(2.0F, values);
    const Matrix ties = random_ties<Digraph>(random, 0.4);
    int compared = 0;
    for (const auto& [i, j] : all_pairs<Digraph>()) {
        Matrix without = ties;
        set_tie<Digraph>(without, i, j, 0);
        const std::vector<double> changes = every.changes(ties, i, j, false);
        for (const auto& row : every.rows()) {
            if (row.label.find("_missing") != std::string::npos) {
                const FormulaData data = formula_data(without, values, row.group, 2.0F);
                EXPECT_EQ(
                    changes[row.place],
                    change_formula_value(page_of(NetworkKind::directed, row)->change, data, i, j))
                    << row.label;
                ++compared;
            }
        }
    }
    EXPECT_EQ(compared, 4 * kActors * (kActors - 1));
}

// Where no formula stands, the page says that the change is the difference of the counts.
TEST(EffectPages, ChangesInWordsAreDifferencesOfCounts) {
    std::vector<std::string> rows;
    for (const EffectEntry& entry : effect_entries()) {
        if (entry.page->change == nullptr) {
            rows.emplace_back(entry.row);
            EXPECT_EQ(entry.facts.agreement, Agreement::always) << entry.row;
        }
    }
    EXPECT_EQ(rows, (std::vector<std::string>{"Q20", "Q30", "Q31"}));
}

template <class Network>
int expect_identities(const Values& values) {
    TestRandom random(37);
    int compared = 0;
    for (const float lambda : {1.5F, 2.0F, 4.0F}) {
        const EveryEffect<Network> every(lambda, values);
        for (const double density : {0.25, 0.7}) {
            const Matrix ties = random_ties<Network>(random, density);
            const std::vector<double> counts = every.counts(ties);
            for (const auto& row : every.rows()) {
                const EffectPage* page = page_of(kKind<Network>, row);
                if (page == nullptr || page->identity == nullptr) {
                    continue;
                }
                const double expected =
                    formula_value(page->identity, formula_data(ties, values, row.group, lambda));
                EXPECT_TRUE(near(counts[row.place], expected, expected))
                    << row.label << " at lambda " << lambda << ": " << counts[row.place] << ", by "
                    << page->identity << " " << expected;
                ++compared;
            }
        }
    }
    return compared;
}

TEST(EffectPages, TermsOfOtherPackagesMakeUpTheCount) {
    TestRandom random(19);
    const Values values = plain_values(random);
    EXPECT_GT(expect_identities<Graph>(values), 0);
    EXPECT_GT(expect_identities<Digraph>(values), 0);
}

// The changes of a 3-path are those of the trails that other packages count.
TEST(EffectPages, ThreePathsChangeAsTrailsDo) {
    const std::string trails = "sum_{i<j} x_ij (d_i - 1) (d_j - 1)";
    TestRandom random(20);
    const Values values = plain_values(random);
    const EveryEffect<Graph> every(2.0F, values);
    const auto rows = every.rows();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [](const auto& each) { return each.label == "3Path"; });
    ASSERT_NE(row, rows.end());
    const Matrix ties = random_ties<Graph>(random, 0.5);
    for (const auto& [i, j] : all_pairs<Graph>()) {
        Matrix more = ties;
        Matrix less = ties;
        set_tie<Graph>(more, i, j, 1);
        set_tie<Graph>(less, i, j, 0);
        const auto count = [&](const Matrix& of) {
            return formula_value(trails, formula_data(of, values, AttributeGroup::binary, 2.0F));
        };
        EXPECT_EQ(every.changes(ties, i, j, false)[row->place], count(more) - count(less));
    }
}

// -- Weights

// The network in which actors 0 and 1 have `k` common neighbours, tied themselves or not.
Matrix shared(int k, int tie) {
    Matrix ties(kActors, std::vector<int>(kActors, 0));
    set_tie<Graph>(ties, 0, 1, tie);
    for (int other = 2; other < 2 + k; ++other) {
        set_tie<Graph>(ties, 0, other, 1);
        set_tie<Graph>(ties, 1, other, 1);
    }
    return ties;
}
Matrix star(int k) {
    Matrix ties(kActors, std::vector<int>(kActors, 0));
    for (int other = 1; other <= k; ++other) {
        set_tie<Graph>(ties, 0, other, 1);
    }
    return ties;
}

TEST(EffectPages, DrawnWeightsAreWhatTheKthAdds) {
    TestRandom random(21);
    const Values values = plain_values(random);
    for (const float lambda : {1.5F, 2.0F, 4.0F}) {
        const EveryEffect<Graph> every(lambda, values);
        const auto count = [&](const char* label, const Matrix& ties) {
            for (const auto& row : every.rows()) {
                if (row.label == label) {
                    return every.counts(ties)[row.place];
                }
            }
            return 0.0;
        };
        const auto real = static_cast<double>(lambda);
        for (int k = 1; k <= 5; ++k) {
            EXPECT_NEAR(count("AS", star(k)) - count("AS", star(k - 1)),
                        lambda_weight(WeightLaw::rising, real, k), 1e-5);
            // The ties to the k-th neighbour have one common neighbour each.
            EXPECT_NEAR(count("AT", shared(k, 1)) - count("AT", shared(k - 1, 1)) - 2.0,
                        lambda_weight(WeightLaw::falling, real, k), 1e-5);
            // The k-th neighbour shares two with each of the k - 1 others.
            EXPECT_NEAR(count("A2P", shared(k, 0)) - count("A2P", shared(k - 1, 0)) -
                            (k - 1) * (1.0 + lambda_weight(WeightLaw::falling, real, 2)),
                        lambda_weight(WeightLaw::falling, real, k), 1e-5);
        }
        double clique = 0.0;
        for (int k = 4; k <= 8; ++k) {
            // Choose k of 8 for the complete network of 8 actors.
            const std::array<double, 5> cliques = {70, 56, 28, 8, 1};
            clique += cliques[static_cast<std::size_t>(k - 4)] *
                      lambda_weight(WeightLaw::alternating, real, k);
        }
        Matrix complete(kActors, std::vector<int>(kActors, 1));
        for (std::size_t actor = 0; actor < kActors; ++actor) {
            complete[actor][actor] = 0;
        }
        EXPECT_NEAR(count("AC", complete), clique, 1e-4);
    }
}

TEST(EffectPages, TheLambdasOfAllAlternatingEffectsButOneAreDrawn) {
    for (const EffectEntry& entry : effect_entries()) {
        const bool drawn = entry.page->lambda.law != WeightLaw::none;
        EXPECT_EQ(drawn, entry.alternating && std::string(entry.row) != "AEAT") << entry.row;
    }
}

// -- Completeness

TEST(EffectPages, EveryEffectHasAPageAndEveryPageAnEffect) {
    std::set<const EffectPage*> used;
    for (const EffectEntry& entry : effect_entries()) {
        ASSERT_NE(entry.page, nullptr) << entry.row;
        EXPECT_TRUE(used.insert(entry.page).second) << entry.row;
    }
    std::size_t pages = 0;
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        pages += structural_pages(kind).size();
        for (const AttributeGroup group : kAllGroups) {
            pages += attribute_pages(kind, group).size();
        }
    }
    EXPECT_EQ(used.size(), pages);
}

TEST(EffectPages, EveryFieldOfAPageIsFilled) {
    for (const EffectEntry& entry : effect_entries()) {
        const EffectPage& page = *entry.page;
        EXPECT_FALSE(std::string(page.keywords).empty()) << entry.row;
        EXPECT_FALSE(std::string(page.literature).empty()) << entry.row;
        EXPECT_EQ(page.terms == nullptr, page.conversion == nullptr) << entry.row;
        EXPECT_FALSE(drawing_lines(entry).empty()) << entry.row;
        for (const std::string& line : drawing_lines(entry)) {
            EXPECT_LE(line.size(), 60U) << entry.row;
            EXPECT_FALSE(line.ends_with(' ')) << entry.row << ": " << line;
        }
        const bool of_missing_value = std::string(entry.facts.name).ends_with("missing");
        EXPECT_EQ(reference_lines(entry).empty(), of_missing_value) << entry.row;
    }
}

TEST(EffectPages, EverySourceIsReferredTo) {
    std::set<Source> used;
    for (const EffectEntry& entry : effect_entries()) {
        used.insert(entry.page->sources.begin(), entry.page->sources.end());
    }
    EXPECT_EQ(used.size(), static_cast<std::size_t>(kSources));
}

}  // namespace
