// result.json: everything that a command found, for scripts and for later commands.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

#include "show/result_record.h"

// The document, with a line end behind it. Numbers have as many digits as bring the same value
// back.
std::string result_json(const ResultRecord& result);

// The document's "diagnosis"; null without one.
nlohmann::ordered_json diagnosis_json(const std::optional<ResultDiagnosis>& diagnosis);

// The record of a document; none where the text is no result.json of a format that this version
// knows.
std::optional<ResultRecord> read_result_json(const std::string& text);
