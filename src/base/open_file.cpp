#include "base/open_file.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

namespace {

bool is_high_surrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool is_low_surrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// One sequence of one to four bytes; length 0 when none stands there. Surrogates pass.
struct Sequence {
    char32_t code = 0;
    std::size_t length = 0;
};

Sequence decode(const std::string& text, std::size_t place) {
    const auto byte = [&](std::size_t at) -> char32_t {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    const char32_t first = byte(place);
    if (first > 0 && first < 0x80) {
        return {first, 1};
    }
    std::size_t length = 0;
    char32_t code = 0;
    char32_t least = 0;
    if (first >= 0xC0 && first < 0xE0) {
        length = 2;
        code = first & 0x1F;
        least = 0x80;
    } else if (first >= 0xE0 && first < 0xF0) {
        length = 3;
        code = first & 0x0F;
        least = 0x800;
    } else if (first >= 0xF0 && first < 0xF8) {
        length = 4;
        code = first & 0x07;
        least = 0x10000;
    }
    for (std::size_t k = 1; k < length; ++k) {
        const char32_t next = byte(place + k);
        if ((next & 0xC0) != 0x80) {
            return {};
        }
        code = (code << 6) | (next & 0x3F);
    }
    return length == 0 || code < least || code > 0x10FFFF ? Sequence{} : Sequence{code, length};
}

// The character that two surrogates of three bytes each stand for; length 0 when there is no pair.
Sequence decode_pair(const std::string& text, std::size_t place) {
    const Sequence high = decode(text, place);
    if (!is_high_surrogate(high.code)) {
        return {};
    }
    const Sequence low = decode(text, place + high.length);
    if (!is_low_surrogate(low.code)) {
        return {};
    }
    return {0x10000 + ((high.code - 0xD800) << 10) + (low.code - 0xDC00), high.length + low.length};
}

}  // namespace

std::u16string path_to_utf16(const std::string& path) {
    std::u16string units;
    std::size_t place = 0;
    while (place < path.size()) {
        const Sequence next = decode(path, place);
        if (next.length == 0) {
            return {};
        }
        if (next.code < 0x10000) {
            units.push_back(static_cast<char16_t>(next.code));
        } else {
            const char32_t offset = next.code - 0x10000;
            units.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
            units.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
        }
        place += next.length;
    }
    return units;
}

std::string path_joining_surrogates(const std::string& path) {
    std::string joined;
    std::size_t place = 0;
    while (place < path.size()) {
        const Sequence pair = decode_pair(path, place);
        if (pair.length == 0) {
            joined.push_back(path[place++]);
            continue;
        }
        const auto tail = [&](unsigned shift) {
            return static_cast<char>(0x80 | ((pair.code >> shift) & 0x3F));
        };
        joined.push_back(static_cast<char>(0xF0 | (pair.code >> 18)));
        joined.append({tail(12), tail(6), tail(0)});
        place += pair.length;
    }
    return joined;
}

void shorten_file(const std::string& path, std::int64_t size) noexcept {
    try {
#ifdef _WIN32
        const std::u16string units = path_to_utf16(path);
        const std::filesystem::path place =
            units.empty() ? std::filesystem::path(path) : std::filesystem::path(units);
#else
        const std::filesystem::path place = path_joining_surrogates(path);
#endif
        std::error_code ignored;
        std::filesystem::resize_file(place, static_cast<std::uintmax_t>(size), ignored);
    } catch (...) {
        // No memory for the name: the file stays as long as it is.
    }
}

#ifdef _WIN32

std::int64_t file_size(std::FILE* file) {
    return _fseeki64(file, 0, SEEK_END) == 0 ? _ftelli64(file) : -1;
}

FileHandle open_file(const std::string& path, const char* mode) {
    const std::u16string units = path_to_utf16(path);
    if (units.empty()) {
        return FileHandle(std::fopen(path.c_str(), mode));
    }
    const std::wstring wide_path(units.begin(), units.end());
    const std::string narrow_mode = mode;
    const std::wstring wide_mode(narrow_mode.begin(), narrow_mode.end());
    return FileHandle(_wfopen(wide_path.c_str(), wide_mode.c_str()));
}

#else

std::int64_t file_size(std::FILE* file) {
    return ::fseeko(file, 0, SEEK_END) == 0 ? ::ftello(file) : -1;
}

FileHandle open_file(const std::string& path, const char* mode) {
    return FileHandle(std::fopen(path_joining_surrogates(path).c_str(), mode));
}

#endif
