#include "base/open_file.h"

#include <system_error>

#include "base/native_path.h"

#ifdef _WIN32

std::int64_t file_size(std::FILE* file) {
    return _fseeki64(file, 0, SEEK_END) == 0 ? _ftelli64(file) : -1;
}

FileHandle open_file(const std::string& path, const char* mode) {
    return FileHandle(_wfopen(native_path(path).c_str(), native_path(mode).c_str()));
}

#else

std::int64_t file_size(std::FILE* file) {
    return ::fseeko(file, 0, SEEK_END) == 0 ? ::ftello(file) : -1;
}

FileHandle open_file(const std::string& path, const char* mode) {
    return FileHandle(std::fopen(path.c_str(), mode));
}

#endif

void shorten_file(const std::string& path, std::int64_t size) noexcept {
    try {
        std::error_code ignored;
        std::filesystem::resize_file(native_path(path), static_cast<std::uintmax_t>(size), ignored);
    } catch (...) {
        // No memory for the name: the file stays as long as it is.
    }
}
