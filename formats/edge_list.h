// Edge lists: one tie a line, from and to, perhaps a weight; by names or numbers.
#pragma once

#include <optional>

#include "formats/text_file.h"
#include "formats/ties.h"

struct EdgeListOptions {
    std::optional<double> threshold;   // smallest weight that makes a tie
    std::optional<bool> head;          // whether there is a head line; a guess without
    const ActorList* nodes = nullptr;  // helps the guess
};

// Reads an edge list. Commas, semicolons, tabs or white space stand between the columns. A third
// column of weights that are not all 1 needs a threshold. Notes tell what was guessed. Reading ends
// after kMostProblems problems or kMostActors actors.
void read_edge_list(const TextFile& file, const EdgeListOptions& options, TieTable& table,
                    Problems& problems);
