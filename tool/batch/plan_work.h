// A plan's jobs as an engine carries them out: each is `ovri batch PLAN --job K`.
#pragma once

#include <string>

#include "batch/emit.h"
#include "batch/plan_check.h"

// The plan as seen from the folder, and outliving the work. Where the seconds that a proposal takes
// are known, jobs are given a time.
EngineWork plan_work(const Plan& plan, const PlanCheck& check, const std::string& plan_file,
                     double seconds_per_proposal);
