#include "support/run_outputs.h"

#include <cstdio>
#include <memory>

#include "run/run.h"
#include "support/scratch_directory.h"

namespace fs = std::filesystem;

OutputFiles files_below(const fs::path& directory) {
    OutputFiles files;
    if (!fs::exists(directory)) {
        return files;
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        if (entry.is_regular_file()) {
            files[entry.path().filename().string()] = file_text(entry.path());
        }
    }
    return files;
}

CurrentDirectory::CurrentDirectory(const fs::path& path) : before_(fs::current_path()) {
    fs::current_path(path);
}

CurrentDirectory::~CurrentDirectory() {
    std::error_code ignored;
    fs::current_path(before_, ignored);
}

RunOutputs run_in_directory(const fs::path& directory, std::int64_t clock) {
    const CurrentDirectory inside(directory);
    fs::remove_all("out");
    fs::create_directory("out");
    RunOutputs outputs;
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> console(
            std::fopen("console.txt", "w"), &std::fclose);
        HostOptions options;
        options.path_separator = '/';
        options.updates_beside_outputs = true;
        options.console = console.get();
        options.clock_seconds = [&outputs, clock] {
            ++outputs.clock_readings;
            return clock;
        };
        run_setup_file("run.setup", options);
    }
    outputs.console = file_text("console.txt");
    outputs.files = files_below("out");
    return outputs;
}
