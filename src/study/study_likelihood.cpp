#include "study/study_likelihood.h"

#include <algorithm>
#include <cmath>

#include "base/no_number.h"
#include "study/dyad_independent.h"
#include "study/identification.h"

namespace {

double dyads_of(const Study& study) {
    const auto n = static_cast<double>(study.network.actors.size());
    return study.dyads.restricted ? static_cast<double>(study.dyads.free.size())
                                  : n * (n - 1.0) / (study.network.directed ? 1.0 : 2.0);
}

// The cap that could ever refuse a tie.
bool capped(const Study& study) {
    return study.dyads.max_degree &&
           *study.dyads.max_degree + 1 < static_cast<int>(study.network.actors.size());
}

void add_criteria(const Study& study, StudyLikelihood& found) {
    for (const StudyEffect& effect : study.model.effects) {
        found.parameters += effect.fixed ? 0 : 1;
    }
    found.deviance = -2.0 * found.value;
    found.aic = found.deviance + 2.0 * found.parameters;
    found.bic = found.deviance + std::log(found.dyads) * found.parameters;
}

}  // namespace

bool dyad_independent(const StudySelection& resolved) {
    const std::vector<Dependence> dependences = effect_dependences(resolved);
    return std::none_of(dependences.begin(), dependences.end(), [](Dependence dependence) {
        return dependence == Dependence::other_dyads;
    });
}

StudyLikelihood study_likelihood(const Study& study, const StudySelection& resolved,
                                 const std::vector<double>& parameters, std::uint64_t seed,
                                 const LikelihoodSettings& settings, RunProgress& progress) {
    StudyLikelihood found;
    found.dyads = dyads_of(study);
    found.exact = dyad_independent(resolved) && !capped(study);
    if (capped(study)) {
        found.value = kNoNumber;
        found.mc_error = kNoNumber;
        found.null_value = kNoNumber;
    } else {
        found.null_value = -found.dyads * std::log(2.0);
        const std::vector<double> reference =
            found.exact ? parameters : dyadic_reference(study, resolved);
        found.value = dyadic_likelihood(study, resolved, reference, false).value;
        if (!found.exact && found.dyads > 0.0) {
            ConstantPath path(study, resolved, reference, parameters, seed, settings, progress);
            found.value += path.walk();
            found.mc_error = path.error();
            found.points = path.points();
            found.proposals = path.proposals();
        }
    }
    add_criteria(study, found);
    return found;
}
