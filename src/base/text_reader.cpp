#include "base/text_reader.h"

#include <cerrno>
#include <clocale>

#include "base/file_failures.h"

#ifndef _WIN32
#include <locale.h>
#endif

namespace {

// White space as the C locale has it.
bool is_space(int character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

// On Windows a line may end in a carriage return and a line feed. The C library would hide the
// former in text mode, but then it misjudges its place in a file whose lines end in a line feed
// alone; so files are opened as they are and the pair is read as one line feed here. To a scan for
// numbers it is white space either way.
#ifdef _WIN32
constexpr bool kLinesMayEndInTwo = true;
constexpr const char* kReadMode = "rb";
#else
constexpr bool kLinesMayEndInTwo = false;
constexpr const char* kReadMode = "r";
#endif

}  // namespace

TextReader reader_open(const std::string& path) {
    errno = 0;
    TextReader reader{open_file(path, kReadMode)};
    FileFailures* failures = current_file_failures();
    if (!reader.opened() && failures != nullptr) {
        note_file_failure(*failures, path, errno != 0 ? errno : EIO, true);
    }
    return reader;
}

long reader_offset(TextReader& reader) {
    return reader.opened() ? std::ftell(reader.file.get()) : -1;
}

int reader_character(TextReader& reader) {
    if (!reader.opened()) {
        return -1;
    }
    const int character = std::getc(reader.file.get());
    if (kLinesMayEndInTwo && character == '\r') {
        const int next = std::getc(reader.file.get());
        if (next == '\n') {
            return next;
        }
        std::ungetc(next, reader.file.get());
    }
    return character == EOF ? -1 : character;
}

namespace {

void unread(TextReader& reader, int character) {
    if (reader.opened() && character >= 0) {
        std::ungetc(character, reader.file.get());
    }
}

}  // namespace

void reader_skip_space(TextReader& reader) {
    int character = reader_character(reader);
    while (character >= 0 && is_space(character)) {
        character = reader_character(reader);
    }
    unread(reader, character);
}

bool reader_at_end(TextReader& reader) {
    reader_skip_space(reader);
    const int character = reader_character(reader);
    unread(reader, character);
    return character < 0;
}

std::string reader_label(TextReader& reader) {
    reader_skip_space(reader);
    std::string label;
    int character = reader_character(reader);
    while (character >= 0 && !is_space(character)) {
        label.push_back(static_cast<char>(character));
        character = reader_character(reader);
    }
    unread(reader, character);
    reader_skip_space(reader);
    return label;
}

std::string reader_line(TextReader& reader) {
    std::string line;
    int character = reader_character(reader);
    while (character >= 0 && character != '\n') {
        line.push_back(static_cast<char>(character));
        character = reader_character(reader);
    }
    reader_skip_space(reader);
    return line;
}

bool reader_int(TextReader& reader, int& target) {
    return reader.opened() && std::fscanf(reader.file.get(), "%d\n", &target) == 1;
}

bool reader_float(TextReader& reader, float& target) {
    return reader.opened() && std::fscanf(reader.file.get(), "%f\n", &target) == 1;
}

bool reader_double(TextReader& reader, double& target) {
    return reader.opened() && std::fscanf(reader.file.get(), "%lf\n", &target) == 1;
}

bool reader_cell(TextReader& reader, int& target) {
    return reader.opened() && std::fscanf(reader.file.get(), "%d", &target) == 1;
}

void ReadSequence::note_failure() {
    const long place = reader_offset(reader_);
    stuck_ = place == failed_at_ || place < 0;
    failed_at_ = place;
}

#ifdef _WIN32

struct CLocaleScope::Saved {
    int per_thread = 0;
    std::string locale;
};

CLocaleScope::CLocaleScope() : saved_(std::make_unique<Saved>()) {
    saved_->per_thread = _configthreadlocale(_ENABLE_PER_THREAD_LOCALE);
    if (const char* current = std::setlocale(LC_ALL, nullptr)) {
        saved_->locale = current;
    }
    std::setlocale(LC_ALL, "C");
}

CLocaleScope::~CLocaleScope() {
    std::setlocale(LC_ALL, saved_->locale.c_str());
    _configthreadlocale(saved_->per_thread);
}

#else

struct CLocaleScope::Saved {
    locale_t c_locale = nullptr;
    locale_t previous = nullptr;
};

CLocaleScope::CLocaleScope() : saved_(std::make_unique<Saved>()) {
    saved_->c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    if (saved_->c_locale != nullptr) {
        saved_->previous = uselocale(saved_->c_locale);
    }
}

CLocaleScope::~CLocaleScope() {
    if (saved_->c_locale != nullptr) {
        uselocale(saved_->previous);
        freelocale(saved_->c_locale);
    }
}

#endif
