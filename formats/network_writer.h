// Networks written in the formats that they are read from, and as GraphViz DOT.
#pragma once

#include <string>
#include <vector>

#include "formats/network_file.h"

// The text of a network. Actors keep their names and order; an edge list alone leaves out actors
// without ties. Pajek and DL have no sign for a quotation mark or a line end inside a name: they
// become an apostrophe and a blank there. `delimiter` stands between the columns of an edge list.
std::string network_text(const StudyNetwork& network, NetworkFormat format, char delimiter = ',');

// The names that the format cannot write as they are.
std::vector<std::string> changed_names(const StudyNetwork& network, NetworkFormat format);

// A name that another actor's becomes alike to in that format; empty when all stay apart.
std::string clashing_name(const StudyNetwork& network, NetworkFormat format);

// A nodes file: the actors, with the attributes that a network's file holds.
std::string nodes_text(const ActorList& actors, const std::vector<ActorColumn>& columns = {});
