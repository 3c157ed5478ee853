// The readers of host's files as fuzzing targets.
#pragma once

#include <cstddef>
#include <cstdint>

// A setup file whole.
void fuzz_setup(const std::uint8_t* data, std::size_t size);
// Group, number of actors, number of attributes, then the file.
void fuzz_attributes(const std::uint8_t* data, std::size_t size);
// Number of actors, number of covariates, then the file.
void fuzz_covariates(const std::uint8_t* data, std::size_t size);
// Number of actors, then the file.
void fuzz_matrix(const std::uint8_t* data, std::size_t size);
// Number of parameters, then the file.
void fuzz_covariance(const std::uint8_t* data, std::size_t size);
