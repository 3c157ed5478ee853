#include "study/chain_approximation.h"

#include <algorithm>
#include <cmath>

#include "study/positive_matrix.h"

namespace {

// One step against the excess of the networks just drawn; of networks that have leapt away only the
// direction counts.
std::vector<double> damped_step(const ChainDraw& from, const std::vector<double>& excess,
                                double gain) {
    constexpr double kLongest = 0.25;
    const double size = std::sqrt(inverse_form(from.lower, excess));
    const double part = std::min(gain, size > 0.0 ? kLongest / size : gain);
    std::vector<double> step = cholesky_solve(from.lower, excess);
    for (double& each : step) {
        each *= part;
    }
    return step;
}

}  // namespace

std::vector<double> approximated_point(const ChainDraw& from, const DrawFrame& frame,
                                       StudyChains& chains, StudyEstimate& estimate,
                                       RunProgress& progress) {
    constexpr int kSubPhases = 4;
    constexpr int kLength = 40;
    std::vector<double> at = from.parameters;
    double gain = 0.2;
    for (int phase = 0; phase < kSubPhases; ++phase, gain *= 0.5) {
        std::vector<double> sum(at.size(), 0.0);
        const int length = kLength * (phase + 1);
        progress_start(
            progress, RunStage::chains,
            static_cast<double>(length) * static_cast<double>(from.interval) * frame.chains);
        for (int count = 0; count < length; ++count) {
            add_step(estimate.path, "approximation", at);
            const ChainSamples drawn = chains.run(at, 0, from.interval, 1, progress);
            estimate.proposals += drawn.proposals;
            const SampleMoments moments = sample_moments(drawn.statistics);
            std::vector<double> excess;
            excess.reserve(frame.free.size());
            for (const int k : frame.free) {
                const auto effect = static_cast<std::size_t>(k);
                excess.push_back(frame.observed[effect] - moments.means[effect]);
            }
            at = moved(at, frame, damped_step(from, excess, gain));
            for (std::size_t k = 0; k < at.size(); ++k) {
                sum[k] += at[k] / length;
            }
        }
        at = sum;
    }
    return at;
}

std::vector<double> moved(std::vector<double> parameters, const DrawFrame& frame,
                          const std::vector<double>& step) {
    for (std::size_t k = 0; k < frame.free.size(); ++k) {
        parameters[static_cast<std::size_t>(frame.free[k])] += step[k];
    }
    return parameters;
}
