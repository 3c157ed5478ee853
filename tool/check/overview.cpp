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
    for (const ReadItem& item : view.trace.items) {
        const bool of_attribute = item.key.id == SetupId::group_flag;
        if ((of_attribute || item.key.id == SetupId::structural_flag) &&
            integer_word(word_at(view, item.value_offset)).value == 1.0) {
            std::string name = setup_effect(item.key, *view.trace.catalogue, "");
            name.erase(0, of_attribute && name.starts_with("_") ? 1 : 0);
            names.push_back(of_attribute ? name + " of " + attribute_of(item.key) : name);
        }
    }
    return names;
}

}  // namespace

std::string describe_setup(const SetupView& view) {
    const RunSettings& settings = view.setup.settings;
    if (view.setup.selection.catalogue == nullptr || !is_sound(view)) {
        return "";
    }
    const std::vector<std::string> names = effect_names(view);
    std::string text = std::string(mode_name(settings.run_mode)) +
                       (is_directed(view) ? ", directed" : ", undirected") + " network of " +
                       counted(settings.actor_count, "actor") + ", " +
                       counted(static_cast<long long>(names.size()), "effect");
    for (std::size_t k = 0; k < names.size() && k < kShownEffects; ++k) {
        text += (k == 0 ? " (" : ", ") + names[k];
    }
    if (!names.empty()) {
        text += names.size() > kShownEffects ? ", ...)" : ")";
    }
    return text;
}
