// Nodes files: one row an actor, a head line, the actor's name in the first column, an attribute in
// each of the others.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "formats/text_file.h"
#include "formats/ties.h"

// What a person says about a column instead of leaving it to the guess.
struct ColumnOption {
    std::string name;
    std::optional<AttributeType> type;
    bool keep_missing = false;
    // Where a model file says so: there stands the mistake of a column that is not there.
    std::string file = {};
    int line = 0;
    int column = 0;
};

// One attribute as read. Its own problems (missing values, text among numbers) matter only to who
// uses it.
struct NodesColumn {
    StudyAttribute attribute;
    std::string note;  // how it was read: "binary: 1 is `yes`, 0 is `no`"
    Problems problems;
};

struct NodesFile {
    ActorList actors;
    std::string actor_column;  // the head of the first column
    std::vector<NodesColumn> columns;
    Problems problems;  // of the file as a whole
    bool ok() const { return problems.empty(); }
};

// Reads a nodes file. A column with two values is binary: of 0 and 1 the 1 is coded 1, of no and
// yes the yes (true, ja, oui, si and their like, whatever their case), of other numbers the larger,
// of other texts the one that sorts behind. Otherwise numbers make a continuous attribute and texts
// a categorical one, with codes from 1 in the order of its sorted texts (of its numbers, ascending,
// when it is said to be categorical).
//
// Missing values: nothing, NA, N/A, NaN, null and a single point; in numbers also 9999. Where they
// are not kept they are problems; only a continuous attribute can keep them.
NodesFile read_nodes(const std::string& path, const std::vector<ColumnOption>& options);
NodesFile read_nodes(const TextFile& file, const std::vector<ColumnOption>& options);

// The same for attributes that stand in the network's own file, at `path`.
NodesFile read_columns(const std::string& path, const ActorList& actors,
                       const std::vector<ActorColumn>& columns,
                       const std::vector<ColumnOption>& options);
