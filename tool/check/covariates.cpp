#include <algorithm>
#include <cmath>

#include "check/checks.h"
#include "check/file_text.h"
#include "check/files.h"
#include "check/numbers.h"

namespace {

// One covariate of the file: its name line, and its values as far as they can be read.
struct CovariateScan {
    std::string name;
    int name_line = 0;
    NumberBlock<float> block;
};

CovariateScan scan_covariate(TextReader& reader, const std::string& path, int actors) {
    CovariateScan scan;
    scan.name_line = place_in_file(path, reader_offset(reader)).line;
    scan.name = reader_line(reader);
    scan.block =
        read_numbers<float>(reader, path, static_cast<long long>(actors) * actors, reader_float);
    return scan;
}

// What is read of one covariate, for its messages.
struct Subject {
    const SetupView& view;
    const std::string& path;
    int number;  // from 1
    int actors;
    int count;
    Where where(int line) const {
        return {path, line, "covariate " + std::to_string(number) + " of " + std::to_string(count)};
    }
};

// A row of the covariate that is too short or too long, before the place where reading ended.
std::optional<OddRow> odd_row(const Subject& subject, const CovariateScan& scan) {
    const std::optional<OddRow> odd = first_odd_row(bytes_of_file(subject.path), scan.name_line + 1,
                                                    subject.actors, subject.actors);
    const Breakoff& end = scan.block.end;
    return odd && (end.at_end || odd->line < end.place.line) ? odd : std::nullopt;
}

std::string mend_break(const Subject& subject, const CovariateScan& scan) {
    const Breakoff& end = scan.block.end;
    if (end.at_end) {
        return "write the missing values, or correct the covariate count and the actor count in "
               "the setup file";
    }
    if (stands_for_missing(end.place.word)) {
        return "write a number for each of the " +
               counted(count_missing(bytes_of_file(subject.path)), "missing value") +
               " of the file: a covariate has none";
    }
    const long long n = subject.actors;
    if (subject.number < subject.count && end.index % n == 0) {
        return "write the missing " + counted(n - end.index / n, "row") +
               ", if this is the name of the next covariate";
    }
    return "write a number there, with a decimal point and blanks between values";
}

void report_break(const Subject& subject, const CovariateScan& scan, Findings& findings) {
    const Breakoff& end = scan.block.end;
    const std::optional<OddRow> odd = odd_row(subject, scan);
    std::string found = (end.at_end ? "the end of the file" : quoted(end.place.word)) + " after " +
                        counted(end.index, "value") + " of " + quoted(scan.name);
    if (odd) {
        found += "; " + describe_odd_row(*odd, "value");
    } else if (!end.at_end) {
        found += end.unread > 1 ? "; nothing behind it can be read as meant"
                                : "; it cannot be read and stays 0";
    }
    add_error(findings, subject.where(odd ? odd->line : end.place.line), found,
              "a line with the name, then " + squared(subject.actors) + " values",
              mend_break(subject, scan));
}

// True when the line that should be a name is a row of numbers.
bool check_name(const Subject& subject, const CovariateScan& scan, Findings& findings) {
    const Where where = subject.where(scan.name_line);
    if (count_words(scan.name) > 1 &&
        real_word(scan.name.substr(0, scan.name.find(' '))).whole_word) {
        add_error(findings, where, "numbers: " + quoted(scan.name), "a line with the name",
                  subject.number == 1
                      ? "begin the file with the covariate's name on a line of its own"
                      : "remove the rows that covariate " + std::to_string(subject.number - 1) +
                            " has more than " + std::to_string(subject.actors) +
                            ", or correct the actor count");
        return false;
    }
    if (scan.name.empty() || std::any_of(scan.name.begin(), scan.name.end(), is_blank)) {
        add_warning(findings, where, "the name " + quoted(scan.name), "a name without blanks",
                    scan.name.ends_with('\r')
                        ? "save the file with Unix line ends: the carriage return is kept as part "
                          "of the name"
                        : "remove the blanks or write underscores: the name goes into every table "
                          "as it stands");
    }
    return true;
}

void check_values(const Subject& subject, const CovariateScan& scan, Findings& findings) {
    const auto n = static_cast<std::size_t>(subject.actors);
    long long uneven = 0;
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            uneven += scan.block.values[i * n + j] != scan.block.values[j * n + i] ? 1 : 0;
        }
    }
    const Where where = subject.where(scan.name_line);
    if (uneven > 0 && !is_directed(subject.view)) {
        add_warning(
            findings, where,
            counted(uneven, "pair") + " of " + quoted(scan.name) + " with two different values",
            "a symmetric covariate for an undirected network",
            "make the values of a pair equal: which of the two is used changes from "
            "proposal to proposal");
    }
    if (std::any_of(scan.block.values.begin(), scan.block.values.end(),
                    [](float value) { return !std::isfinite(value); })) {
        add_warning(findings, where, "values of " + quoted(scan.name) + " that are not finite",
                    "numbers", "correct them; they are used as they stand");
    }
}

