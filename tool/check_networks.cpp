#include "checks.h"
#include "files.h"

namespace {

std::string times(long long n) { return std::to_string(n) + " x " + std::to_string(n); }

std::string place_text(const CellSample& sample) {
    return "row " + std::to_string(sample.row) + ", column " + std::to_string(sample.column);
}

std::string others(const CellSample& sample) {
    return sample.count > 1 ? " and " + counted(sample.count - 1, "more cell") : "";
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
    const int root = square_root(numbers);
    return root > 0 && root != actors
               ? "; " + std::to_string(numbers) + " cells are a matrix of " + times(root) +
                     ": the actor count may be meant to be " + std::to_string(root)
               : "";
}

void report_break(const MatrixScan& scan, const Where& file, int actors, Findings& findings) {
    const long long wanted = static_cast<long long>(actors) * actors;
    const std::string expected = counted(wanted, "cell") + " (" + times(actors) +
                                 " for the actor count of " + std::to_string(actors) + ")";
    const Breakoff& end = scan.end;
    if (end.at_end) {
        add_error(findings, {file.file, end.line, file.field},
                  "the end of the file after " + counted(end.read, "cell"), expected,
                  "write the missing " + counted(wanted - end.read, "cell") +
                      ", or correct the actor count" + size_hint(end.read, actors));
        return;
    }
    const long long row = end.read / actors + 1;
    const long long column = end.read % actors + 1;
    add_error(findings, {file.file, end.line, file.field},
              quoted(end.word) + " in row " + std::to_string(row) + ", column " +
                  std::to_string(column) + "; this and the " +
                  counted(wanted - end.read - 1, "cell") + " behind it cannot be read",
              expected, mend_for_word(end.word, end.line));
}

void report_surplus(const MatrixScan& scan, const Where& file, int actors, Findings& findings) {
    const std::string expected = times(actors) + " cells and nothing more";
    if (scan.surplus > 0) {
        const long long wanted = static_cast<long long>(actors) * actors;
        const int width = count_words(line_of_file(file.file, 1));
        const std::string rows = width != actors
                                     ? "; its first line holds " + counted(width, "number") +
                                           ", so rows are read across lines"
                                     : "";
        add_warning(findings, file, counted(scan.surplus, "cell") + " more than are read" + rows,
                    expected,
                    "remove them or correct the actor count; they are ignored" +
                        size_hint(wanted + scan.surplus, actors));
    }
    if (scan.text_behind.count > 0) {
        add_warning(findings, {file.file, scan.text_behind.line, file.field},
                    quoted(scan.text_behind.word) + " behind the last cell", expected,
                    "remove it; it is ignored");
    }
}

void report_cells(const MatrixScan& scan, const Where& file, Findings& findings) {
    const auto where = [&file](const CellSample& sample) {
        return Where{file.file, sample.line, file.field};
    };
    if (scan.strange.count > 0) {
        add_warning(
            findings, where(scan.strange),
            quoted(scan.strange.word) + " in " + place_text(scan.strange) + others(scan.strange),
            "0 or 1", "write 1 for a tie: any other number is read as no tie");
    }
    if (scan.diagonal.count > 0) {
        add_warning(findings, where(scan.diagonal),
                    "a tie of actor " + std::to_string(scan.diagonal.row) + " to itself" +
                        others(scan.diagonal),
                    "0 on the diagonal", "write 0: ties to oneself are ignored");
    }
    if (scan.uneven.count > 0) {
        add_warning(findings, where(scan.uneven),
                    place_text(scan.uneven) + " differs from its mirror cell" +
                        (scan.uneven.count > 1
                             ? ", and so do " + counted(scan.uneven.count - 1, "more pair")
                             : ""),
                    "a symmetric matrix for an undirected network",
                    "make both cells equal: only the cell above the diagonal is used");
    }
}

}  // namespace

bool has_actor_count(const SetupView& view) {
    return find_item(view, "actor count") != nullptr && view.setup.settings.actor_count >= 2;
}

std::optional<Ties> check_network(const SetupView& view, const std::string& field,
                                  const std::string& path, Findings& findings) {
    const int actors = view.setup.settings.actor_count;
    const bool directed =
        view.setup.settings.network_kind == static_cast<int>(NetworkKind::directed);
    const std::string expected =
        has_actor_count(view) ? "a file of " + times(actors) + " cells" : "a file of cells";
    if (!check_readable(view, field, path, expected, findings) || !has_actor_count(view)) {
        return std::nullopt;
    }
    MatrixScan scan = scan_matrix(path, actors, directed);
    const Where file = {path, 0, field};
    report_cells(scan, file, findings);
    if (!scan.end.complete) {
        report_break(scan, file, actors, findings);
        return std::nullopt;
    }
    report_surplus(scan, file, actors, findings);
    return std::move(scan.ties);
}
