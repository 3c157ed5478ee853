// The line on a terminal that tells how far a run is.
#pragma once

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>

#include "base/host_options.h"

// "1:20", "2:05:00"; at most 100 hours.
std::string time_text(double seconds);

// What the line shows of a run at one moment. `seconds` is how long the present stage has lasted.
std::string progress_line(const RunProgress& progress, double seconds);

// Rewrites the line ten times a second from a thread of its own, and clears it when it ends.
class ProgressDisplay {
  public:
    ProgressDisplay(const RunProgress& progress, std::FILE* out);
    ~ProgressDisplay();
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;

  private:
    void show_until_ended();
    void show(const std::string& line);

    const RunProgress& progress_;
    std::FILE* out_;
    std::size_t shown_ = 0;
    bool ended_ = false;
    std::mutex mutex_;
    std::condition_variable end_;
    std::thread thread_;
};
