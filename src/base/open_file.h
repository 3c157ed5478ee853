// Opening of files by UTF-8 paths, on every platform.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

struct FileCloser {
    void operator()(std::FILE* file) const {
        if (file != nullptr) {
            std::fclose(file);
        }
    }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

// Opens the file as the C library's fopen does; null when it cannot. The path is UTF-8. A path that
// is not is taken as its bytes (on Windows in the code page of the process).
FileHandle open_file(const std::string& path, const char* mode);

// Bytes in the opened file; its position is at the end afterwards. -1 for what has no size.
std::int64_t file_size(std::FILE* file);

// Drops what stands behind the first `size` bytes of the file, if it can.
void shorten_file(const std::string& path, std::int64_t size) noexcept;
