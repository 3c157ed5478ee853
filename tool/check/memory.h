// Whether the machine has the memory that a run needs.
#pragma once

#include <optional>
#include <string>

#include "run/memory_estimate.h"

// A run that needs more memory than there is; bytes.
struct MemoryShortage {
    double needed = 0.0;
    double there = 0.0;
    MemoryPart largest;
};

// Nothing when the run of this setup fits, or where nothing is known of the machine.
std::optional<MemoryShortage> memory_shortage(const SetupFile& setup);

// "needs about 3.8 GB of memory, and there are 1.0 GB".
std::string shortage_text(const MemoryShortage& shortage);

// "most of it, 3.6 GB, goes into the tables of the networks".
std::string largest_part_text(const MemoryShortage& shortage);
