#include "terminal/progress.h"

#include <algorithm>
#include <chrono>
#include <exception>

#include "terminal/print.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPause{100};
// Below this share of a stage nothing is known about its end.
constexpr double kEnoughToTell = 0.01;

const char* stage_name(RunStage stage) {
    switch (stage) {
        case RunStage::reading:
            return "reading";
        case RunStage::burn_in:
            return "burn-in";
        case RunStage::simulation:
            return "simulation";
        case RunStage::phase1:
            return "phase 1";
        case RunStage::phase2:
            return "phase 2";
        case RunStage::phase3:
            return "phase 3";
        case RunStage::fit:
            return "goodness of fit";
        case RunStage::bayesian_fit:
            return "Bayesian goodness of fit";
        case RunStage::pseudo_likelihood:
            return "pseudo-likelihood";
        case RunStage::chains:
            return "chains";
        case RunStage::likelihood:
            return "log-likelihood";
        case RunStage::done:
            break;
    }
    return "finishing";
}

std::string step_text(RunStage stage, int step, int steps) {
    const std::string place = std::to_string(step + 1) + " of " + std::to_string(steps);
    if (steps > 0 && stage == RunStage::phase2) {
        return ", sub-phase " + place;
    }
    if (stage == RunStage::chains) {
        return ", run " + std::to_string(step + 1);
    }
    return steps > 0 && stage == RunStage::bayesian_fit ? ", parameter set " + place : "";
}

// "stage 2 of 3: " where the number of parts is known.
std::string part_text(const RunProgress& progress) {
    const int part = progress.part.load(std::memory_order_relaxed);
    const int parts = progress.parts.load(std::memory_order_relaxed);
    return part > 0 && part <= parts ? fmt::format("stage {} of {}: ", part, parts) : "";
}

// What the time left is of, and how sure it is. Sub-phases may end before their largest number of
// steps; what the chains have to do is known once they are near the estimates.
std::string time_left_text(RunStage stage, bool after_known, const std::string& time) {
    const char* const left = "left in this stage";
    switch (stage) {
        case RunStage::phase1:
        case RunStage::phase2:
            return fmt::format("at most {} left in this run", time);
        case RunStage::phase3:
            return fmt::format("{} left in this run", time);
        case RunStage::chains:
            return after_known ? fmt::format("about {} {}", time, left)
                               : fmt::format("{} left in this run of the chains", time);
        case RunStage::likelihood:
            return fmt::format("at least {} {}", time, left);
        default:
            return fmt::format("{} {}", time, after_known ? "left in this run" : left);
    }
}

// The share of the stage that is done. A Bayesian fit counts its sets, each a stage of its own.
double share_done(const RunProgress& progress, RunStage stage) {
    const double total = progress.work_total.load(std::memory_order_relaxed);
    const double done = progress.work_done.load(std::memory_order_relaxed);
    double share = total > 0.0 ? std::clamp(done / total, 0.0, 1.0) : 0.0;
    const int steps = progress.steps.load(std::memory_order_relaxed);
    if (stage == RunStage::bayesian_fit && steps > 0) {
        share = (progress.step.load(std::memory_order_relaxed) + share) / steps;
    }
    return share;
}

}  // namespace

std::string time_text(double seconds) {
    const auto whole = static_cast<long>(std::min(seconds, 360000.0));
    return whole >= 3600 ? fmt::format("{}:{:02}:{:02}", whole / 3600, whole / 60 % 60, whole % 60)
                         : fmt::format("{}:{:02}", whole / 60, whole % 60);
}

std::string progress_line(const RunProgress& progress, double seconds) {
    const RunStage stage = progress.stage.load(std::memory_order_relaxed);
    std::string line = part_text(progress) + stage_name(stage);
    if (stage == RunStage::reading || stage == RunStage::done) {
        return line;
    }
    line += step_text(stage, progress.step.load(std::memory_order_relaxed),
                      progress.steps.load(std::memory_order_relaxed));
    const double total = progress.work_total.load(std::memory_order_relaxed);
    if (!(total > 0.0)) {
        return line;
    }
    const double share = share_done(progress, stage);
    line += ", " + std::to_string(static_cast<int>(share * 100.0)) + "%";
    if (share >= kEnoughToTell) {
        const double after = progress.work_after.load(std::memory_order_relaxed);
        const double left = 1.0 - share + std::max(after, 0.0) / total;
        line += ", " + time_left_text(stage, after >= 0.0, time_text(seconds * left / share));
    }
    return line;
}

ProgressDisplay::ProgressDisplay(const RunProgress& progress, std::FILE* out)
    : progress_(progress), out_(out), thread_([this] { show_until_ended(); }) {}

ProgressDisplay::~ProgressDisplay() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        ended_ = true;
    }
    end_.notify_one();
    thread_.join();
    try {
        show("");
    } catch (const std::exception&) {
        // The line stays as it was; there is nobody to tell.
    }
    std::fputc('\r', out_);
    std::fflush(out_);
}

void ProgressDisplay::show_until_ended() {
    std::unique_lock<std::mutex> lock(mutex_);
    RunStage stage = RunStage::reading;
    int starts = -1;
    Clock::time_point begin = Clock::now();
    while (!end_.wait_for(lock, kPause, [this] { return ended_; })) {
        const RunStage now = progress_.stage.load(std::memory_order_relaxed);
        const int now_starts = progress_.starts.load(std::memory_order_relaxed);
        if (now != stage || (now != RunStage::bayesian_fit && now_starts != starts)) {
            stage = now;
            starts = now_starts;
            begin = Clock::now();
        }
        show(progress_line(progress_, std::chrono::duration<double>(Clock::now() - begin).count()));
    }
}

// Blanks cover what is left of a longer line: not every terminal can erase.
void ProgressDisplay::show(const std::string& line) {
    const std::size_t cover = shown_ > line.size() ? shown_ - line.size() : 0;
    print(out_, "\r{}{}", line, std::string(cover, ' '));
    std::fflush(out_);
    shown_ = line.size();
}
