// Networks written in the formats that they are read from, and as GraphViz DOT.
#pragma once

#include <string>

#include "formats/network_file.h"

// The text of a network. Actors keep their names and order; an edge list alone leaves out actors
// without ties. Pajek and DL have no sign for a quotation mark inside a name: it becomes an
// apostrophe there.
std::string network_text(const StudyNetwork& network, NetworkFormat format);
