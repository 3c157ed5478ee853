#include "fuzz/corpus.h"

#include <algorithm>
#include <string_view>

#include "support/scratch_directory.h"

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> files_under(const fs::path& directory) {
    std::vector<fs::path> files;
    if (fs::is_directory(directory)) {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory)) {
            if (entry.is_regular_file() && entry.file_size() < 20000) {
                files.push_back(entry.path());
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool has_part(const fs::path& path, std::string_view part) {
    return path.filename().string().find(part) != std::string::npos;
}

// The bytes in front of the file that the target reads first; empty for files that are not for it.
std::vector<std::string> heads_for(const std::string& target, const fs::path& path) {
    const bool setup = path.extension() == ".setup";
    if (target == "setup") {
        return setup ? std::vector<std::string>{""} : std::vector<std::string>{};
    }
    if (setup) {
        return {};
    }
    const std::string actors(1, static_cast<char>(16));
    if (target == "attributes" &&
        (has_part(path, "binary") || has_part(path, "categor") || has_part(path, "contin"))) {
        return {std::string("\0", 1) + actors + "\2", "\1" + actors + "\2", "\2" + actors + "\2"};
    }
    if (target == "covariates" && has_part(path, "covariate")) {
        return {actors + "\1"};
    }
    if (target == "covariance" && has_part(path, "covariance")) {
        return {"\3"};
    }
    if (target == "matrix" && (has_part(path, "network") || has_part(path, "free"))) {
        return {actors};
    }
    return {};
}

bool is_run(const std::string& target) {
    return target == "simulation" || target == "estimation" || target == "fit" ||
           target == "bayesian_fit";
}

// Choices of every kind, each followed by a matrix.
std::vector<std::string> run_inputs() {
    std::vector<std::string> inputs;
    for (int seed = 0; seed < 40; ++seed) {
        std::string input;
        for (int k = 0; k < 60; ++k) {
            input += static_cast<char>((seed * 37 + k * (seed + 11)) % 251);
        }
        for (int cell = 0; cell < 80; ++cell) {
            input += (cell * (seed + 3)) % 5 < 2 ? "1 " : "0 ";
        }
        inputs.push_back(input);
    }
    return inputs;
}

}  // namespace

std::vector<std::string> seed_inputs(const std::string& target) {
    std::vector<std::string> inputs = is_run(target) ? run_inputs() : std::vector<std::string>();
    const fs::path source = OVRI_SOURCE_DIRECTORY;
    for (const fs::path& root : {source / "examples", source / "tests/golden"}) {
        for (const fs::path& path : files_under(root)) {
            for (const std::string& head : heads_for(target, path)) {
                inputs.push_back(head + file_text(path));
            }
        }
    }
    for (const fs::path& path : files_under(source / "tests/fuzz/corpus" / target)) {
        inputs.push_back(file_text(path));
    }
    return inputs;
}
