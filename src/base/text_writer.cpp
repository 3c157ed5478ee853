#include "base/text_writer.h"

#include <array>
#include <cstdarg>
#include <vector>

void TextWriter::print(const char* format, ...) {
    if (stream_ == nullptr) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stream_, format, arguments);
    va_end(arguments);
}

void TextWriter::text(const std::string& text) {
    if (stream_ != nullptr) {
        std::fwrite(text.data(), 1, text.size(), stream_);
    }
}

void TextWriter::text(const char* text) {
    if (stream_ != nullptr) {
        std::fputs(text, stream_);
    }
}

void TextWriter::number(const char* format, double value) {
    if (stream_ != nullptr) {
        std::fprintf(stream_, format, value);
    }
}

void TextWriter::cells(std::span<const int> values) {
    for (const int value : values) {
        print("%d\t", value);
    }
}

TextWriter writer_append(const std::string& path) { return TextWriter(open_file(path, "a")); }

TextWriter writer_replace(const std::string& path) { return TextWriter(open_file(path, "w")); }

std::string text_with_name(const char* text, const std::string& name) {
    std::string result = text;
    const std::size_t place = result.find("%s");
    if (place != std::string::npos) {
        result.replace(place, 2, name);
    }
    return result;
}

std::string text_with_lambda(const char* text, float lambda) {
    std::array<char, 128> buffer{};
    const int length =
        std::snprintf(buffer.data(), buffer.size(), text, static_cast<double>(lambda));
    if (length < static_cast<int>(buffer.size())) {
        return buffer.data();
    }
    std::string result(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(result.data(), result.size(), text, static_cast<double>(lambda));
    result.pop_back();
    return result;
}
