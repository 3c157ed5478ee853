#include "check/files.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "base/native_path.h"
#include "base/open_file.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

// Names longer than this are no words of a text file.
constexpr std::size_t kLongestWord = 200;

bool may_write(const fs::path& path) {
#ifdef _WIN32
    return _waccess(path.c_str(), 2) == 0;
#else
    return ::access(path.c_str(), W_OK) == 0;
#endif
}

}  // namespace

FileKind file_kind(const std::string& path) {
    std::error_code problem;
    const fs::file_status status = fs::status(native_path(path), problem);
    if (fs::is_directory(status)) {
        return FileKind::directory;
    }
    return fs::exists(status) ? FileKind::file : FileKind::missing;
}

std::string open_problem(const std::string& path) {
    if (file_kind(path) == FileKind::directory) {
        return "it is a directory";
    }
    errno = 0;
    const FileHandle file = open_file(path, "r");
    return file != nullptr ? "" : std::strerror(errno);
}

bool is_writable(const std::string& path) { return may_write(native_path(path)); }

std::string parent_directory(const std::string& path) {
    std::size_t end = path.find_last_of('/');
#ifdef _WIN32
    end = path.find_last_of("/\\");
#endif
    if (end == std::string::npos) {
        return ".";
    }
    return end == 0 ? path.substr(0, 1) : path.substr(0, end);
}

std::string beside(const std::string& file, const std::string& path) {
    return parent_directory(file) + "/" + path;
}

FileStamp file_stamp(const std::string& path) {
    std::error_code problem;
    const fs::path file = native_path(path);
    FileStamp stamp;
    stamp.exists = fs::is_regular_file(file, problem);
    if (stamp.exists) {
        stamp.size = fs::file_size(file, problem);
        stamp.written = static_cast<std::int64_t>(
            fs::last_write_time(file, problem).time_since_epoch().count());
    }
    return stamp;
}

TextPlace place_in_file(const std::string& path, long offset) {
    TextPlace place;
    const FileHandle file = open_file(path, "rb");
    if (file == nullptr) {
        return place;
    }
    int character = 0;
    for (long k = 0; k < offset && character != EOF; ++k) {
        character = std::getc(file.get());
        place.line += character == '\n' ? 1 : 0;
    }
    character = std::getc(file.get());
    while (character != EOF && !is_blank(static_cast<char>(character)) &&
           place.word.size() < kLongestWord) {
        place.word.push_back(static_cast<char>(character));
        character = std::getc(file.get());
    }
    return place;
}

std::string line_of_file(const std::string& path, int line) {
    std::string text;
    const FileHandle file = open_file(path, "rb");
    int number = 1;
    int character = file != nullptr ? std::getc(file.get()) : EOF;
    while (character != EOF && number <= line) {
        if (number == line && character != '\n') {
            text.push_back(static_cast<char>(character));
        }
        number += character == '\n' ? 1 : 0;
        character = std::getc(file.get());
    }
    return text;
}

std::string bytes_of_file(const std::string& path) {
    std::string text;
    const FileHandle file = open_file(path, "rb");
    std::array<char, 65536> buffer{};
    std::size_t count =
        file != nullptr ? std::fread(buffer.data(), 1, buffer.size(), file.get()) : 0;
    while (count > 0) {
        text.append(buffer.data(), count);
        count = std::fread(buffer.data(), 1, buffer.size(), file.get());
    }
    return text;
}

int count_words(const std::string& text) {
    int words = 0;
    bool inside = false;
    for (const char character : text) {
        const bool blank = is_blank(character);
        words += !blank && !inside ? 1 : 0;
        inside = !blank;
    }
    return words;
}

bool is_blank(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}
