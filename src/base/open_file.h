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

// Opens the file as the C library's fopen does; null when it cannot. The path is UTF-8. A Java
// machine hands out characters beyond U+FFFF as two surrogates of three bytes each: such a pair
// counts as the character it stands for. A path that is not UTF-8 is taken as its bytes (on Windows
// in the code page of the process).
FileHandle open_file(const std::string& path, const char* mode);

// Bytes in the opened file; its position is at the end afterwards. -1 for what has no size.
std::int64_t file_size(std::FILE* file);

// Drops what stands behind the first `size` bytes of the file, if it can.
void shorten_file(const std::string& path, std::int64_t size) noexcept;

// The path in UTF-16, as open_file reads it; empty when it is not UTF-8 (or holds a zero).
std::u16string path_to_utf16(const std::string& path);

// The path with every pair of surrogates replaced by the four bytes of its character, all other
// bytes as they are.
std::string path_joining_surrogates(const std::string& path);
