#include "report/syntax_file.h"

#include "base/text_writer.h"

namespace {

constexpr int kUndirectedActivity = 9;
constexpr int kDirectedSum = 4;
constexpr int kDirectedDiff = 5;

// The variable that an effect's trace plot shows. Three plots do not simply show their own, and
// stored syntax files are compared with them: the undirected "iso" shows triangle, the directed
// interaction_sum shows interaction_diff, and activity has a blank behind its name.
std::string traced_variable(const EffectSelection& selection, const OutputRow& row) {
    const bool directed = selection.catalogue->kind == NetworkKind::directed;
    if (!directed && row.id == graph_effect::kIsolates) {
        return selection.catalogue->effects[graph_effect::kTriangle].labels.syntax;
    }
    if (!directed && row.group == AttributeGroup::binary && row.row == kUndirectedActivity) {
        return row.label + " ";
    }
    if (directed && row.group == AttributeGroup::continuous && row.row == kDirectedSum) {
        const auto& effects = group_catalogue(*selection.catalogue, row.group).effects;
        const std::string own = text_with_name(effects[kDirectedSum].labels.syntax, "");
        const std::string name = row.label.substr(0, row.label.size() - own.size());
        return text_with_name(effects[kDirectedDiff].labels.syntax, name);
    }
    return row.label;
}

}  // namespace

void write_syntax(const EffectSelection& selection, const std::string& table,
                  const std::string& path) {
    TextWriter out = writer_replace(path);
    const std::vector<OutputRow> rows = output_rows(selection, Output::syntax);
    out.text("GET DATA  /TYPE = TXT\n/FILE = '" + table + "'\n");
    out.text(
        "/DELCASE = LINE\n/DELIMITERS = \"\\t\"\n/ARRANGEMENT = DELIMITED\n/FIRSTCASE = 2\n"
        "/IMPORTCASE = ALL\n/VARIABLES =\nid F5.0\n");
    for (const OutputRow& row : rows) {
        out.text(row.label + " " + row.format + "\n");
    }
    out.text(".\nCACHE.\nEXECUTE.\n\n");
    for (const OutputRow& row : rows) {
        out.text("GRAPH\n/Histogram=" + row.label + ".\nGRAPH\n/SCATTERPLOT(BIVAR)=id WITH " +
                 traced_variable(selection, row) + "\n/MISSING=LISTWISE.\n");
    }
}
