// Stands in for igraph_files.cpp in a build without igraph.
#include "formats/igraph_files.h"

bool has_igraph() { return false; }

void read_igraph_file(const TextFile& file, NetworkFormat format, std::optional<double>, TieTable&,
                      Problems& problems) {
    problems.push_back({.file = file.path,
                        .field = "format",
                        .found = std::string("`") + network_format_name(format) + "`",
                        .expected =
                            "`edge-list`, `matrix` or `dl`: this build has no igraph, which reads "
                            "the others",
                        .mend = "export the network as CSV, or use a build with igraph"});
}
