// The values of one column of a nodes file: their type, told or guessed, and their codes.
#pragma once

#include "formats/nodes_table.h"

// The column as an attribute; `option` is null where nothing is said of it. See read_nodes for the
// rules.
NodesColumn read_column(const std::string& file, const NodesTable& table, const Column& column,
                        const ColumnOption* option);
