// The tables of docs/setup_file.md and docs/output_files.md are those of the code.
//
// With OVRI_RENEW_DOCS=1 the tables are written into the pages instead.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/text_writer.h"
#include "report/output_paths.h"
#include "run/setup_items.h"
#include "support/scratch_directory.h"

namespace {

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : between) + word;
    }
    return text;
}

std::string row(const std::vector<std::string>& cells) {
    std::string text = "|";
    for (const std::string& cell : cells) {
        text += cell.empty() ? " |" : " " + cell + " |";
    }
    return text + "\n";
}

std::string head(const std::vector<std::string>& cells) {
    std::string text = row(cells) + "|";
    for (std::size_t k = 0; k < cells.size(); ++k) {
        text += "---|";
    }
    return text + "\n";
}

// Words with commas between them, in lines of a page's width.
std::string wrapped(const std::vector<std::string>& words) {
    constexpr std::size_t kWidth = 98;
    std::string text;
    std::size_t column = 0;
    for (std::size_t k = 0; k < words.size(); ++k) {
        const std::string word = words[k] + (k + 1 < words.size() ? "," : ".");
        if (column > 0) {
            const bool fits = column + 1 + word.size() <= kWidth;
            text += fits ? " " : "\n";
            column = fits ? column + 1 : 0;
        }
        text += word;
        column += word.size();
    }
    return text + "\n";
}

// -- The setup file

const char* value_text(SetupValue value) {
    switch (value) {
        case SetupValue::line:
            return "line";
        case SetupValue::real:
            return "number";
        case SetupValue::flag:
            return "flag";
        case SetupValue::count:
            return "count";
        case SetupValue::number:
            break;
    }
    return "whole number";
}

std::string lead_text(SetupLead lead) {
    return lead == SetupLead::label     ? ""
           : lead == SetupLead::if_read ? ", no label"
                                        : ", no label; only behind a flag of 1";
}

std::string modes_text(RunModes modes) {
    std::vector<std::string> found;
    for (int mode = 1; mode <= 4; ++mode) {
        if (has_mode(modes, static_cast<RunMode>(mode))) {
            found.push_back(std::to_string(mode));
        }
    }
    return found.size() == 4 ? "all" : joined(found, ", ");
}

std::string number_text(double value) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.6g", value);
    return digits.data();
}

// What the setting is where the file does not say it.
struct Default {
    std::string operator()(std::monostate) const { return ""; }
    std::string operator()(std::string RunSettings::*) const { return ""; }
    std::string operator()(bool OutputSwitches::*) const { return "0"; }
    template <class Value>
    std::string operator()(Value RunSettings::*member) const {
        return number_text(static_cast<double>(RunSettings().*member));
    }
    template <class Value>
    std::string operator()(Value EstimationSettings::*member) const {
        return number_text(static_cast<double>(EstimationSettings().*member));
    }
};

std::string item_row(const SetupItem& item, const std::string& name) {
    return row({name, modes_text(item.modes),
                std::string(value_text(item.value)) + lead_text(item.lead),
                std::visit(Default(), item.member), item.range != nullptr ? item.range : "",
                item.meaning});
}

std::string item_table(SetupPart part) {
    std::string text = head({"Item", "Modes", "Value", "Default", "Range", "Meaning"});
    for (const SetupItem& item : setup_items()) {
        if (item.part == part) {
            text += item_row(item, text_with_name(item.name, "..."));
        }
        if (part == SetupPart::body && item.id == SetupId::attribute_section) {
            const SetupKey covariates{SetupId::group_section, AttributeGroup::covariate};
            text += item_row(setup_item(covariates.id), setup_name(covariates, nullptr));
        }
    }
    return text;
}

std::string structural_lists() {
    std::string text;
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        const Catalogue& catalogue = catalogue_of(kind);
        std::vector<std::string> names;
        for (const int id : catalogue.setup_order) {
            const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
            const std::string mark = effect.traits.alternating ? "*" : "";
            names.push_back(mark + effect.row + mark);
        }
        text += text.empty() ? "**Undirected (" : "\n**Directed (";
        text += std::to_string(names.size()) + "):**\n" + wrapped(names);
    }
    return text;
}

