#include "commands/results_folder.h"

#include <algorithm>
#include <filesystem>

#include "base/native_path.h"
#include "commands/commands.h"
#include "formats/text_file.h"
#include "parts/part_files.h"
#include "terminal/print.h"

namespace fs = std::filesystem;

namespace {

// All that commands write into a folder; result.json first, so that a folder that is being
// overwritten is not taken for a complete one.
constexpr const char* kWritten[] = {
    "result.json", "estimates.csv", "covariance.csv",   "sample.csv",  "bootstrap.csv", "gof.json",
    "gof.csv",     "networks",      "nodes.csv",        "network.txt", "report.html",   "figures",
    "model.toml",  "run.log",       "result.json.part", "inputs.json", "parts"};

// Whether a command has left results in the folder, complete or not.
bool holds_results(const std::string& directory) {
    const auto begins = [&](const char* name, const std::string& words) {
        const TextFile file = read_text_file(directory + "/" + name);
        return file.ok() && file.text.substr(0, 200).find(words) != std::string::npos;
    };
    return begins("run.log", "version: ovri ") || begins("result.json", "\"ovri-result/") ||
           begins("gof.json", "\"ovri-gof/") || holds_parts(directory);
}

// The first of the files that stands in the folder where results go; empty when none does.
std::string input_inside(const std::string& directory, const std::vector<std::string>& inputs) {
    std::error_code problem;
    const fs::path folder = fs::weakly_canonical(native_path(directory), problem);
    for (const std::string& input : inputs) {
        if (input.empty() || input == "-") {
            continue;
        }
        const fs::path below =
            fs::weakly_canonical(native_path(input), problem).lexically_relative(folder);
        if (!below.empty() && std::find(std::begin(kWritten), std::end(kWritten), *below.begin()) !=
                                  std::end(kWritten)) {
            return input;
        }
    }
    return "";
}

void remove(const std::string& directory, const std::string& name) {
    std::error_code problem;
    fs::remove_all(native_path(directory + "/" + name), problem);
}

}  // namespace

ResultsFolder::ResultsFolder(const FolderOptions& options, const std::string& name) {
    if (!options.directory.empty() || options.overwrite || options.parts != FolderParts::none) {
        FolderOptions wanted = options;
        wanted.directory = options.directory.empty() ? name + ".results" : options.directory;
        take(wanted);
        if (mistake_.empty() && options.parts == FolderParts::added) {
            make("parts");
        }
    } else {
        take_next(name + ".results");
    }
}

void ResultsFolder::take(const FolderOptions& options) {
    directory_ = options.directory;
    std::error_code problem;
    const fs::path path = native_path(directory_);
    if (options.parts == FolderParts::merged && !holds_parts(directory_)) {
        mistake_ = "there is no folder `" + directory_ + "` with parts; name it by -o";
        return;
    }
    if (fs::create_directories(path, problem)) {
        return;
    }
    // Parts are asked for last: another command may be adding the first one.
    const bool directory = fs::is_directory(path);
    const bool clean = directory && fs::is_empty(path, problem);
    const bool taken_up = options.parts != FolderParts::none && !options.overwrite &&
                          (clean || holds_parts(directory_));
    const std::string input = input_inside(directory_, options.inputs);
    if (!directory) {
        mistake_ = "the results folder `" + directory_ + "` cannot be made" +
                   (problem ? ": " + problem.message() : "") + "; name another one by -o";
    } else if (!clean && !options.overwrite && !taken_up) {
        mistake_ = "the results folder `" + directory_ +
                   "` exists; name another one by -o, or add --overwrite";
    } else if (!input.empty()) {
        mistake_ = "the results folder `" + directory_ + "` holds `" + input +
                   "`, which this run reads; name another folder by -o";
    } else if (clean || taken_up) {
        return;
    } else if (!options.own && !holds_results(directory_)) {
        mistake_ = "the folder `" + directory_ +
                   "` holds other things than results and is not overwritten; name another one by "
                   "-o";
    } else {
        for (const char* name : kWritten) {
            remove(directory_, name);
        }
    }
}

void ResultsFolder::take_next(const std::string& name) {
    std::error_code problem;
    for (int number = 1;; ++number) {
        directory_ = number == 1 ? name : name + "." + std::to_string(number);
        if (fs::create_directory(native_path(directory_), problem)) {
            return;
        }
        if (problem) {
            mistake_ = "the results folder `" + directory_ +
                       "` cannot be made: " + problem.message() + "; name another one by -o";
            return;
        }
    }
}

bool ResultsFolder::make(const std::string& folder) {
    std::error_code problem;
    if (fs::create_directory(native_path(path(folder)), problem) ||
        fs::is_directory(native_path(path(folder)), problem)) {
        return true;
    }
    failures_.push_back(path(folder));
    return false;
}

void ResultsFolder::write(const std::string& file, const std::string& text) {
    if (!write_text_file(path(file), text)) {
        failures_.push_back(path(file));
    }
}

void ResultsFolder::reopen() {
    for (const std::string name : kWritten) {
        if (name != "parts" && name != "networks") {
            remove(directory_, name);
        }
    }
}

void ResultsFolder::finish(const std::string& result_json) {
    if (!failures_.empty()) {
        return;
    }
    const std::string part = path("result.json.part");
    std::error_code problem;
    if (write_text_file(part, result_json)) {
        fs::rename(native_path(part), native_path(path("result.json")), problem);
    } else {
        problem = std::make_error_code(std::errc::io_error);
    }
    if (problem) {
        fs::remove(native_path(part), problem);
        failures_.push_back(path("result.json"));
    }
}

int tell_interrupted(const ResultsFolder& folder, const std::string& kept) {
    print(stderr, "ovri: interrupted; {} has no result.json and is incomplete{}\n",
          folder.directory(), kept.empty() ? kept : "; it " + kept);
    return kInterrupted;
}

int tell_failures(const ResultsFolder& folder) {
    for (const std::string& path : folder.failures()) {
        print(stderr, "ovri: {} could not be written\n", path);
    }
    if (folder.failures().empty()) {
        print(stderr, "ovri: standard output could not be written\n");
    }
    return kNotCompleted;
}
