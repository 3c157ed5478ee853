#include "formats/host_run.h"

#include <algorithm>
#include <array>
#include <variant>

#include "base/named_value.h"
#include "run/setup_items.h"
#include "study/names.h"

namespace {

constexpr std::array<NamedValue<RunMode>, 4> kModes = {{{RunMode::simulation, "simulation"},
                                                        {RunMode::estimation, "estimation"},
                                                        {RunMode::fit, "gof"},
                                                        {RunMode::bayesian_fit, "bayesian-gof"}}};

}  // namespace

const char* run_mode_name(RunMode mode) { return name_in(kModes, mode); }

std::optional<RunMode> run_mode_of(const std::string& name) {
    return value_in(kModes, name, names_match);
}

std::vector<std::string> run_mode_names() {
    std::vector<std::string> names;
    names.reserve(std::size(kModes));
    for (const NamedValue<RunMode>& each : kModes) {
        names.emplace_back(each.name);
    }
    return names;
}

std::vector<OutputSwitchName> output_switch_names() {
    std::vector<OutputSwitchName> names;
    for (const SetupItem& item : setup_items()) {
        if (const auto* member = std::get_if<bool OutputSwitches::*>(&item.member)) {
            std::string name = item.name;
            name.resize(name.rfind(" switch"));
            std::replace(name.begin(), name.end(), ' ', '-');
            names.push_back({name, *member});
        }
    }
    return names;
}
