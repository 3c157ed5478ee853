// Bytes turned into what a target needs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Takes small numbers from the front of the input and the rest as text.
class FuzzInput {
  public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    // 0..n-1; 0 when nothing is left.
    int below(int n) {
        if (used_ >= size_) {
            return 0;
        }
        return data_[used_++] % n;
    }
    std::string text(std::size_t most) {
        const std::size_t count = size_ - used_ < most ? size_ - used_ : most;
        std::string text(reinterpret_cast<const char*>(data_) + used_, count);
        used_ += count;
        return text;
    }
    std::string rest() { return text(size_ - used_); }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t used_ = 0;
};

// A file in memory that is written anew for each input and has a path to be read by.
class MemoryFile {
  public:
    MemoryFile();
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const std::string& write(const std::string& text);

  private:
    int file_ = -1;
    std::string path_;
};
