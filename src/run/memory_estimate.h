// How much memory a run will take, told before it starts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "run/setup_file.h"

// Bytes of the tables of one network of n actors, none below 0.
double graph_bytes(std::int64_t n);
double digraph_bytes(std::int64_t n);

// What takes memory, in bytes, at the time when the run holds most of it, and the item of the setup
// file that makes it as large as it is.
struct MemoryPart {
    std::string what;
    double bytes = 0.0;
    SetupId id = SetupId::actor_count;
};

// The parts of the run that the setup describes, the largest first. What is small for every n (the
// program, the model, one section of an output) is left out.
std::vector<MemoryPart> memory_parts(const SetupFile& setup);

double memory_total(const std::vector<MemoryPart>& parts);
