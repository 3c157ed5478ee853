// What a check has found as a JSON document.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/findings.h"
#include "show/result_record.h"

struct CheckRecord {
    std::string ovri;  // version
    std::string file;  // that was checked
    Findings findings;
    // Of a model whose data could be read: the network, its effects by name, what was read.
    std::optional<ResultNetwork> network;
    std::vector<std::string> effects;
    std::vector<std::string> notes;
};

// {"format": "ovri-check/1", ...}, ended by a line feed. Lines and columns count from 1; null where
// a finding is about a whole file or line.
std::string check_document(const CheckRecord& record);
