#include "check/findings.h"

#include <algorithm>

#include "terminal/print.h"

namespace {

constexpr std::size_t kMostCharacters = 200;

void print_line(std::FILE* out, const char* head, const std::string& text) {
    if (!text.empty()) {
        print(out, "    {:<9} {}\n", head, text);
    }
}

void print_finding(const Finding& finding, const Screen& out) {
    const Where& where = finding.where;
    const std::string severity = finding.severity == Severity::error
                                     ? painted(out, Colour::red, "error")
                                     : painted(out, Colour::yellow, "warning");
    print(out.stream, "{}{}{}{}{}{}{}\n", where.file,
          where.line > 0 ? fmt::format(":{}", where.line) : "",
          where.line > 0 && where.column > 0 ? fmt::format(":{}", where.column) : "",
          where.file.empty() ? "" : ": ", severity, where.field.empty() ? "" : ": ", where.field);
    print_line(out.stream, "found:", finding.found);
    print_line(out.stream, "expected:", finding.expected);
    print_line(out.stream, "to mend:", finding.mend);
}

std::string escape(unsigned char character) {
    switch (character) {
        case '\r':
            return "\\r";
        case '\n':
            return "\\n";
        case '\t':
            return "\\t";
        default:
            return fmt::format("\\x{:02X}", character);
    }
}

}  // namespace

void add_error(Findings& findings, const Where& where, const std::string& found,
               const std::string& expected, const std::string& mend) {
    findings.list.push_back({Severity::error, where, found, expected, mend});
}

void add_warning(Findings& findings, const Where& where, const std::string& found,
                 const std::string& expected, const std::string& mend) {
    findings.list.push_back({Severity::warning, where, found, expected, mend});
}

int count_findings(const Findings& findings, Severity severity) {
    return static_cast<int>(
        std::count_if(findings.list.begin(), findings.list.end(),
                      [severity](const Finding& each) { return each.severity == severity; }));
}

std::string findings_summary(const Findings& findings) {
    return counted(count_findings(findings, Severity::error), "error") + ", " +
           counted(count_findings(findings, Severity::warning), "warning");
}

void print_findings(const Findings& findings, bool with_warnings, const Screen& out) {
    for (const Severity severity : {Severity::error, Severity::warning}) {
        for (const Finding& finding : findings.list) {
            if (finding.severity == severity && (with_warnings || severity == Severity::error)) {
                print_finding(finding, out);
            }
        }
    }
}

std::string quoted(const std::string& text) {
    std::string shown = "\"";
    std::size_t k = 0;
    // A character of several bytes is shown whole.
    for (; k < text.size() && (k < kMostCharacters || (text[k] & 0xC0) == 0x80); ++k) {
        const auto character = static_cast<unsigned char>(text[k]);
        shown +=
            character < 0x20 || character == 0x7F ? escape(character) : std::string(1, text[k]);
    }
    return shown + (k < text.size() ? "...\"" : "\"");
}

std::string squared(long long size) { return std::to_string(size) + " x " + std::to_string(size); }
