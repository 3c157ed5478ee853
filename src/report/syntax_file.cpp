#include "report/syntax_file.h"

#include "base/text_writer.h"

void write_syntax(const EffectSelection& selection, const std::string& table,
                  const std::string& path) {
    TextWriter out = writer_replace(path);
    const std::vector<OutputRow> rows = output_rows(selection, Output::syntax);
    // A few trace plots do not simply show their own effect's variable, and stored syntax files are
    // compared with them: the catalogue knows which.
    const std::vector<OutputRow> traced = output_rows(selection, Output::trace);
    out.text("GET DATA  /TYPE = TXT\n/FILE = '" + table + "'\n");
    out.text(
        "/DELCASE = LINE\n/DELIMITERS = \"\\t\"\n/ARRANGEMENT = DELIMITED\n/FIRSTCASE = 2\n"
        "/IMPORTCASE = ALL\n/VARIABLES =\nid F5.0\n");
    for (const OutputRow& row : rows) {
        out.text(row.label + " " + row.format + "\n");
    }
    out.text(".\nCACHE.\nEXECUTE.\n\n");
    for (std::size_t row = 0; row < rows.size(); ++row) {
        out.text("GRAPH\n/Histogram=" + rows[row].label + ".\nGRAPH\n/SCATTERPLOT(BIVAR)=id WITH " +
                 traced[row].label + "\n/MISSING=LISTWISE.\n");
    }
}