void check_repeats(const Subject& subject, const std::vector<std::string>& names, int line,
                   Findings& findings) {
    if (std::find(names.begin(), names.end() - 1, names.back()) != names.end() - 1) {
        add_warning(findings, subject.where(line), "the name " + quoted(names.back()) + " twice",
                    "a name of its own for each covariate",
                    "rename one: results tell effects apart by name");
    }
}

void check_covariate_file(const SetupView& view, const AttributeSelection& chosen,
                          Findings& findings) {
    TextReader reader = reader_open(chosen.path);
    std::vector<std::string> names;
    const int actors = view.setup.settings.actor_count;
    for (int number = 1; number <= chosen.attributes; ++number) {
        const Subject subject = {view, chosen.path, number, actors, chosen.attributes};
        const CovariateScan scan = scan_covariate(reader, chosen.path, actors);
        names.push_back(scan.name);
        if (!check_name(subject, scan, findings)) {
            return;
        }
        check_repeats(subject, names, scan.name_line, findings);
        if (!scan.block.complete()) {
            report_break(subject, scan, findings);
            return;
        }
        check_values(subject, scan, findings);
    }
    if (!reader_at_end(reader)) {
        const TextPlace place = place_in_file(chosen.path, reader_offset(reader));
        add_warning(findings,
                    {chosen.path, place.line,
                     name_of(view, {SetupId::group_file, AttributeGroup::covariate})},
                    quoted(place.word) + " behind the last value",
                    counted(chosen.attributes, "covariate") + " of " + squared(actors) + " values",
                    "remove it, or correct the covariate count in the setup file; it is ignored");
    }
}

// A covariance is symmetric and has no negative number on its diagonal.
void check_covariance_values(const std::vector<double>& values, int size, const Where& where,
                             Findings& findings) {
    const auto m = static_cast<std::size_t>(size);
    long long uneven = 0;
    long long negative = 0;
    for (std::size_t i = 0; i < m; ++i) {
        negative += values[i * m + i] >= 0.0 ? 0 : 1;
        for (std::size_t j = 0; j < i; ++j) {
            const double a = values[i * m + j];
            const double b = values[j * m + i];
            uneven += std::fabs(a - b) <= 1e-4 * (std::fabs(a) + std::fabs(b)) + 1e-5 ? 0 : 1;
        }
    }
    if (negative > 0) {
        add_warning(findings, where, counted(negative, "negative variance"),
                    "variances of 0 or more on the diagonal",
                    "use the covariance file of an estimation that converged: draws from this one "
                    "are not numbers");
    }
    if (uneven > 0) {
        add_warning(findings, where, counted(uneven, "pair") + " of cells that differ",
                    "a symmetric matrix",
                    "use the covariance file of an estimation of the same model; only the lower "
                    "triangle is used");
    }
}

}  // namespace

void check_covariates(const SetupView& view, Findings& findings) {
    constexpr SetupKey kFile = {SetupId::group_file, AttributeGroup::covariate};
    const AttributeSelection& chosen = group_of(view.setup.selection, AttributeGroup::covariate);
    if (find_item(view, kFile) == nullptr || chosen.attributes <= 0) {
        return;
    }
    const bool readable = check_readable(view, kFile, chosen.path,
                                         "a file with " + counted(chosen.attributes, "covariate") +
                                             ", each a line with its name "
                                             "and then its values",
                                         findings);
    if (readable && has_actor_count(view)) {
        check_covariate_file(view, chosen, findings);
    }
}

void check_covariance(const SetupView& view, Findings& findings) {
    if (find_item(view, SetupId::covariance_file) == nullptr) {
        return;
    }
    const std::string& path = view.setup.settings.covariance_path;
    const std::string field = name_of(view, SetupId::covariance_file);
    const int size = selection_size(view.setup.selection);
    const std::string expected =
        squared(size) + " numbers, for the " + counted(size, "effect") + " selected";
    if (!check_readable(view, SetupId::covariance_file, path,
                        expected + " (an estimation of the same model writes covariance_NAME.txt)",
                        findings)) {
        return;
    }
    TextReader reader = reader_open(path);
    const long long wanted = static_cast<long long>(size) * size;
    const NumberBlock<double> block = read_numbers<double>(reader, path, wanted, reader_double);
    const char* mend =
        "use the covariance file that an estimation of the same model wrote, or select the "
        "effects that this file was made for";
    if (!block.complete()) {
        const Breakoff& end = block.end;
        add_error(findings, {path, end.place.line, field},
                  (end.at_end ? "the end of the file" : quoted(end.place.word)) + " after " +
                      counted(end.index, "number"),
                  expected, mend);
        return;
    }
    check_covariance_values(block.values, size, {path, 0, field}, findings);
    if (const long long surplus = count_surplus(reader); surplus > 0) {
        add_error(findings, {path, 0, field}, counted(wanted + surplus, "number"), expected, mend);
    } else if (!reader_at_end(reader)) {
        const TextPlace place = place_in_file(path, reader_offset(reader));
        add_warning(findings, {path, place.line, field},
                    quoted(place.word) + " behind the last number", expected,
                    "remove it; it is ignored");
    }
}
