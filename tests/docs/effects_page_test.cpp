// docs/effects.md is the encyclopaedia of effects.
//
// With OVRI_RENEW_DOCS=1 the page is written instead.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "encyclopaedia/effect_article.h"
#include "support/scratch_directory.h"

namespace {

using Style = ArticleSection::Style;

constexpr const char* kHead =
    R"(# Effects

Every effect of a model, as `ovri effects NAME` tells it; `ovri effects` lists them, `ovri effects
--search WORDS` finds some, `ovri effects --json` gives everything as a document. A name is read
without regard to case, `-` and `_`; an attribute effect is written with its attribute, `same(sex)`,
an alternating one with its lambda, `AT(2)`. An estimate belongs to the formula of the change: where
count and change part, the entry says so.

[decisions.md](decisions.md) tells why some are as odd as they are,
[adding_an_effect.md](adding_an_effect.md) how another one is made.
)";

std::string heading_of(const EffectEntry& entry) {
    return std::string(entry.kind == NetworkKind::undirected ? "Undirected" : "Directed") + ": " +
           section_title(entry);
}

std::string in_backticks(const std::string& text) { return "`" + text + "`"; }

// '*', '_', '<', '|' and '#' have a meaning in a page; between backticks they have none.
std::string escaped(const std::string& text) {
    std::string page;
    bool code = false;
    for (const char character : text) {
        code = character == '`' ? !code : code;
        if (!code && std::string("*_<|#").find(character) != std::string::npos) {
            page += '\\';
        }
        page += character;
    }
    return page;
}

std::string section_text(const ArticleSection& section) {
    std::string text = section.title.empty() ? "" : "**" + section.title + "**\n\n";
    for (const std::string& line : section.lines) {
        switch (section.style) {
            case Style::drawing:
                text += line.empty() ? "\n" : "    " + line + "\n";
                break;
            case Style::formula:
                text += in_backticks(line) + "\n";
                break;
            case Style::list:
                text += "- " + escaped(line) + "\n";
                break;
            case Style::text:
                text += escaped(line) + "\n";
                break;
        }
    }
    return text + "\n";
}

std::string article(const EffectEntry& entry) {
    std::string text =
        "### " + in_backticks(written_name(entry)) + "\n\n" + escaped(entry.facts.meaning) + "\n\n";
    for (const ArticleSection& section : article_sections(entry)) {
        text += section_text(section);
    }
    return text;
}

// The headings in the order of families and groups, each with its entries.
std::vector<std::pair<std::string, std::vector<const EffectEntry*>>> grouped() {
    std::vector<std::pair<std::string, std::vector<const EffectEntry*>>> groups;
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (int place = 0; place < kFamilies + kAttributeGroups; ++place) {
            std::vector<const EffectEntry*> members;
            for (const EffectEntry& entry : effect_entries()) {
                const int of = entry.group ? kFamilies + static_cast<int>(*entry.group)
                                           : static_cast<int>(entry.page->family);
                if (entry.kind == kind && of == place) {
                    members.push_back(&entry);
                }
            }
            if (!members.empty()) {
                groups.emplace_back(heading_of(*members.front()), members);
            }
        }
    }
    return groups;
}

std::string page() {
    std::string text = kHead;
    for (const auto& [heading, entries] : grouped()) {
        text += "\n## " + heading + "\n\n| Effect | |\n|---|---|\n";
        for (const EffectEntry* entry : entries) {
            text += "| " + in_backticks(written_name(*entry)) + " | " +
                    escaped(entry->facts.meaning) + " |\n";
        }
        text += "\n";
        for (const EffectEntry* entry : entries) {
            text += article(*entry);
        }
        text.pop_back();
    }
    return text;
}

TEST(EffectsPage, IsTheEncyclopaedia) {
    const std::filesystem::path path =
        std::filesystem::path(OVRI_SOURCE_DIRECTORY) / "docs" / "effects.md";
    const std::string expected = page();
    if (std::getenv("OVRI_RENEW_DOCS") != nullptr) {
        std::ofstream(path) << expected;
        return;
    }
    EXPECT_TRUE(file_text(path) == expected) << "OVRI_RENEW_DOCS=1 writes docs/effects.md anew";
}

TEST(EffectsPage, HasEveryEffectOnce) {
    const std::string text = page();
    std::size_t articles = 0;
    for (std::size_t place = text.find("\n### `"); place != std::string::npos;
         place = text.find("\n### `", place + 1)) {
        ++articles;
    }
    EXPECT_EQ(articles, effect_entries().size());
}

}  // namespace
