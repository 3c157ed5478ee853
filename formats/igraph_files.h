// The formats that igraph's C library reads: Pajek, GraphML and GML.
//
// A build without igraph reads none of them and says so.
#pragma once

#include <optional>

#include "formats/network_file.h"

// Reads the ties and, where the format has them, names and direction of the text. A tie attribute
// "weight" needs a threshold unless it is 1 throughout. Problems: what the format's parser says,
// with its line.
void read_igraph_file(const TextFile& file, NetworkFormat format, std::optional<double> threshold,
                      TieTable& table, Problems& problems);

// Whether this build can read those formats.
bool has_igraph();
