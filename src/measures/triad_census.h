// The triads of a digraph by their class (Holland and Leinhardt 1976).
#pragma once

#include <array>

#include "network/digraph.h"

// Classes by the place of their count.
constexpr std::array<const char*, 16> kTriadNames = {"300",  "210",  "120C", "120D", "120U", "201",
                                                     "111D", "111U", "030T", "030C", "102",  "021D",
                                                     "021C", "021U", "012",  "003"};

// Recomputes `triad_census`, solved from the ten configuration counts. The products of n are formed
// in 32-bit integers and wrap for a large n.
void refresh_triad_census(Digraph& digraph);
