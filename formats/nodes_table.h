// The cells of a nodes file as they stand, each with its place.
#pragma once

#include <string>
#include <vector>

#include "formats/nodes.h"

// One value with its place.
struct Cell {
    std::string text;
    int line = 0;
    int column = 0;
};

struct Column {
    std::string name;
    std::vector<Cell> cells;
};

struct NodesTable {
    Column actors;
    std::vector<Column> columns;
};

// The table of a file's text; what is wrong with it goes to the problems of `nodes`.
NodesTable read_nodes_table(const TextFile& file, NodesFile& nodes);
