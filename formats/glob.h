// Files by pattern: `*` stands for any characters of a name, `?` for one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

bool is_glob(std::string_view path);

// Whether the name, of a file or a folder, is one of the pattern's. Hidden names (.name) are only
// where the pattern says the point.
bool glob_matches(std::string_view pattern, std::string_view name);

// The files of a pattern, whose folders may be patterns too, as seen from where it is seen. They
// come in the order of what stands before the pattern's last literal characters: a.csv comes before
// a.b.csv, as a.nodes.csv before a.b.nodes.csv. Empty when there is none.
std::vector<std::string> glob_files(const std::string& pattern);
