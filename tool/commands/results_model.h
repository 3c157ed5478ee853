// A results folder as a model: its model.toml with the estimates of its result.json.
#pragma once

#include <optional>
#include <string>

#include "commands/model_options.h"
#include "show/result_record.h"

// Whether the word of the command line names a folder.
bool names_folder(const std::string& word);

// The folder's name without the strokes behind it.
std::string folder_word(std::string word);

// The record of a folder's result.json; none, with a problem, where there is none.
std::optional<ResultRecord> read_result(const std::string& directory, Problems& problems);
