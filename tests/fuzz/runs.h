// Whole runs as fuzzing targets: the bytes choose the settings, the model and the files' contents;
// only the size of the network and the number of proposals are held small.
#pragma once

#include <cstddef>
#include <cstdint>

void fuzz_simulation(const std::uint8_t* data, std::size_t size);
void fuzz_estimation(const std::uint8_t* data, std::size_t size);
void fuzz_fit(const std::uint8_t* data, std::size_t size);
void fuzz_bayesian_fit(const std::uint8_t* data, std::size_t size);
