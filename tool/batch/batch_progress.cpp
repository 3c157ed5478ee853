#include "batch/batch_progress.h"

#include <algorithm>
#include <exception>

#include "terminal/print.h"
#include "terminal/progress.h"

std::string batch_line(const BatchState& state) {
    const double share = state.work > 0.0 ? state.work_done / state.work : 0.0;
    std::string line = fmt::format("{} of {} jobs, {} running, {}%", state.done, state.jobs,
                                   state.running, static_cast<int>(share * 100.0));
    if (share > 0.0) {
        line += ", " + time_text(state.seconds * (1.0 - share) / share) + " left";
    }
    return line;
}

BatchProgress::BatchProgress(std::FILE* out, int jobs, int done, double work) : out_(out) {
    state_.jobs = jobs;
    state_.done = done;
    state_.work = work;
}

BatchProgress::~BatchProgress() {
    try {
        replace("");
    } catch (const std::exception&) {
        // The line stays as it was; there is nobody to tell.
    }
}

void BatchProgress::add(double work) {
    ++state_.done;
    state_.work_done += work;
}

void BatchProgress::show(int running) {
    state_.running = running;
    state_.seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count();
    replace(batch_line(state_));
}

// Blanks cover what is left of a longer line: not every terminal can erase.
void BatchProgress::replace(const std::string& line) {
    if (out_ == nullptr) {
        return;
    }
    const std::size_t cover = shown_ > line.size() ? shown_ - line.size() : 0;
    print(out_, "\r{}{}", line, std::string(cover, ' '));
    if (line.empty()) {
        print(out_, "\r");
    }
    std::fflush(out_);
    shown_ = line.size();
}
