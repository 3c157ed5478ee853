#include "base/text_reader.h"
#include "check/checks.h"
#include "check/file_text.h"
#include "check/files.h"
#include "check/numbers.h"

namespace {

// What one check of a matrix works with.
struct Subject {
    const std::string& path;
    std::string field;
    int actors;
    bool directed;
    const NumberBlock<int>& block;

    Where where(int line) const { return {path, line, field}; }
    long long wanted() const { return static_cast<long long>(actors) * actors; }
    int cell(int row, int column) const {
        return block.values[static_cast<std::size_t>(row) * static_cast<std::size_t>(actors) +
                            static_cast<std::size_t>(column)];
    }
};

std::string place_text(long long row, long long column) {
    return "row " + std::to_string(row + 1) + ", column " + std::to_string(column + 1);
}

// What the word that stopped the reading tells about the file.
std::string mend_for_word(const std::string& word, int line) {
    if (word.find_first_of(",;") != std::string::npos) {
        return "separate the cells by blanks, not by commas or semicolons";
    }
    if (!word.empty() && word[0] == '.') {
        return "write whole numbers: the cell was read up to its decimal point";
    }
    if (line == 1) {
        return "remove heads and names: the file holds the cells and nothing else";
    }
    return "write 0 or 1 there, and remove names and comments";
}

// A matrix of another size than the actor count says.
std::string size_hint(long long numbers, int actors) {
    const int root = whole_root(numbers).value_or(0);
    return root > 0 && root != actors
               ? "; " + std::to_string(numbers) + " cells are a matrix of " + squared(root) +
                     ": the actor count may be meant to be " + std::to_string(root)
               : "";
}

std::string expected_cells(const Subject& subject) {
    return counted(subject.wanted(), "cell") + " (" + squared(subject.actors) +
           " for the actor count of " + std::to_string(subject.actors) + ")";
}

void report_break(const Subject& subject, Findings& findings) {
    const Breakoff& end = subject.block.end;
    const int n = subject.actors;
    const std::string expected = expected_cells(subject);
    if (end.at_end) {
        add_error(findings, subject.where(end.place.line),
                  "the end of the file after " + counted(end.index, "cell"), expected,
                  "write the missing " + counted(end.unread, "cell") +
                      ", or correct the actor count" + size_hint(end.index, n));
        return;
    }
    const std::string more =
        end.unread > 1 ? "; this and " + counted(end.unread - 1, "more cell") + " cannot be read"
                       : "; it cannot be read and repeats the cell before";
    add_error(findings, subject.where(end.place.line),
              quoted(end.place.word) + " in " + place_text(end.index / n, end.index % n) + more,
              expected, mend_for_word(end.place.word, end.place.line));
}

void report_surplus(const Subject& subject, TextReader& reader, Findings& findings) {
    const std::string expected = squared(subject.actors) + " cells and nothing more";
    if (const long long surplus = count_surplus(reader); surplus > 0) {
        const int width = count_words(line_of_file(subject.path, 1));
        const std::string rows = width != subject.actors
                                     ? "; its first line holds " + counted(width, "number") +
                                           ", so rows are read across lines"
                                     : "";
        add_error(findings, subject.where(0),
                  counted(surplus, "cell") + " more than are read" + rows, expected,
                  "remove them or correct the actor count" +
                      size_hint(subject.wanted() + surplus, subject.actors));
    }
    if (!reader_at_end(reader)) {
        const TextPlace place = place_in_file(subject.path, reader_offset(reader));
        add_warning(findings, subject.where(place.line),
                    quoted(place.word) + " behind the last cell", expected,
                    "remove it; it is ignored");
    }
}

// Cells that have something strange in common: how many, and which is the first.
struct Sample {
    long long count = 0;
    int row = 0;
    int column = 0;
};

template <class Strange>
Sample sample_cells(const Subject& subject, Strange strange) {
    Sample sample;
    for (int row = 0; row < subject.actors; ++row) {
        for (int column = 0; column < subject.actors; ++column) {
            if (strange(row, column) && sample.count++ == 0) {
                sample.row = row;
                sample.column = column;
            }
        }
    }
    return sample;
}

Where where_sample(const Subject& subject, const Sample& sample) {
    const long long index = static_cast<long long>(sample.row) * subject.actors + sample.column;
    return subject.where(
        place_of_number<int>(subject.path, subject.block.begin, index, reader_cell).line);
}

std::string more_of(const Sample& sample, const std::string& what) {
    return sample.count > 1 ? " and " + counted(sample.count - 1, "more " + what) : "";
}

void check_values(const Subject& subject, Findings& findings) {
    const Sample strange = sample_cells(subject, [&subject](int i, int j) {
        const int value = subject.cell(i, j);
        return i != j && value != 0 && value != 1;
    });
    if (strange.count > 0) {
        const int value = subject.cell(strange.row, strange.column);
        add_error(findings, where_sample(subject, strange),
                  quoted(std::to_string(value)) + " in " + place_text(strange.row, strange.column) +
                      more_of(strange, "cell"),
                  "0 or 1",
                  value == kMissing || value < 0
                      ? "write 1 or 0: a network file has no missing values, and any number but 1 "
                        "is read as no tie"
                      : "write 1 for a tie and 0 for none: any other number is read as no tie");
    }
    const Sample loops = sample_cells(
        subject, [&subject](int i, int j) { return i == j && subject.cell(i, j) != 0; });
    if (loops.count > 0) {
        add_warning(findings, where_sample(subject, loops),
                    "a tie of actor " + std::to_string(loops.row + 1) + " to itself" +
                        more_of(loops, "such cell"),
                    "0 on the diagonal", "write 0: ties to oneself are ignored");
    }
}

std::string mend_symmetry(const Subject& subject) {
    const auto ties = [&subject](bool above) {
        return sample_cells(subject,
                            [&subject, above](int i, int j) {
                                return (above ? i < j : j < i) && subject.cell(i, j) == 1;
                            })
            .count;
    };
    if (ties(true) == 0) {
        return "write each tie above the diagonal too: only that half is read, so this network "
               "has no tie";
    }
    return ties(false) == 0
               ? "write each tie below the diagonal too"
               : "make both cells equal: only the cell above the diagonal is read. Arcs that may "
                 "stand alone make a directed network (network kind 2)";
}

void check_symmetry(const Subject& subject, Findings& findings) {
    const Sample uneven = sample_cells(subject, [&subject](int i, int j) {
        return j < i && (subject.cell(i, j) == 1) != (subject.cell(j, i) == 1);
    });
    if (!subject.directed && uneven.count > 0) {
        add_error(
            findings, where_sample(subject, uneven),
            place_text(uneven.row, uneven.column) + " differs from its mirror cell" +
                (uneven.count > 1 ? ", and so do " + counted(uneven.count - 1, "more pair") : ""),
            "a symmetric matrix for an undirected network", mend_symmetry(subject));
    }
}

Ties make_ties(const Subject& subject) {
    Ties ties{subject.actors, subject.directed, {}};
    for (int i = 0; i < subject.actors; ++i) {
        for (int j = 0; j < subject.actors; ++j) {
            const int cell = subject.directed || i < j ? subject.cell(i, j) : subject.cell(j, i);
            ties.cells.push_back(i != j && cell == 1 ? 1 : 0);
        }
    }
    return ties;
}

}  // namespace

