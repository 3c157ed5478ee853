#include "study/study_likelihood.h"

#include <algorithm>
#include <cmath>

#include "base/no_number.h"
#include "study/dyad_independent.h"
#include "study/identification.h"

namespace {

// The cap that could ever refuse a tie.
bool capped(const Study& study) {
    return study.dyads.max_degree &&
           *study.dyads.max_degree + 1 < static_cast<int>(study.network.actors.size());
}

}  // namespace

LikelihoodCriteria likelihood_criteria(double value, const Study& study) {
    const auto parameters =
        static_cast<double>(std::count_if(study.model.effects.begin(), study.model.effects.end(),
                                          [](const StudyEffect& effect) { return !effect.fixed; }));
    const double deviance = -2.0 * value;
    return {deviance, deviance + 2.0 * parameters,
            deviance + std::log(free_dyads(study)) * parameters};
}

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
    found.dyads = free_dyads(study);
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
    return found;
}
