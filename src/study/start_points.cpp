#include "study/start_points.h"

#include <algorithm>
#include <cmath>

#include "study/choice_estimate.h"
#include "study/pseudo_likelihood.h"

namespace {

// Of each effect whether the model says its value, to hold or to start from.
std::vector<char> given_effects(const Study& study) {
    std::vector<char> given = held_effects(study);
    for (std::size_t k = 0; k < given.size(); ++k) {
        given[k] = given[k] != 0 || study.model.effects[k].start ? 1 : 0;
    }
    return given;
}

}  // namespace

std::vector<double> pseudo_start(const Study& study, StudySelection& resolved) {
    std::vector<double> start = given_values(study);
    const std::vector<char> given = given_effects(study);
    if (std::find(given.begin(), given.end(), 0) == given.end()) {
        return start;
    }
    const IndependentChoices choices = pseudo_choices(study, resolved);
    const ChoiceEstimate found = maximise_choices(choices, start, given);
    return found.outcome == ChoiceOutcome::maximum ? found.parameters
                                                   : penalised_choices(choices, start, given);
}

std::vector<double> plain_start(const Study& study, const StudySelection& resolved, double dyads) {
    std::vector<double> start = given_values(study);
    const std::vector<char> given = given_effects(study);
    const int tie = study.network.directed ? digraph_effect::kArc : graph_effect::kEdge;
    const int place = resolved.selection.structural[static_cast<std::size_t>(tie)].position;
    const auto ties = static_cast<double>(study.network.ties.size());
    const double d = std::clamp(ties / dyads, 1e-6, 1.0 - 1e-6);
    for (std::size_t k = 0; k < start.size(); ++k) {
        if (resolved.places[k] == place && given[k] == 0) {
            start[k] = std::log(d / (1.0 - d));
        }
    }
    return start;
}
