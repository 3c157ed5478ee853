// The TOML library as this folder uses it: errors are values, and its own functions are compiled
// once, in toml_library.cpp, rather than in every source that reads TOML.
#pragma once

#define TOML_EXCEPTIONS 0
#define TOML_HEADER_ONLY 0
#include <toml++/toml.h>
