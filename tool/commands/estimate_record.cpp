#include "commands/estimate_record.h"

#include <cmath>

#include "study/study_likelihood.h"

namespace {

ResultLikelihood likelihood_of(const StudyEstimate& found, const Study& study) {
    ResultLikelihood likelihood;
    if (!study.dyads.max_degree) {
        likelihood.null_model = -free_dyads(study) * std::log(2.0);
    }
    if (found.verdict != StudyVerdict::converged) {
        return likelihood;
    }
    const LikelihoodCriteria criteria = likelihood_criteria(found.log_likelihood, study);
    likelihood.value = found.log_likelihood;
    likelihood.mc_error = found.log_likelihood_error;
    likelihood.deviance = criteria.deviance;
    likelihood.aic = criteria.aic;
    likelihood.bic = criteria.bic;
    return likelihood;
}

std::optional<ResultDiagnosis> diagnosis_of(const StudyEstimate& found) {
    const StudyDiagnosis& known = found.diagnosis;
    if (known.chains == 0) {
        return std::nullopt;
    }
    ResultDiagnosis diagnosis;
    diagnosis.chains = known.chains;
    diagnosis.burn_in = static_cast<double>(known.burn_in);
    diagnosis.interval = static_cast<double>(known.interval);
    diagnosis.samples = found.samples.rows;
    diagnosis.runs = known.runs;
    diagnosis.approximated = found.approximated;
    diagnosis.hotelling_p_value = known.hotelling_p_value;
    diagnosis.two_kinds = known.clusters.apart;
    diagnosis.dense_share = known.clusters.apart ? known.clusters.upper_share : 0.0;
    for (const EffectEstimate& each : found.effects) {
        diagnosis.effective_samples.push_back(each.effective_samples);
        diagnosis.gelman_rubin.push_back(each.gelman_rubin);
    }
    diagnosis.correlation = known.correlation;
    return diagnosis;
}

}  // namespace

ResultEffect result_effect(const EffectEstimate& found, bool usable) {
    ResultEffect effect;
    effect.name = found.name;
    effect.estimate = found.estimate;
    effect.standard_error = found.standard_error;
    effect.mc_error = found.mc_error;
    effect.t_ratio = found.t_ratio;
    effect.observed = found.observed;
    effect.simulated_mean = found.simulated_mean;
    effect.simulated_sd = found.simulated_sd;
    effect.fixed = found.fixed;
    judge_effect(effect, usable);
    return effect;
}

ResultRecord result_of(const StudyEstimate& found, const StudyInput& input,
                       const AdviceWords& words) {
    ResultRecord result;
    result.ovri = OVRI_VERSION;
    result.command = "estimate";
    result.verdict = study_verdict_name(found.verdict);
    result.exit_status = verdict_status(found.verdict);
    result.reasons = verdict_reasons(found, input);
    result.advice = verdict_advice(found, input, words);
    result.network = result_network(input);
    result.method = estimate_method_name(found);
    result.seed = found.seed;
    result.proposals = found.proposals;
    result.seconds = found.seconds;
    for (const EffectEstimate& each : found.effects) {
        result.effects.push_back(result_effect(each, found.verdict == StudyVerdict::converged));
    }
    result.covariance = found.covariance;
    result.diagnosis = diagnosis_of(found);
    result.path = found.path;
    result.likelihood = likelihood_of(found, input.files.study);
    return result;
}
