// The results folder of a job, and whether the job is done.
//
// A job is done when its folder holds a complete result.json and an inputs.json with the digest
// that the job has now. Whatever else is there is done again.
#pragma once

#include <optional>
#include <string>

#include "batch/digest.h"
#include "show/result_record.h"

// "DIR/jobs/0001".
std::string job_folder(const std::string& directory, const Plan& plan, int number);

// A job as its folder shows it.
struct JobState {
    std::optional<ResultRecord> result;  // of a job that is done
    std::string reason;                  // why there is none
};
JobState job_state(const std::string& directory, const Plan& plan, const Job& job,
                   const std::string& digest);

// Does the job: reads its network and model, estimates, and leaves its folder as `ovri estimate`
// does. Paths in the results are as seen from the plan, commands as typed in `directory`;
// meanwhile the process works in the plan's folder. Returns the exit status of the estimation, or
// kNotCompleted where the folder cannot be made or the inputs are no longer sound.
int perform_job(const std::string& directory, const Plan& plan, const Job& job,
                const std::string& digest);
