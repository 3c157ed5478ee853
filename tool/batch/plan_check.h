// All that can be wrong with a plan's jobs, and what they will cost, before any of them begins.
#pragma once

#include <vector>

#include "batch/jobs.h"
#include "commands/study_input.h"

// What one job of a network and a model is expected to take.
struct JobCost {
    double proposals = 0.0;  // of one run of the stochastic approximation
    double work = 0.0;       // proposals by effects: jobs compare by it
    double bytes = 0.0;      // of memory
};

JobCost job_cost(const StudyInput& input);

struct PlanCheck {
    std::vector<JobCost> costs;  // by pair of network and model
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// Reads every network with every model. A problem that several networks have is told once, with the
// first of them and how many there are.
PlanCheck check_plan(const Plan& plan);

// The same for the pair of one job; costs of others stay 0.
PlanCheck check_job(const Plan& plan, const Job& job);

// Seconds that a proposal takes on this machine in the pair of the most expensive jobs, by some
// tens of thousands of them.
double seconds_per_proposal(const Plan& plan, const PlanCheck& check);
