#include "study/drawn_estimate.h"

#include <cmath>

#include "base/no_number.h"
#include "study/positive_matrix.h"

namespace {

Matrix correlation_of(const Matrix& covariance) {
    Matrix correlation = matrix_create(covariance.rows, covariance.columns, kNoNumber);
    for (int i = 0; i < covariance.rows; ++i) {
        for (int j = 0; j < covariance.columns; ++j) {
            correlation[i][j] = covariance[i][j] / std::sqrt(covariance[i][i] * covariance[j][j]);
        }
    }
    return correlation;
}

void describe(StudyEstimate& estimate, const ChainDraw& draw, const DrawFrame& frame, int runs) {
    StudyDiagnosis& diagnosis = estimate.diagnosis;
    diagnosis.chains = frame.chains;
    diagnosis.burn_in = draw.burn_in;
    diagnosis.interval = draw.interval;
    diagnosis.runs = runs;
    diagnosis.hotelling_p_value = draw.p_value;
    diagnosis.clusters = draw.clusters;
    diagnosis.correlation = correlation_of(draw.moments.covariance);
    for (std::size_t k = 0; k < estimate.effects.size(); ++k) {
        const std::vector<double> values =
            sample_column(draw.samples.statistics, static_cast<int>(k));
        EffectEstimate& effect = estimate.effects[k];
        effect.effective_samples =
            static_cast<double>(values.size()) / autocorrelation_time(values, frame.chains);
        effect.gelman_rubin = gelman_rubin(values, frame.chains);
    }
}

}  // namespace

void take_draw(StudyEstimate& estimate, const ChainDraw& draw, const DrawFrame& frame, int runs) {
    estimate.samples = draw.samples.statistics;
    estimate.sample_chain = draw.samples.chain;
    estimate.sample_draw = draw.samples.draw;
    for (std::size_t k = 0; k < estimate.effects.size(); ++k) {
        EffectEstimate& effect = estimate.effects[k];
        const int at = static_cast<int>(k);
        effect.estimate = draw.parameters[k];
        effect.simulated_mean = draw.moments.means[k];
        effect.simulated_sd = std::sqrt(draw.moments.covariance[at][at]);
        effect.t_ratio = t_ratio(draw, frame, at);
    }
    if (draw.dependent.empty()) {
        estimate.covariance = spread_matrix(draw.inverse, frame.free, draw.moments.covariance.rows);
        for (std::size_t k = 0; k < frame.free.size(); ++k) {
            EffectEstimate& effect = estimate.effects[static_cast<std::size_t>(frame.free[k])];
            const int at = static_cast<int>(k);
            effect.standard_error = std::sqrt(draw.inverse[at][at]);
            effect.mc_error = effect.standard_error / std::sqrt(draw.effective(k));
        }
    }
    describe(estimate, draw, frame, runs);
}

void take_pool(StudyEstimate& estimate, const ChainDraw& draw, const EstimatePool& pool,
               const DrawFrame& frame, int runs) {
    take_draw(estimate, draw, frame, runs);
    const auto lower = cholesky(pool.covariance());
    Matrix inverse = lower ? cholesky_inverse(*lower) : draw.inverse;
    for (std::size_t k = 0; k < frame.free.size(); ++k) {
        const int at = static_cast<int>(k);
        EffectEstimate& effect = estimate.effects[static_cast<std::size_t>(frame.free[k])];
        effect.estimate = pool.value(k);
        effect.mc_error = pool.error(k) * std::sqrt(inverse[at][at]);
        inverse[at][at] += effect.mc_error * effect.mc_error;
        effect.standard_error = std::sqrt(inverse[at][at]);
    }
    estimate.covariance =
        spread_matrix(inverse, frame.free, static_cast<int>(estimate.effects.size()));
}
