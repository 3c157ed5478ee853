// What all jobs of a plan have found, from their folders.
//
// The same folders give the same bytes, on every machine and after any order of work; only the
// seconds that jobs took are those of the machines that did them, and they can be left out.
#pragma once

#include <string>
#include <vector>

#include "batch/jobs.h"

struct BatchSummary {
    std::string csv;    // a row a job and effect
    std::string json;   // the same with the jobs' ends and pooled estimates
    std::string table;  // for people: pooled estimates, and the jobs that did not converge
    int jobs = 0;
    int converged = 0;
    int completed = 0;
};

// `with_times`: with the seconds that each job took. Without them two summaries of the same plan
// are the same bytes.
BatchSummary summarise(const std::string& directory, const Plan& plan, bool with_times);

// "0001, 0004 and 7 more".
std::string some_of(const std::vector<std::string>& names);

// Folders of jobs that the plan does not have: it had more jobs, or was another one. Sorted.
std::vector<std::string> stray_jobs(const std::string& directory, const Plan& plan);

// "12 jobs: 10 converged, 1 did not, 1 was not completed".
std::string counts_text(const BatchSummary& summary);

// 0 when every job converged, 3 when some were not completed, else 4.
int summary_status(const BatchSummary& summary);
