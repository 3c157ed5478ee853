#include "formats/text_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "base/native_path.h"
#include "base/open_file.h"

namespace fs = std::filesystem;

namespace {

// Room that is made before it is read into: many files are small.
constexpr std::size_t kBlock = std::size_t{1} << 16U;
constexpr std::size_t kLargestFile = std::size_t{1} << 32U;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr const char* kTextExpected = "text in UTF-8";

void fail(TextFile& file, std::string found, std::string expected, std::string mend) {
    file.text.clear();
    file.problems.push_back({.file = file.path,
                             .found = std::move(found),
                             .expected = std::move(expected),
                             .mend = std::move(mend)});
}

// Length of the UTF-8 character at `at`, 0 when none stands there.
std::size_t character_length(std::string_view text, std::size_t at) {
    const auto byte = [text](std::size_t k) -> unsigned {
        return k < text.size() ? static_cast<unsigned char>(text[k]) : 0U;
    };
    const unsigned lead = byte(at);
    const auto follows = [&](std::size_t k, unsigned low, unsigned high) {
        return byte(k) >= low && byte(k) <= high;
    };
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return follows(at + 1, 0x80, 0xBF) ? 2 : 0;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        const unsigned low = lead == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = lead == 0xED ? 0x9F : 0xBF;
        return follows(at + 1, low, high) && follows(at + 2, 0x80, 0xBF) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const unsigned low = lead == 0xF0 ? 0x90 : 0x80;
        const unsigned high = lead == 0xF4 ? 0x8F : 0xBF;
        const bool whole = follows(at + 1, low, high) && follows(at + 2, 0x80, 0xBF) &&
                           follows(at + 3, 0x80, 0xBF);
        return whole ? 4 : 0;
    }
    return 0;
}

// Offset of the first byte that belongs to no UTF-8 character, or npos.
std::size_t first_foreign_byte(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        // Eight ASCII characters at a time.
        std::uint64_t word = 0;
        if (at + sizeof word <= text.size()) {
            std::memcpy(&word, text.data() + at, sizeof word);
            if ((word & 0x8080808080808080ULL) == 0) {
                at += sizeof word;
                continue;
            }
        }
        const std::size_t length = character_length(text, at);
        if (length == 0) {
            return at;
        }
        at += length;
    }
    return std::string_view::npos;
}

// The printing characters of Windows-1252 from 0xA0 on are those of Unicode.
std::string as_western(unsigned char byte) {
    if (byte < 0xA0) {
        return "";
    }
    std::string character;
    character.push_back(static_cast<char>(0xC0U | (byte >> 6U)));
    character.push_back(static_cast<char>(0x80U | (byte & 0x3FU)));
    return character;
}

void place_at(Problem& problem, std::string_view text, std::size_t offset) {
    int line = 1;
    std::size_t begin = 0;
    for (std::size_t k = 0; k < offset; ++k) {
        if (text[k] == '\n') {
            ++line;
            begin = k + 1;
        }
    }
    problem.line = line;
    problem.column = 1;
    for (std::size_t k = begin; k < offset; ++k) {
        problem.column += (static_cast<unsigned char>(text[k]) & 0xC0U) != 0x80U ? 1 : 0;
    }
}

void check_encoding(TextFile& file) {
    const std::size_t at = first_foreign_byte(file.text);
    if (at == std::string::npos) {
        return;
    }
    const auto byte = static_cast<unsigned char>(file.text[at]);
    std::array<char, 8> hex{};
    std::snprintf(hex.data(), hex.size(), "0x%02X", byte);
    const std::string western = as_western(byte);
    std::string found = std::string("the byte ") + hex.data() +
                        (western.empty() ? "" : " (`" + western + "` in Latin-1)") +
                        ", which is no UTF-8";
    Problem problem{
        .file = file.path,
        .found = std::move(found),
        .expected = kTextExpected,
        .mend = "save the file as UTF-8, or convert it: iconv -f WINDOWS-1252 -t UTF-8 '" +
                file.path + "' > utf8.txt"};
    place_at(problem, file.text, at);
    file.text.clear();
    file.problems.push_back(std::move(problem));
}

bool is_wide_text(std::string_view text) {
    return text.substr(0, 2) == "\xFF\xFE" || text.substr(0, 2) == "\xFE\xFF";
}

