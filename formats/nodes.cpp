#include "formats/nodes.h"

#include <algorithm>

#include "formats/column_values.h"
#include "study/names.h"

namespace {

// A type said of a column that is not there.
void check_options(const std::string& file, const NodesTable& table,
                   const std::vector<ColumnOption>& options, NodesFile& nodes) {
    std::vector<std::string> names;
    for (const Column& column : table.columns) {
        names.push_back(column.name);
    }
    for (const ColumnOption& option : options) {
        if (std::find(names.begin(), names.end(), option.name) != names.end()) {
            continue;
        }
        const std::string nearest = nearest_name(option.name, names);
        nodes.problems.push_back(
            {.file = option.line > 0 ? option.file : file,
             .line = option.line,
             .column = option.column,
             .field = "`" + option.name + "` in [attributes]",
             .found = "no column of that name",
             .expected =
                 "a column of " + file + (names.empty() ? "" : ": one of " + listed_names(names)),
             .mend = nearest.empty() ? "mend the name under [attributes]"
                                     : "a similar one is `" + nearest + "`"});
    }
}

// Actors and attributes of a table that was read, if it was.
void take_table(const std::string& file, const NodesTable& table,
                const std::vector<ColumnOption>& options, NodesFile& nodes) {
    check_options(file, table, options, nodes);
    if (!nodes.ok()) {
        return;
    }
    nodes.actor_column = table.actors.name;
    for (const Cell& cell : table.actors.cells) {
        nodes.actors.push_back(cell.text);
    }
    for (const Column& column : table.columns) {
        const auto option =
            std::find_if(options.begin(), options.end(),
                         [&](const ColumnOption& each) { return each.name == column.name; });
        nodes.columns.push_back(
            read_column(file, table, column, option == options.end() ? nullptr : &*option));
    }
}

}  // namespace

NodesFile read_nodes(const std::string& path, const std::vector<ColumnOption>& options) {
    return read_nodes(read_text_file(path), options);
}

NodesFile read_nodes(const TextFile& file, const std::vector<ColumnOption>& options) {
    NodesFile nodes;
    nodes.problems = file.problems;
    if (!file.ok()) {
        return nodes;
    }
    const NodesTable table = read_nodes_table(file, nodes);
    take_table(file.path, table, options, nodes);
    return nodes;
}

NodesFile read_columns(const std::string& path, const ActorList& actors,
                       const std::vector<ActorColumn>& columns,
                       const std::vector<ColumnOption>& options) {
    NodesTable table;
    for (const std::string& actor : actors) {
        table.actors.cells.push_back({actor, 0, 0});
    }
    for (const ActorColumn& column : columns) {
        Column& cells = table.columns.emplace_back();
        cells.name = column.name;
        for (const std::string& value : column.values) {
            cells.cells.push_back({value, 0, 0});
        }
    }
    NodesFile nodes;
    take_table(path, table, options, nodes);
    return nodes;
}
