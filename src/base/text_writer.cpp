#include "base/text_writer.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <new>
#include <utility>

#include "base/file_failures.h"

TextWriter::TextWriter(std::string path, FileHandle file, FileFailures* failures)
    : stream_(file.get()), owned_(std::move(file)), path_(std::move(path)), failures_(failures) {
    if (owned_ == nullptr) {
        return;
    }
    buffer_.reset(new (std::nothrow) char[kBufferSize]);
    if (buffer_ != nullptr) {
        std::setvbuf(stream_, buffer_.get(), _IOFBF, kBufferSize);
    }
    begin_ = file_size(stream_);
}

TextWriter::~TextWriter() {
    if (owned_ == nullptr) {
        return;
    }
    errno = 0;
    expect(std::fclose(owned_.release()) == 0);
    if (error_ != 0) {
        take_back();
        if (failures_ != nullptr) {
            note_file_failure(*failures_, path_, error_);
        }
    }
}

void TextWriter::expect(bool written) {
    if (!written && error_ == 0) {
        error_ = errno != 0 ? errno : EIO;
    }
}

void TextWriter::take_back() const {
    if (begin_ >= 0) {
        shorten_file(path_, begin_);
    }
}

void TextWriter::print(const char* format, ...) {
    if (stream_ == nullptr) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    expect(std::vfprintf(stream_, format, arguments) >= 0);
    va_end(arguments);
}

void TextWriter::text(const std::string& text) {
    if (stream_ != nullptr) {
        expect(std::fwrite(text.data(), 1, text.size(), stream_) == text.size());
    }
}

void TextWriter::text(const char* text) {
    if (stream_ != nullptr) {
        expect(std::fputs(text, stream_) >= 0);
    }
}

void TextWriter::number(const char* format, double value) {
    if (stream_ != nullptr) {
        expect(std::fprintf(stream_, format, value) >= 0);
    }
}

void TextWriter::cells(std::span<const int> values) {
    for (const int value : values) {
        print("%d\t", value);
    }
}

void TextWriter::end_section() {
    if (owned_ == nullptr || error_ != 0) {
        return;
    }
    errno = 0;
    expect(std::fflush(stream_) == 0);
    if (error_ == 0) {
        begin_ = file_size(stream_);
    }
}

namespace {

TextWriter open_writer(const std::string& path, const char* mode) {
    FileFailures* failures = current_file_failures();
    if (failures != nullptr && has_file_failure(*failures, path)) {
        return TextWriter(nullptr);
    }
    errno = 0;
    FileHandle file = open_file(path, mode);
    if (file == nullptr && failures != nullptr) {
        note_file_failure(*failures, path, errno != 0 ? errno : EIO);
    }
    return {path, std::move(file), failures};
}

}  // namespace

TextWriter writer_append(const std::string& path) { return open_writer(path, "a"); }

TextWriter writer_replace(const std::string& path) { return open_writer(path, "w"); }

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
