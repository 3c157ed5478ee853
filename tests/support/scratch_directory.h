// A directory of its own for one test, removed at its end; and reading of what a run left there.
#pragma once

#include <filesystem>
#include <string>

class ScratchDirectory {
  public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // Writes a file below the directory and returns its path.
    std::string write(const std::string& name, const std::string& text) const;
    // A file below the directory as a string; fails the test when it cannot be read.
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;

  private:
    std::filesystem::path path_;
};

// A whole file as a string; empty when it cannot be read.
std::string file_text(const std::filesystem::path& path);
