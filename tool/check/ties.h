// The ties of a network as a run would set them.
#pragma once

#include <vector>

struct Ties {
    int actors = 0;
    bool directed = false;
    // Row by row; only cells that count are 1, and an undirected tie stands in both of its cells.
    std::vector<char> cells;
    bool has(int i, int j) const {
        return cells[static_cast<std::size_t>(i) * static_cast<std::size_t>(actors) +
                     static_cast<std::size_t>(j)] != 0;
    }
};
