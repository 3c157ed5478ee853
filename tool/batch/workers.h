// Jobs carried out side by side, each in a process of its own that is forked for it: what a job
// does to its memory, its files or itself touches no other job. Where there is no fork, they are
// carried out one after the other.
#pragma once

#include <atomic>
#include <functional>
#include <vector>

struct WorkerCalls {
    // Does a job and returns its exit status, in the job's own process.
    std::function<int(int job)> perform;
    // A job has ended; 128 + the signal where a signal ended it.
    std::function<void(int job, int status)> ended;
    // Some five times a second, and whenever a job ended.
    std::function<void(int running)> tick;
};

// Begins the jobs in this order, at most `workers` at a time, and waits for all of them. When
// `stop` is set the running ones are killed and no other begins; false then. When the process that
// called this dies, whatever the way, its jobs die with it: they would get in the way of whoever
// takes the work up again.
bool run_jobs(const std::vector<int>& order, int workers, const WorkerCalls& calls,
              const std::atomic<bool>& stop);