bool has_actor_count(const SetupView& view) {
    return find_item(view, SetupId::actor_count) != nullptr && view.setup.settings.actor_count >= 2;
}

std::optional<Ties> check_network(const SetupView& view, SetupId id, const std::string& path,
                                  Findings& findings) {
    const int actors = view.setup.settings.actor_count;
    const std::string expected =
        has_actor_count(view) ? "a file of " + squared(actors) + " cells" : "a file of cells";
    if (!check_readable(view, id, path, expected, findings) || !has_actor_count(view)) {
        return std::nullopt;
    }
    TextReader reader = reader_open(path);
    const NumberBlock<int> block =
        read_numbers<int>(reader, path, static_cast<long long>(actors) * actors, reader_cell);
    const Subject subject = {path, name_of(view, id), actors, is_directed(view), block};
    Findings own;
    if (!block.complete()) {
        report_break(subject, own);
    } else {
        check_values(subject, own);
        check_symmetry(subject, own);
        report_surplus(subject, reader, own);
    }
    const bool fine = count_findings(own, Severity::error) == 0;
    if (const auto trouble =
            fine ? std::nullopt : explain_matrix_text(bytes_of_file(path), actors)) {
        // What explains them all stands for what follows from it.
        own.list.clear();
        add_error(own, subject.where(trouble->line), trouble->found, expected_cells(subject),
                  trouble->mend);
    }
    findings.list.insert(findings.list.end(), own.list.begin(), own.list.end());
    return fine ? std::optional(make_ties(subject)) : std::nullopt;
}
