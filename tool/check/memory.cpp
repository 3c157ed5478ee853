#include "check/memory.h"

#include <cstdio>

#include "terminal/machine.h"

namespace {

std::string gigabytes(double bytes) {
    char text[64];
    std::snprintf(text, sizeof text, "%.1f GB", bytes / 1e9);
    return text;
}

}  // namespace

std::optional<MemoryShortage> memory_shortage(const SetupFile& setup) {
    const std::vector<MemoryPart> parts = memory_parts(setup);
    const double needed = memory_total(parts);
    const double there = machine_memory();
    if (there <= 0.0 || needed <= there) {
        return std::nullopt;
    }
    return MemoryShortage{needed, there, parts.front()};
}

std::string shortage_text(const MemoryShortage& shortage) {
    return "needs about " + gigabytes(shortage.needed) + " of memory, and there are " +
           gigabytes(shortage.there);
}

std::string largest_part_text(const MemoryShortage& shortage) {
    return "most of it, " + gigabytes(shortage.largest.bytes) + ", goes into the " +
           shortage.largest.what;
}