// True when the block shows that this is no text.
bool check_block(TextFile& file, std::string_view block, bool first) {
    if (first && is_wide_text(block)) {
        fail(file, "text in UTF-16", kTextExpected, "save the file as UTF-8");
        return true;
    }
    if (block.find('\0') != std::string_view::npos) {
        fail(file, "a binary file (a zero byte)", kTextExpected,
             "give a text file; a spreadsheet is saved as CSV first");
        return true;
    }
    return false;
}

// True when there is something to open.
bool check_kind(TextFile& file) {
    std::error_code problem;
    const fs::file_status status = fs::status(native_path(file.path), problem);
    if (fs::is_directory(status)) {
        fail(file, "a directory", "a file", "name a file in it");
        return false;
    }
    if (!fs::exists(status)) {
        fail(file, "no such file", "a file that can be read",
             "mend the path; relative paths start where the file that names them stands");
        return false;
    }
    return true;
}

// Reads all blocks; stops at the first that shows a problem.
void read_blocks(TextFile& file, std::FILE* stream) {
    while (true) {
        const std::size_t size = file.text.size();
        file.text.resize(size + kBlock);
        const std::size_t count = std::fread(file.text.data() + size, 1, kBlock, stream);
        file.text.resize(size + count);
        if (count == 0) {
            return;
        }
        if (check_block(file, std::string_view(file.text).substr(size), size == 0)) {
            return;
        }
        if (file.text.size() > kLargestFile) {
            fail(file, "more than 4 GiB", "a file that fits into memory", "give a smaller file");
            return;
        }
    }
}

void check_text(TextFile& file) {
    if (file.text.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0) {
        file.text.erase(0, kByteOrderMark.size());
    }
    if (without_space(file.text).empty()) {
        fail(file, "an empty file", "data", "put the data into it, or name another file");
        return;
    }
    check_encoding(file);
}

}  // namespace

TextFile read_text_file(const std::string& path) {
    TextFile file;
    file.path = path == "-" ? kStandardInput : path;
    FileHandle handle;
    if (path != "-") {
        if (!check_kind(file)) {
            return file;
        }
        errno = 0;
        handle = open_file(path, "rb");
        if (handle == nullptr) {
            fail(file, std::string("a file that cannot be opened (") + std::strerror(errno) + ")",
                 "a file that can be read", "change its permissions, or name another file");
            return file;
        }
    }
    read_blocks(file, path == "-" ? stdin : handle.get());
    if (file.ok()) {
        check_text(file);
    }
    return file;
}

TextFile text_file_of(std::string path, std::string text) {
    TextFile file;
    file.path = std::move(path);
    file.text = std::move(text);
    const std::string whole = file.text;
    if (whole.empty() || !check_block(file, whole, true)) {
        check_text(file);
    }
    return file;
}

bool write_text_file(const std::string& path, const std::string& text) {
    bool written = false;
    {
        FileHandle file = open_file(path, "wb");
        if (file == nullptr) {
            return false;
        }
        written = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size() &&
                  std::fflush(file.get()) == 0;
    }
    // Half a file goes; a device or a pipe that takes no more is not ours to remove.
    std::error_code problem;
    if (!written && fs::is_regular_file(native_path(path), problem)) {
        fs::remove(native_path(path), problem);
    }
    return written;
}

namespace {

// "data/friends.csv" for "data/fx.results/../friends.csv", where no link leads elsewhere.
std::string without_detours(const std::string& path) {
    if (path.find("..") == std::string::npos) {
        return path;
    }
    std::error_code problem;
    const fs::path plain = native_path(path).lexically_normal();
    if (fs::weakly_canonical(plain, problem) != fs::weakly_canonical(native_path(path), problem)) {
        return path;
    }
    const std::u8string text = plain.generic_u8string();
    return {text.begin(), text.end()};
}

}  // namespace

std::string path_beside(const std::string& file, const std::string& path) {
    if (path == "-" || path.empty() || fs::path(path).is_absolute()) {
        return path;
    }
#ifdef _WIN32
    const std::size_t end = file.find_last_of("/\\");
#else
    const std::size_t end = file.find_last_of('/');
#endif
    return end == std::string::npos ? path : without_detours(file.substr(0, end + 1) + path);
}

std::string path_extension(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string::npos || dot == 0) {
        return "";
    }
    std::string extension = name.substr(dot + 1);
    for (char& character : extension) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return extension;
}

bool is_missing_text(std::string_view text) {
    constexpr std::array<std::string_view, 7> kWords = {"",     "na", "n/a", "nan",
                                                        "null", ".",  "#n/a"};
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char each) {
        return each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
    });
    return std::find(kWords.begin(), kWords.end(), lower) != kWords.end();
}