std::string block_rows() {
    std::string text = head({"Block", "Undirected rows", "Directed rows"});
    for (const AttributeGroup group : kAllGroups) {
        std::vector<std::string> cells = {group_name(group)};
        for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
            const Catalogue& catalogue = catalogue_of(kind);
            std::vector<std::string> names;
            for (const int each : group_catalogue(catalogue, group).setup_order) {
                const std::string name =
                    setup_effect({SetupId::group_flag, group, each, 0}, catalogue, "");
                names.push_back(name.substr(name.starts_with("_") ? 1 : 0));
            }
            cells.push_back(joined(names, ", "));
        }
        text += row(cells);
    }
    return text;
}

// -- The output files

std::string case_text(const OutputCase& which, bool switched) {
    if (!which.undirected && !which.directed) {
        return "";
    }
    std::vector<std::string> words;
    if (which.undirected != which.directed) {
        words.emplace_back(which.directed ? "directed" : "undirected");
    }
    if (switched) {
        words.emplace_back("switch");
    }
    if (which.unless_degenerate) {
        words.emplace_back("not degenerate");
    }
    if (which.if_converged) {
        words.emplace_back("converged");
    }
    if (which.in_fit_after) {
        words.emplace_back("fit after it");
    }
    return words.empty() ? "yes" : joined(words, ", ");
}

std::string output_table() {
    std::string text =
        head({"File", "Simulation", "Estimation", "Fit", "Bayesian fit", "", "Content"});
    for (const OutputFile& file : output_files()) {
        if (is_update_file(file)) {
            continue;
        }
        std::vector<std::string> cells = {"`" + text_with_name(file.name, "NET") +
                                          (is_sample_report(file) ? "N.txt`" : "`")};
        for (const OutputCase& which : file.cases) {
            cells.push_back(case_text(which, file.on_switch != nullptr));
        }
        cells.emplace_back(file.growth == OutputGrowth::added ? "added" : "new");
        cells.emplace_back(file.meaning);
        text += row(cells);
    }
    return text;
}

std::string update_table() {
    std::string text = head({"Undirected", "Directed", "Content"});
    for (const OutputFile& file : output_files()) {
        if (!is_update_file(file) || !file.cases[1].undirected) {
            continue;
        }
        for (const OutputFile& other : output_files()) {
            if (other.path == file.path && other.cases[1].directed) {
                text += row({"`" + std::string(file.name) + "`",
                             "`" + std::string(other.name) + "`", file.meaning});
            }
        }
    }
    return text;
}

// -- Pages

void expect_page(const std::string& name,
                 const std::vector<std::pair<std::string, std::string>>& tables) {
    const std::filesystem::path path = std::filesystem::path(OVRI_SOURCE_DIRECTORY) / "docs" / name;
    const std::string page = file_text(path);
    std::string renewed = page;
    for (const auto& [title, table] : tables) {
        const std::string mark = "<!-- table: " + title + " -->\n";
        const std::size_t begin = renewed.find(mark);
        const std::size_t end = renewed.find("<!-- end -->", begin);
        ASSERT_NE(begin, std::string::npos) << mark;
        ASSERT_NE(end, std::string::npos) << mark;
        renewed.replace(begin + mark.size(), end - begin - mark.size(), "\n" + table + "\n");
    }
    if (std::getenv("OVRI_RENEW_DOCS") != nullptr) {
        std::ofstream(path) << renewed;
        return;
    }
    EXPECT_EQ(page, renewed) << "OVRI_RENEW_DOCS=1 writes the tables into docs/" << name;
}

TEST(Pages, TheSetupFilesTablesAreThoseOfTheCode) {
    expect_page("setup_file.md", {{"head", item_table(SetupPart::head)},
                                  {"body", item_table(SetupPart::body)},
                                  {"structural row", item_table(SetupPart::structural_row)},
                                  {"structural rows", structural_lists()},
                                  {"block", item_table(SetupPart::block)},
                                  {"block row", item_table(SetupPart::block_row)},
                                  {"block rows", block_rows()}});
}

TEST(Pages, TheOutputFilesTablesAreThoseOfTheCode) {
    expect_page("output_files.md", {{"outputs", output_table()}, {"updates", update_table()}});
}

}  // namespace
