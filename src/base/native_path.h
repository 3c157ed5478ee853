// Paths as the system's own functions take them.
#pragma once

#include <filesystem>
#include <string>

// The path in UTF-8. A path that is not is taken as its bytes (on Windows in the code page of the
// process).
std::filesystem::path native_path(const std::string& path);
