// Names as people type them: compared without regard to case, "-" and "_", and the nearest one
// found when none is meant exactly.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Lower case, without "-" and "_". Letters beyond ASCII stay as they are.
std::string name_key(std::string_view name);

bool names_match(std::string_view a, std::string_view b);

// Insertions, deletions, replacements and swaps of neighbouring characters that make one text the
// other. O(length of a x length of b).
int edit_distance(std::string_view a, std::string_view b);

// The candidate that is nearest to the name, the first among equals; empty when none is near enough
// to have been meant (more than a third of the characters, at least one, would have to change).
std::string nearest_name(std::string_view name, const std::vector<std::string>& candidates);

// "`a`", "`a` and `b`", "`a`, `b` and `c`".
std::string listed_names(const std::vector<std::string>& names);
