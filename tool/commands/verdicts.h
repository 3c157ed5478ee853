// What a verdict of an estimation means: why it fell, and what to try next.
#pragma once

#include <string>
#include <vector>

#include "commands/model_options.h"
#include "commands/study_input.h"
#include "study/study_estimate.h"

// The exit status of an estimation that ended so.
int verdict_status(StudyVerdict verdict);

// One sentence a reason; none for an estimation that converged.
std::vector<std::string> verdict_reasons(const StudyEstimate& estimate, const StudyInput& input);

// What the commands of an advice are made of.
struct AdviceWords {
    std::string model;   // see model_words
    std::string method;  // that the command line asked for; empty without
};

// Commands to paste, in the order to try them; none for an estimation that converged. None of them
// is the one that has just failed, and a parameter that is held stays so.
std::vector<std::string> verdict_advice(const StudyEstimate& estimate, const StudyInput& input,
                                        const AdviceWords& words);
