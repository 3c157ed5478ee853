// The line on a terminal that tells how far a plan's jobs are.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>

// What the line shows: "12 of 48 jobs, 2 running, 25%, 1:20 left". Shares are of expected work.
struct BatchState {
    int done = 0;
    int jobs = 0;
    int running = 0;
    double work_done = 0.0;  // since the beginning
    double work = 0.0;       // of all jobs that were to be done then
    double seconds = 0.0;    // since then
};
std::string batch_line(const BatchState& state);

class BatchProgress {
  public:
    // Shows nothing where `out` is null.
    BatchProgress(std::FILE* out, int jobs, int done, double work);
    ~BatchProgress();
    BatchProgress(const BatchProgress&) = delete;
    BatchProgress& operator=(const BatchProgress&) = delete;

    void add(double work);
    void show(int running);

  private:
    void replace(const std::string& line);

    std::FILE* out_;
    BatchState state_;
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    std::size_t shown_ = 0;
};
