// Whether a stream is a terminal.
#pragma once

#include <cstdio>

bool is_terminal(std::FILE* stream);
