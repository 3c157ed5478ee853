#include "formats/csv.h"

#include <algorithm>
#include <array>
#include <map>

#include "formats/text_file.h"

namespace {

// Longer than any name; a quotation mark that has not closed by then was never meant to open.
constexpr std::size_t kLongestField = std::size_t{1} << 16U;
// How far into a file a guess looks.
constexpr int kGuessLines = 64;
constexpr std::size_t kGuessCharacters = std::size_t{1} << 18U;

bool is_line_end(char character) { return character == '\n' || character == '\r'; }

bool is_blank(char character) { return character == ' ' || character == '\t'; }

// How evenly a delimiter cuts the first lines.
struct Cut {
    std::size_t columns = 0;  // the most frequent number of fields
    int lines = 0;            // that have it
    int all = 0;              // lines looked at
};

Cut cut_by(std::string_view text, char delimiter) {
    CsvScanner scanner(text, delimiter);
    std::map<std::size_t, int> counts;
    Cut best;
    while (best.all < kGuessLines && scanner.next()) {
        ++counts[scanner.fields().size()];
        ++best.all;
    }
    for (const auto& [columns, lines] : counts) {
        if (lines > best.lines) {
            best.columns = columns;
            best.lines = lines;
        }
    }
    return best;
}

}  // namespace

bool CsvScanner::at_line_end() const { return at_ >= text_.size() || is_line_end(text_[at_]); }

void CsvScanner::end_line() {
    if (at_ < text_.size()) {
        at_ += text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n' ? 2 : 1;
    }
    ++next_line_;
}

void CsvScanner::skip_to_data() {
    while (at_ < text_.size()) {
        std::size_t k = at_;
        while (k < text_.size() && is_blank(text_[k])) {
            ++k;
        }
        const bool blank = k >= text_.size() || is_line_end(text_[k]);
        const bool comment = !begun_ && !blank && (text_[k] == '#' || text_[k] == '%');
        if (!blank && !comment) {
            return;
        }
        at_ = std::min(text_.find_first_of("\r\n", at_), text_.size());
        end_line();
    }
}

void CsvScanner::unescape(std::size_t begin, std::size_t end) {
    std::vector<char>& single = unescaped_.emplace_back();
    for (std::size_t k = begin; k < end; ++k) {
        single.push_back(text_[k]);
        k += text_[k] == '"' ? 1 : 0;
    }
    fields_.back().text = std::string_view(single.data(), single.size());
}

void CsvScanner::read_quoted() {
    const std::size_t begin = ++at_;
    bool doubled = false;
    const std::size_t most = std::min(text_.size(), begin + kLongestField);
    while (true) {
        const std::size_t quote = text_.substr(0, most).find('"', at_);
        if (quote == std::string_view::npos) {
            unclosed_ = true;
            return;
        }
        at_ = quote + 1;
        if (at_ >= text_.size() || text_[at_] != '"') {
            break;
        }
        doubled = true;
        ++at_;
    }
    const std::string_view inside = text_.substr(begin, at_ - 1 - begin);
    fields_.back().quoted = true;
    fields_.back().text = inside;
    if (doubled) {
        unescape(begin, at_ - 1);
    }
    for (std::size_t k = 0; k < inside.size(); ++k) {
        const bool ends =
            inside[k] == '\n' || (inside[k] == '\r' && inside.substr(k + 1, 1) != "\n");
        next_line_ += ends ? 1 : 0;
    }
    // What follows up to the delimiter belongs to no field; blanks are usual there.
    while (!at_line_end() && text_[at_] != delimiter_ &&
           !(delimiter_ == kBlanks && is_blank(text_[at_]))) {
        ++at_;
    }
}

void CsvScanner::read_plain() {
    const std::size_t begin = at_;
    if (delimiter_ == kBlanks) {
        while (!at_line_end() && !is_blank(text_[at_])) {
            ++at_;
        }
    } else {
        while (!at_line_end() && text_[at_] != delimiter_) {
            ++at_;
        }
    }
    std::size_t end = at_;
    while (end > begin && is_blank(text_[end - 1])) {
        --end;
    }
    fields_.back().text = text_.substr(begin, end - begin);
}

void CsvScanner::read_field() {
    while (!at_line_end() && is_blank(text_[at_]) &&
           (delimiter_ == kBlanks || text_[at_] != delimiter_)) {
        ++at_;
    }
    fields_.emplace_back().offset = at_;
    if (!at_line_end() && text_[at_] == '"') {
        read_quoted();
    } else {
        read_plain();
    }
}

int CsvScanner::column(std::size_t field) const {
    const std::size_t offset = field < fields_.size() ? fields_[field].offset : line_begin_;
    int column = 1;
    for (std::size_t k = line_begin_; k < offset; ++k) {
        column += (static_cast<unsigned char>(text_[k]) & 0xC0U) != 0x80U ? 1 : 0;
    }
    return column;
}

bool CsvScanner::next() {
    fields_.clear();
    unescaped_.clear();
    skip_to_data();
    if (at_ >= text_.size() || unclosed_) {
        return false;
    }
    begun_ = true;
    line_ = next_line_;
    line_begin_ = at_;
    while (true) {
        read_field();
        if (unclosed_) {
            return false;
        }
        if (delimiter_ == kBlanks) {
            while (!at_line_end() && is_blank(text_[at_])) {
                ++at_;
            }
            if (at_line_end()) {
                break;
            }
        } else if (at_line_end()) {
            break;
        } else {
            ++at_;
        }
    }
    end_line();
    return true;
}

char guess_delimiter(std::string_view text, bool strict) {
    const std::string_view head = text.substr(0, kGuessCharacters);
    constexpr std::array<char, 4> kDelimiters = {'\t', ';', ',', kBlanks};
    char best = ',';
    Cut most;
    for (const char delimiter : kDelimiters) {
        const Cut cut = cut_by(head, delimiter);
        const bool uneven = strict && delimiter == kBlanks && cut.lines < cut.all;
        if (cut.columns >= 2 && cut.lines > most.lines && !uneven) {
            best = delimiter;
            most = cut;
        }
    }
    return best;
}

const char* delimiter_name(char delimiter) {
    switch (delimiter) {
        case ',':
            return "comma";
        case ';':
            return "semicolon";
        case '\t':
            return "tab";
        default:
            return "white space";
    }
}

std::string csv_field(std::string_view text) {
    const bool plain = text.find_first_of(",;\t\"\r\n") == std::string_view::npos &&
                       without_space(text) == text && !text.empty() && text.front() != '#' &&
                       text.front() != '%';
    if (plain) {
        return std::string(text);
    }
    std::string field = "\"";
    for (const char character : text) {
        field.append(character == '"' ? 2 : 1, character);
    }
    return field + "\"";
}

Problem unclosed_quote(const std::string& file, const CsvScanner& scanner) {
    const std::size_t fields = scanner.fields().size();
    return {.file = file,
            .line = scanner.line(),
            .column = scanner.column(fields > 0 ? fields - 1 : 0),
            .found = "a quotation mark that is never closed",
            .expected = "a second quotation mark at the end of the field",
            .mend = "close it, or double it where it belongs to the text"};
}
