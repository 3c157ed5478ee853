// What a door of the house may choose for a run: the exported function takes these defaults, the
// command-line tool its own.
#pragma once

#include <atomic>
#include <cstdio>
#include <exception>
#include <string>

#include "base/file_failures.h"
#include "base/random_source.h"

// The stage a run is in, for whoever shows progress.
enum class RunStage {
    reading,
    burn_in,
    simulation,
    phase1,
    phase2,
    phase3,
    fit,
    bayesian_fit,
    pseudo_likelihood,
    chains,
    likelihood,
    done
};

// Plain counters that a progress display may read from another thread while the run goes on, and
// the flag by which that thread (or a signal handler) ends it. `work_done` of `work_total` counts
// proposals or steps of the present stage; `step` counts estimation runs, sub-phases or parameter
// sets, from 0, of `steps`. A total of 0 is not known yet.
struct RunProgress {
    std::atomic<RunStage> stage{RunStage::reading};
    std::atomic<double> work_done{0.0};
    std::atomic<double> work_total{0.0};
    // Work of the run after the present stage, in the units of that: so much at most, or about so
    // much. Negative where it is not known.
    std::atomic<double> work_after{-1.0};
    // Stages that have begun: with each one `work_done` begins anew.
    std::atomic<int> starts{0};
    std::atomic<int> step{0};
    std::atomic<int> steps{0};
    // Parts of a job that the host has told the number of: how many have begun, of how many.
    std::atomic<int> part{0};
    std::atomic<int> parts{0};
    // Set by the host: the run ends within some proposals, its files closed, its stage not `done`.
    std::atomic<bool> stop{false};
};

// How a run that is told to stop leaves its loops; it does not leave run_setup_file.
struct RunStopped : std::exception {
    const char* what() const noexcept override { return "the run was stopped"; }
};

// For loops that count nothing. Throws RunStopped once the host has asked for the end.
inline void progress_check(const RunProgress& progress) {
    if (progress.stop.load(std::memory_order_relaxed)) [[unlikely]] {
        throw RunStopped();
    }
}

inline void progress_start(RunProgress& progress, RunStage stage, double total,
                           double after = -1.0) {
    progress.work_done.store(0.0, std::memory_order_relaxed);
    progress.work_total.store(total, std::memory_order_relaxed);
    progress.work_after.store(after, std::memory_order_relaxed);
    progress.stage.store(stage, std::memory_order_relaxed);
    progress.starts.fetch_add(1, std::memory_order_relaxed);
}
inline void progress_part(RunProgress& progress) {
    progress.part.fetch_add(1, std::memory_order_relaxed);
}
inline void progress_work(RunProgress& progress, double done) {
    progress.work_done.store(done, std::memory_order_relaxed);
    progress_check(progress);
}
inline void progress_step(RunProgress& progress, int step, int steps) {
    progress.step.store(step, std::memory_order_relaxed);
    progress.steps.store(steps, std::memory_order_relaxed);
}

struct HostOptions {
    // Joins output directory and file name. Hosts expect a backslash on every platform.
    char path_separator = '\\';
    // Replaces the setup file's output directory when not empty.
    std::string output_directory;
    // Where the parameter update files go: false, the process's current directory; true, beside the
    // other outputs.
    bool updates_beside_outputs = false;
    // Takes the engine's console text; null for none.
    std::FILE* console = stdout;
    // The clock of every reseeding; empty for the C library's time.
    ClockSeconds clock_seconds;
    RunProgress* progress = nullptr;
    // Takes the files that could not be written or opened; null when nobody asks. The run goes to
    // its end all the same.
    FileFailures* file_failures = nullptr;
};
