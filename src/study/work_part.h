// A run's samples or replicates, its pieces, divided among parts that may be carried out apart: at
// different times, on different machines. What a part draws depends on the run and on the part's
// number, not on the other parts.
#pragma once

#include <cstdint>

struct WorkPart {
    int number = 0;  // from 1; 0 stands for a run that is not divided
    int first = 0;   // of its pieces, from 0
    int count = 0;
};

// The part of that number, 1..parts, of a run of so many pieces: parts differ by one piece at most.
constexpr WorkPart work_part(int pieces, int parts, int number) {
    const auto border = [&](int after) {
        return static_cast<int>(static_cast<std::int64_t>(pieces) * after / parts);
    };
    return {number, border(number - 1), border(number) - border(number - 1)};
}

constexpr WorkPart undivided(int pieces) { return {0, 0, pieces}; }
