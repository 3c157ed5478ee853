#include "commands/simulated_values.h"

#include <algorithm>
#include <cmath>

#include "commands/commands.h"
#include "commands/results_model.h"
#include "formats/text_file.h"
#include "terminal/print.h"

namespace {

void set_value(StudyModel& model, const EffectExpression& expression, double value) {
    for (StudyEffect& effect : model.effects) {
        if (effects_match(effect.expression, expression)) {
            (effect.fixed ? effect.fixed : effect.start) = value;
        }
    }
}

// "edge=-2": a problem where it is none.
void take_value(const std::string& text, ModelFile& model) {
    const std::size_t sign = text.find_last_of('=');
    const ParsedEffect effect = parse_effect(without_space(text.substr(0, sign)));
    const std::optional<double> value =
        sign == std::string::npos ? std::nullopt : number_of(text.substr(sign + 1));
    const bool known = std::any_of(
        model.model.effects.begin(), model.model.effects.end(),
        [&](const StudyEffect& each) { return effects_match(each.expression, effect.expression); });
    if (!value || !effect.ok() || !known) {
        model.problems.push_back({.field = "--values",
                                  .found = shown_text(text),
                                  .expected = "EFFECT=VALUE of an effect of the model",
                                  .mend = "write it as in --values 'edge=-2,AT(2)=0.5'"});
        return;
    }
    set_value(model.model, effect.expression, *value);
}

}  // namespace

void take_estimates(const std::string& directory, ModelFile& model) {
    const std::optional<ResultRecord> result = read_result(directory, model.problems);
    if (!result) {
        return;
    }
    if (result->exit_status != kDone) {
        print(stderr, "warning: the estimation of {} ended {}: its estimates are not to be used\n",
              directory, result->verdict);
    }
    for (const ResultEffect& effect : result->effects) {
        if (std::isfinite(effect.estimate)) {
            set_value(model.model, parse_effect(effect.name).expression, effect.estimate);
        }
    }
}

void take_values(const std::string& list, ModelFile& model) {
    if (list.empty()) {
        return;
    }
    for (const EffectText& each : split_effects(list)) {
        take_value(each.text, model);
    }
}
