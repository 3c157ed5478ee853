// run.log of a results folder: what was run, where, when, on what data, and every warning.
#pragma once

#include <string>
#include <vector>

#include "commands/study_input.h"

class RunLog {
  public:
    // Begins with version, command, machine, time and what was read.
    RunLog(const std::string& command, const StudyInput& input);
    void line(const std::string& text) { text_ += text + "\n"; }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

// The line that marks a run that Ctrl-C ended; `kept` is what there is of it.
std::string interrupted_line(const std::string& kept);
