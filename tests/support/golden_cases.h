// The cases of the golden runs, for tests that run them through another door.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

// The clock at which golden runs are held.
inline constexpr std::int64_t kGoldenClock = 20000;

std::vector<std::string> golden_case_names();

// Copies the inputs of a case (setup file and data, not what is expected) into the directory.
void copy_golden_inputs(const std::string& name, const std::filesystem::path& directory);

// The regular files right in a directory, by name.
using FileTexts = std::map<std::string, std::string>;
FileTexts files_in(const std::filesystem::path& directory);

// What a run left in the directory: everything there that is no input of the case.
FileTexts outputs_in(const std::filesystem::path& directory, const std::string& case_name);

// "" when both hold the same files with the same bytes; else where they part, for a reader.
std::string difference(const FileTexts& expected, const FileTexts& actual);
