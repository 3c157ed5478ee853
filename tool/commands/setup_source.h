// The setup file that a command is about, wherever it comes from.
#pragma once

#include <string>

// A path as it was typed. What can be read only once - standard input, typed as "-", or a pipe - is
// kept in a temporary file as long as this lives: a check reads a setup file before a run does.
class SetupSource {
  public:
    // Throws std::runtime_error when no temporary file can be written.
    explicit SetupSource(const std::string& typed);
    ~SetupSource();
    SetupSource(const SetupSource&) = delete;
    SetupSource& operator=(const SetupSource&) = delete;

    // What to open, and what to call it.
    const std::string& path() const { return path_; }
    const std::string& name() const { return name_; }

  private:
    std::string path_;
    std::string name_;
    bool temporary_ = false;
};
