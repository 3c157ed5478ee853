#include "parts/part_files.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/native_path.h"
#include "batch/digest.h"
#include "commands/new_files.h"
#include "formats/text_file.h"
#include "show/document_pieces.h"

namespace fs = std::filesystem;

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "ovri-part/1";
constexpr std::array<const char*, 3> kCommands = {"simulate", "bootstrap", "gof"};

// The number of a part's file, complete or begun; 0 of other files.
int number_of(const std::string& name, const std::string& command) {
    const std::string head = command + "-";
    if (!name.starts_with(head) || (!name.ends_with(".json") && !name.ends_with(".json.part"))) {
        return 0;
    }
    const std::string digits = name.substr(head.size(), name.find('.') - head.size());
    const bool numbered = !digits.empty() && digits.size() < 10 &&
                          std::all_of(digits.begin(), digits.end(),
                                      [](char each) { return '0' <= each && each <= '9'; });
    return numbered ? std::stoi(digits) : 0;
}

}  // namespace

bool holds_parts(const std::string& directory) {
    std::error_code problem;
    fs::directory_iterator files(native_path(directory + "/parts"), problem);
    return !problem && std::all_of(begin(files), end(files), [](const fs::directory_entry& each) {
        const std::string name = each.path().filename().string();
        return std::any_of(kCommands.begin(), kCommands.end(),
                           [&name](const char* command) { return number_of(name, command) > 0; });
    });
}

DividedRun divided_run(const std::string& command, int pieces, int parts, const StudyInput& input,
                       const std::vector<double>& numbers) {
    Digest digest;
    digest.add(OVRI_VERSION);
    digest.add(command);
    digest.add(fmt::format("{} {}", pieces, parts));
    digest.add(input.files.standard_input);
    FileDigests files;
    add_model(settled_model(input), files, digest);
    for (const double number : numbers) {
        digest.add(fmt::format("{}", number));
    }
    return {command, pieces, parts, digest.text()};
}

std::string PartFiles::path(int number) const {
    return fmt::format("{}/{}-{:04}.json", folder_, run_.command, number);
}

bool PartFiles::exists(int number) const {
    std::error_code problem;
    return fs::exists(native_path(path(number)), problem);
}

bool PartFiles::read(int number, Json& records) const {
    bool found = false;
    read_document(read_text_file(path(number)).text, kFormat, [&](const Json& json) {
        if (text_at(json, "digest") == run_.digest && json.at("part") == number) {
            records = json.at("records");
            found = true;
        }
    });
    return found;
}

bool PartFiles::write(int number, const Json& records) const {
    Json json;
    json["format"] = kFormat;
    json["ovri"] = OVRI_VERSION;
    json["command"] = run_.command;
    json["digest"] = run_.digest;
    json["part"] = number;
    json["parts"] = run_.parts;
    json["first"] = part(number).first + 1;
    json["count"] = part(number).count;
    json["records"] = records;
    std::error_code problem;
    fs::create_directory(native_path(folder_), problem);
    return replace_file(path(number), json.dump() + "\n");
}

void PartFiles::remove_strays() const {
    std::error_code problem;
    for (const fs::directory_entry& each : fs::directory_iterator(native_path(folder_), problem)) {
        const std::string name = each.path().filename().string();
        if (number_of(name, run_.command) > run_.parts) {
            fs::remove(each.path(), problem);
        }
    }
}
