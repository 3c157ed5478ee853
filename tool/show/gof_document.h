// gof.json and gof.csv: a test of fit for scripts and for later commands.
#pragma once

#include <optional>
#include <string>

#include "show/gof_record.h"

// The document, with a line end behind it. Numbers have as many digits as bring the same value
// back.
std::string gof_json(const GofRecord& record);

// The record of a document; none where the text is no gof.json of a format that this version knows.
// P-values of a distribution's rows are not kept.
std::optional<GofRecord> read_gof_json(const std::string& text);

// One row a statistic ("statistic", its name, no entry), then one an entry of each distribution.
std::string gof_csv(const GofRecord& record);
