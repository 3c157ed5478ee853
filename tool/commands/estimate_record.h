// What an estimation found, as the record that result.json is made of.
#pragma once

#include "commands/study_input.h"
#include "commands/verdicts.h"
#include "study/study_estimate.h"

// `usable`: whether the estimates converged, so that tests and intervals mean something.
ResultEffect result_effect(const EffectEstimate& found, bool usable);

// All but the bootstrap.
ResultRecord result_of(const StudyEstimate& found, const StudyInput& input,
                       const AdviceWords& words);
