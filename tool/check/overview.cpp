#include "check/overview.h"

namespace {

constexpr std::size_t kShownEffects = 8;

const char* mode_name(int mode) {
    switch (static_cast<RunMode>(mode)) {
        case RunMode::simulation:
            return "simulation";
        case RunMode::estimation:
            return "estimation";
        case RunMode::fit:
            return "goodness of fit";
        default:
            return "Bayesian goodness of fit";
    }
}

// The selected effects in the order of their rows; those of an attribute as "activity of binary
// attribute 1".
std::vector<std::string> effect_names(const SetupView& view) {
    std::vector<std::string> names;
    for (std::size_t k = 0; k < view.trusted; ++k) {
        const SetupItem& item = view.trace.items[k];
        const std::string ending = " flag";
        const bool row = k + 1 < view.trusted && item.field.ends_with(ending) &&
                         view.trace.items[k + 1].field.ends_with(" value");
        if (row && integer_word(word_at(view, item.value_offset)).value == 1.0) {
            std::string name = item.field.substr(0, item.field.size() - ending.size());
            if (const std::size_t colon = name.find(": "); colon != std::string::npos) {
                std::string effect = name.substr(colon + 2);
                effect.erase(0, effect.starts_with("_") ? 1 : 0);
                name = effect.append(" of ").append(name, 0, colon);
            }
            names.push_back(name);
        }
    }
    return names;
}

}  // namespace

std::string describe_setup(const SetupView& view) {
    const RunSettings& settings = view.setup.settings;
    if (view.setup.selection.catalogue == nullptr || !all_trusted(view)) {
        return "";
    }
    const std::vector<std::string> names = effect_names(view);
    std::string text =
        std::string(mode_name(settings.run_mode)) +
        (settings.network_kind == static_cast<int>(NetworkKind::directed) ? ", directed"
                                                                          : ", undirected") +
        " network of " + counted(settings.actor_count, "actor") + ", " +
        counted(static_cast<long long>(names.size()), "effect");
    for (std::size_t k = 0; k < names.size() && k < kShownEffects; ++k) {
        text += (k == 0 ? " (" : ", ") + names[k];
    }
    if (!names.empty()) {
        text += names.size() > kShownEffects ? ", ...)" : ")";
    }
    return text;
}
