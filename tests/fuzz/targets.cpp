#include "fuzz/targets.h"

#include <array>

#include "fuzz/readers.h"
#include "fuzz/runs.h"

std::span<const FuzzTarget> fuzz_targets() {
    static constexpr std::array<FuzzTarget, 9> targets = {{{"setup", fuzz_setup},
                                                           {"attributes", fuzz_attributes},
                                                           {"covariates", fuzz_covariates},
                                                           {"matrix", fuzz_matrix},
                                                           {"covariance", fuzz_covariance},
                                                           {"simulation", fuzz_simulation},
                                                           {"estimation", fuzz_estimation},
                                                           {"fit", fuzz_fit},
                                                           {"bayesian_fit", fuzz_bayesian_fit}}};
    return targets;
}

const FuzzTarget* find_fuzz_target(const std::string& name) {
    for (const FuzzTarget& target : fuzz_targets()) {
        if (name == target.name) {
            return &target;
        }
    }
    return nullptr;
}
