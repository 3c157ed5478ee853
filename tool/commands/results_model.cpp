#include "commands/results_model.h"

#include <filesystem>

#include "base/native_path.h"
#include "formats/text_file.h"
#include "show/result_json.h"

bool names_folder(const std::string& word) {
    std::error_code problem;
    return !word.empty() && std::filesystem::is_directory(native_path(word), problem);
}

std::string folder_word(std::string word) {
    while (word.size() > 1 && word.back() == '/') {
        word.pop_back();
    }
    return word;
}

std::optional<ResultRecord> read_result(const std::string& directory, Problems& problems) {
    const std::string path = directory + "/result.json";
    const TextFile file = read_text_file(path);
    std::optional<ResultRecord> result = file.ok() ? read_result_json(file.text) : std::nullopt;
    if (!result) {
        problems.push_back({.file = path,
                            .found = file.ok() ? "another document" : "no such file",
                            .expected = "the result of `ovri estimate`",
                            .mend = "run `ovri estimate` again: the folder is incomplete"});
    }
    return result;
}
