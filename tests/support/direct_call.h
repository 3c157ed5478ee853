// The engine called without a Java machine between, with the settings of the exported function.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

#include "base/open_file.h"
#include "run/run.h"
#include "support/golden_cases.h"
#include "support/scratch_directory.h"

struct DirectResult {
    std::string console;
};

// Runs the setup file in the directory, at the clock of the golden runs, and returns to the current
// directory of before.
inline DirectResult call_directly(const std::filesystem::path& directory,
                                  const std::string& setup) {
    const ScratchDirectory scratch;
    const std::string console_path = (scratch.path() / "console").string();
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(directory);
    {
        const FileHandle console = open_file(console_path, "w");
        HostOptions options;
        options.console = console.get();
        options.clock_seconds = [] { return kGoldenClock; };
        run_setup_file(setup, options);
    }
    std::filesystem::current_path(before);
    return {file_text(console_path)};
}
