// Networks for known answers: two published ones as tables, and two that are small enough for all
// networks on their actors to be gone through.
#pragma once

#include <string>

#include "study/study.h"

// Each with the effects of a list such as "edge,AT(2)". Settings are the defaults, the seed 1.

// Marriages of 16 Florentine families with the continuous attribute `wealth` (Padgett and Ansell
// 1993, American Journal of Sociology 98; net wealth in 1427 in thousands of lire).
Study florentine_families(const std::string& effects);

// 34 members of a karate club (Zachary 1977, Journal of Anthropological Research 33).
Study karate_club(const std::string& effects);

// 6 actors, 8 ties, 2 triangles.
Study six_actors(const std::string& effects);

// 4 actors, 6 arcs: of the 6 pairs of actors one has both arcs, four have one, one has none.
Study four_directed_actors(const std::string& effects);
