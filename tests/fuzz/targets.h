// What is fuzzed: each target takes any bytes and must come back, whatever they are. Bytes that a
// target cannot read are no failure; a crash, a sanitizer's finding or a broken promise is one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

struct FuzzTarget {
    const char* name;
    void (*run)(const std::uint8_t* data, std::size_t size);
};

// Every target by name; a corpus is a folder of that name.
std::span<const FuzzTarget> fuzz_targets();

// Null when there is none of that name.
const FuzzTarget* find_fuzz_target(const std::string& name);
