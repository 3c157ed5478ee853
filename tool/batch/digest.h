// Digests of what a job or a part of a run depends on, by which changed inputs are noticed.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "batch/jobs.h"

// FNV-1a of 64 bits over texts, each with its length, as 16 hexadecimal digits. It tells changes,
// not forgeries.
class Digest {
  public:
    void add(std::string_view text);
    std::string text() const;

  private:
    void add_byte(unsigned char byte);
    std::uint64_t state_ = 14695981039346656037ULL;
};

// Digests of files, each read once. A file that cannot be read has a digest that no file has; no
// name has an empty one.
class FileDigests {
  public:
    const std::string& of(const std::string& path);

  private:
    std::map<std::string, std::string> files_;
};

// Adds the bytes of every file that a model names, and the model with seed and settings, but not
// where the files stand on the machine, nor the threads.
void add_model(ModelFile model, FileDigests& files, Digest& digest);

// A job's digest covers the version, names and model of the job.
class JobDigests {
  public:
    explicit JobDigests(const Plan& plan) : plan_(plan) {}
    std::string of(const Job& job);

  private:
    const Plan& plan_;
    FileDigests files_;
};
