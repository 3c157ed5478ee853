// Estimating a study whose effects are known to be there.
#pragma once

#include <gtest/gtest.h>

#include "study/study_estimate.h"

inline StudyEstimate estimated(const Study& study, std::uint32_t seed) {
    StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    RunProgress progress;
    return study_estimate(study, resolved, seed, progress);
}
