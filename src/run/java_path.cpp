#include "run/java_path.h"

#include <cstddef>

namespace {

constexpr std::size_t kSurrogateBytes = 3;

// The surrogate of three bytes at that place, ED A0..BF 80..BF; 0 when none stands there.
char32_t surrogate_at(const std::string& text, std::size_t place) {
    if (place + kSurrogateBytes > text.size()) {
        return 0;
    }
    const auto byte = [&](std::size_t k) -> char32_t {
        return static_cast<unsigned char>(text[place + k]);
    };
    const bool surrogate = byte(0) == 0xED && (byte(1) & 0xE0) == 0xA0 && (byte(2) & 0xC0) == 0x80;
    return surrogate ? 0xD000 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F) : 0;
}

// The character of the pair of surrogates at that place; 0 when no pair stands there.
char32_t pair_at(const std::string& text, std::size_t place) {
    const char32_t high = surrogate_at(text, place);
    const char32_t low = high != 0 ? surrogate_at(text, place + kSurrogateBytes) : 0;
    const bool pair = high < 0xDC00 && low >= 0xDC00;
    return pair ? 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00) : 0;
}

}  // namespace

std::string path_from_java(const std::string& path) {
    std::string joined;
    std::size_t place = 0;
    while (place < path.size()) {
        const char32_t code = pair_at(path, place);
        if (code == 0) {
            joined.push_back(path[place++]);
            continue;
        }
        const auto tail = [code](unsigned shift) {
            return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
        };
        joined.append({static_cast<char>(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)});
        place += 2 * kSurrogateBytes;
    }
    return joined;
}
