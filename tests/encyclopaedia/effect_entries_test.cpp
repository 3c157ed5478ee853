// Finding effects in the encyclopaedia, and what its articles are made of.
#include "encyclopaedia/effect_entries.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "encyclopaedia/effect_article.h"

namespace {

constexpr auto kBoth = std::nullopt;

// "undirected AT(lambda)" for each.
std::vector<std::string> names(const std::vector<const EffectEntry*>& entries) {
    std::vector<std::string> found;
    for (const EffectEntry* entry : entries) {
        found.push_back(std::string(kind_name(entry->kind)) + " " + written_name(*entry));
    }
    return found;
}

using Names = std::vector<std::string>;

TEST(EffectEntries, AreAllThatASetupRowSelects) {
    // Two pairs of rows share an entry.
    EXPECT_EQ(effect_entries().size(), (35U - 2U + 21U) + (42U + 28U));
}

TEST(EffectEntries, AreFoundByCanonicalNameHoweverItIsWritten) {
    for (const char* name : {"AT", "at", "A_T", "AT(2)", "AT(lambda)"}) {
        EXPECT_EQ(names(find_entries(name, kBoth)), Names{"undirected AT(lambda)"}) << name;
    }
    EXPECT_EQ(names(find_entries("same(sex)", kBoth)),
              (Names{"undirected same(attribute)", "directed same(attribute)"}));
    EXPECT_EQ(names(find_entries("isolates", NetworkKind::directed)), Names{"directed isolates"});
}

TEST(EffectEntries, AreFoundByTheLabelsOfHostsFiles) {
    for (const char* name : {"Transitive-Triad", "030T", "T9(030T)", "t9"}) {
        EXPECT_EQ(names(find_entries(name, kBoth)), Names{"directed transitive-triad"}) << name;
    }
    EXPECT_EQ(names(find_entries("AS2", kBoth)), Names{"undirected AS(lambda)"});
    EXPECT_EQ(names(find_entries("AinAout-star(2.00)", kBoth)), Names{"directed AinAoutS(lambda)"});
    EXPECT_EQ(names(find_entries("T3u", kBoth)), Names{"undirected triangle-all(attribute)"});
    EXPECT_EQ(names(find_entries("D3", kBoth)), Names{"undirected 3-path"});
}

TEST(EffectEntries, AreFoundByTheTermsOfOtherPackages) {
    EXPECT_EQ(names(find_entries("gwesp(0.5)", NetworkKind::undirected)),
              Names{"undirected AT(lambda)"});
    EXPECT_EQ(find_entries("gwesp", NetworkKind::directed).size(), 4U);
    EXPECT_EQ(names(find_entries("kstar(3)", kBoth)), Names{"undirected 3-star"});
    EXPECT_EQ(find_entries("kstar", kBoth).size(), 4U);
    EXPECT_EQ(names(find_entries("mutual", kBoth)).front(), "directed reciprocity");
}

TEST(EffectEntries, NothingIsFoundForOtherWords) {
    EXPECT_TRUE(find_entries("triangel", kBoth).empty());
    EXPECT_TRUE(find_entries("arc", NetworkKind::undirected).empty());
    EXPECT_TRUE(find_entries("", kBoth).empty());
    EXPECT_TRUE(find_entries("(2)", kBoth).empty());
    EXPECT_TRUE(find_entries("P0", kBoth).empty());
    EXPECT_TRUE(find_entries("4-in-star", kBoth).empty());
}

TEST(EffectEntries, EveryLabelThatAFileShowsFindsItsEntry) {
    for (const EffectEntry& entry : effect_entries()) {
        for (HostLabel label : host_labels(entry)) {
            if (label.label.starts_with("ATTRIBUTE_")) {
                label.label.erase(0, 10);
            }
            const auto found = find_entries(label.label, entry.kind);
            EXPECT_FALSE(found.empty()) << label.label;
        }
        const auto found = find_entries(entry.facts.name, entry.kind);
        EXPECT_NE(std::find(found.begin(), found.end(), &entry), found.end()) << entry.facts.name;
    }
}

TEST(EffectEntries, ASearchLooksForAllItsWords) {
    const auto closure = names(search_entries("CLOSURE", NetworkKind::undirected));
    EXPECT_NE(std::find(closure.begin(), closure.end(), "undirected AT(lambda)"), closure.end());
    EXPECT_EQ(std::find(closure.begin(), closure.end(), "undirected 2-star"), closure.end());
    EXPECT_EQ(names(search_entries("popularity closure", NetworkKind::directed)),
              Names{"directed AT-D(lambda)"});
    EXPECT_TRUE(search_entries("closure zebra", kBoth).empty());
}

TEST(EffectEntries, LabelsAreGroupedByTheFilesThatShowThem) {
    const EffectEntry& entry = *find_entries("transitive-triad", kBoth).front();
    Names lines;
    for (const HostLabel& label : host_labels(entry)) {
        lines.push_back(label.label + ":" + label.places.front());
    }
    EXPECT_EQ(lines,
              (Names{"Transitive-Triad:setup and update files", "T9(030T):values of a simulation",
                     "t9:sample table", "030T:results of an estimation"}));
}

// -- Articles

Names titles(const EffectEntry& entry) {
    Names found;
    for (const ArticleSection& section : article_sections(entry)) {
        found.push_back(section.title);
    }
    return found;
}

TEST(EffectArticle, LeavesOutWhatThereIsNothingToSayOf) {
    EXPECT_EQ(titles(*find_entries("edge", kBoth).front()),
              (Names{"Drawing", "Count", "Change by one more tie", "Letters", "Dependence and cost",
                     "In hosts' files", "In the literature", "In other packages", "References"}));
    EXPECT_EQ(titles(*find_entries("AT", kBoth).front()),
              (Names{"Drawing", "Count", "Change by one more tie", "Letters", "Lambda", "",
                     "Dependence and cost", "Beware", "In hosts' files", "In the literature",
                     "In other packages", "References"}));
}

TEST(EffectArticle, ExplainsTheLettersOfItsFormulasAndNoOthers) {
    const auto letters = [](const char* name) {
        std::string first;
        for (const std::string& line : notation_lines(*find_entries(name, kBoth).front())) {
            first += line.substr(0, line.find_first_of("_: ")) + " ";
        }
        return first;
    };
    EXPECT_EQ(letters("AT"), "x p λ w sum i, sum ");
    EXPECT_EQ(letters("AinAoutS"), "x in m λ w v i, ");
}

TEST(EffectArticle, TellsWhatIsOdd) {
    const auto text = [](const char* name) {
        std::string all;
        for (const std::string& line : oddities(*find_entries(name, kBoth).front())) {
            all += line + "\n";
        }
        return all;
    };
    EXPECT_EQ(text("edge"), "");
    EXPECT_NE(text("AT").find("At lambda 1"), std::string::npos);
    EXPECT_NE(text("3-path").find("drifts"), std::string::npos);
    EXPECT_NE(text("0ET").find("recounted"), std::string::npos);
    EXPECT_NE(text("2-star-centre").find("other values than 0 and 1"), std::string::npos);
    EXPECT_NE(text("covariate-triangle-pairs").find("negative"), std::string::npos);
}

TEST(EffectArticle, DrawsWeightsAsBars) {
    const Names lines = lambda_lines({WeightLaw::falling, "x"});
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_EQ(lines[0], "k    λ = 1.5             λ = 2               λ = 4");
    EXPECT_EQ(lines[2], "2    0.33 ###            0.50 #####          0.75 ########");
    EXPECT_EQ(lambda_lines({WeightLaw::alternating, "x"})[2].substr(0, 12), "5   -0.67 ##");
}

}  // namespace
