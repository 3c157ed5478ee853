#include "formats/host_section.h"

#include <algorithm>

#include "study/names.h"

namespace {

using Keys = std::vector<std::string>;

void read_numbers(SectionReader& reader, const char* key, std::map<std::string, double>& numbers,
                  const TomlFile& file) {
    const toml::node* node = reader.find(key);
    const toml::table* table = node != nullptr ? node->as_table() : nullptr;
    if (table == nullptr) {
        if (node != nullptr) {
            reader.wrong_value(key, *node, "numbers by row, such as { A2P = 1.5 }");
        }
        return;
    }
    SectionReader values(*table, std::string("host.") + key, file);
    for (const auto& [row, value] : *table) {
        const std::string name(row.str());
        if (const auto number = values.number(name.c_str())) {
            numbers[name] = *number;
        }
    }
}

void read_outputs(SectionReader& reader, OutputSwitches& outputs) {
    const toml::node* node = reader.find("outputs");
    if (node == nullptr) {
        return;
    }
    const std::vector<OutputSwitchName> known = output_switch_names();
    Keys names;
    for (const OutputSwitchName& each : known) {
        names.push_back(each.name);
    }
    const toml::array* list = node->as_array();
    if (list == nullptr) {
        reader.wrong_value("outputs", *node, "a list of " + listed_names(names));
        return;
    }
    for (const toml::node& each : *list) {
        const std::string name = each.value_or(std::string());
        const auto place = std::find_if(
            known.begin(), known.end(),
            [&name](const OutputSwitchName& output) { return names_match(output.name, name); });
        if (place == known.end()) {
            reader.wrong_value("outputs", each, "one of " + listed_names(names));
        } else {
            outputs.*(place->member) = true;
        }
    }
}

}  // namespace

void read_host_section(SectionReader reader, const TomlFile& file, HostRun& host) {
    constexpr NumberRange kProposals = {0, 1e18};
    reader.check_keys({"run", "name", "output", "proposal", "density", "fit", "outputs", "burn_in",
                       "iterations", "covariance", "values", "lambdas"});
    std::string mode;
    reader.text("run", mode);
    if (const auto known = run_mode_of(mode)) {
        host.mode = *known;
    } else if (!mode.empty()) {
        reader.wrong_value("run", *reader.find("run"), "one of " + listed_names(run_mode_names()));
    }
    reader.text("name", host.name);
    reader.text("output", host.output);
    reader.text("covariance", host.covariance);
    reader.whole("proposal", host.proposal_kind, {-2147483648.0, 2147483647.0});
    std::optional<bool> fit;
    reader.flag("fit", fit);
    host.fit_after = fit.value_or(false);
    host.density = reader.number("density", {0, 1});
    host.burn_in = reader.number("burn_in", kProposals);
    host.iterations = reader.number("iterations", kProposals);
    read_outputs(reader, host.outputs);
    read_numbers(reader, "values", host.values, file);
    read_numbers(reader, "lambdas", host.lambdas, file);
}
