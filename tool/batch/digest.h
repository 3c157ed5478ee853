// Digests of what a job depends on, by which changed inputs are noticed.
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

// A job's digest covers the version, the model with seed and settings, and the bytes of every file
// that it reads, but not where these stand on the machine. Each file is read once for all jobs.
class JobDigests {
  public:
    explicit JobDigests(const Plan& plan) : plan_(plan) {}
    std::string of(const Job& job);

  private:
    const std::string& file(const std::string& path);

    const Plan& plan_;
    std::map<std::string, std::string> files_;
};
