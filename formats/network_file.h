// Networks from files of any format that people have them in.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/text_file.h"
#include "formats/ties.h"

enum class NetworkFormat { edge_list, matrix, pajek, graphml, gml, dl, dot };

// "edge-list", "matrix", "pajek", "graphml", "gml", "dl", "dot".
const char* network_format_name(NetworkFormat format);
std::optional<NetworkFormat> network_format_of(const std::string& name);
// The names of all formats that can be read.
std::vector<std::string> readable_formats();

// The format that a path's extension names; none for those that say nothing (csv, tsv, txt).
std::optional<NetworkFormat> format_of_path(const std::string& path);

// Whether a file is a network or a table rather than a model: by its extension (csv, tsv, graphml,
// ...), or by what stands first in it.
bool looks_like_data(const std::string& path, std::string_view text);

struct NetworkOptions {
    std::optional<NetworkFormat> format = {};  // else by extension, else by content
    std::optional<bool> directed = {};
    std::optional<double> threshold = {};
    std::optional<bool> head = {};
    // Without a word on direction from anyone, guess it from the ties; else that is a problem where
    // the format leaves it open.
    bool guess_direction = false;
};

// A network with what is to be told about how it was read.
struct NetworkFile {
    NetworkFormat format = NetworkFormat::edge_list;
    StudyNetwork network;
    NetworkCounts counts;
    std::vector<ActorColumn> columns;  // attributes that stand in the file, by the network's actors
    std::vector<std::string> notes;
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// Reads a network. `nodes`, when not null, are the actors and their order. In a matrix asymmetry
// tells the direction when nobody else does.
NetworkFile read_network(const std::string& path, const NetworkOptions& options,
                         const ActorList* nodes);
NetworkFile read_network(const TextFile& file, const NetworkOptions& options,
                         const ActorList* nodes);

// Pairs of actors by name: an edge list, or a matrix with a 1 for each pair. Each once, ascending;
// in an undirected network from < to.
std::vector<ActorTie> read_pairs(const std::string& path, const StudyNetwork& network,
                                 Problems& problems);
