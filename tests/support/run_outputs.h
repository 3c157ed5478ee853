// Whole runs inside a directory of their own, and what they leave there.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

// File name to content.
using OutputFiles = std::map<std::string, std::string>;

// The files directly below the directory; none when there is no such directory.
OutputFiles files_below(const std::filesystem::path& directory);

// Makes `path` the process's current directory while it lives.
class CurrentDirectory {
  public:
    explicit CurrentDirectory(const std::filesystem::path& path);
    ~CurrentDirectory();
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;

  private:
    std::filesystem::path before_;
};

struct RunOutputs {
    // What stands in the directory "out" after the run, update files included.
    OutputFiles files;
    std::string console;
    int clock_readings = 0;
};

// Performs run.setup of `directory` with that as the current directory, at a fixed clock; the setup
// file names "out" as its output directory, which is emptied first.
RunOutputs run_in_directory(const std::filesystem::path& directory, std::int64_t clock = 20000);
