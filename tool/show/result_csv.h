// Results as CSV, in files and on standard output.
#pragma once

#include <string>
#include <vector>

#include "show/result_record.h"

// One row an effect, with the keys of result.json as its head.
std::string estimates_csv(const ResultRecord& result);

// Names in head and first column.
std::string covariance_csv(const ResultRecord& result);

// Statistics, one row a sample: chain and draw, both from 1, then a column an effect.
std::string sample_head(const std::vector<std::string>& effects);
std::string sample_row(int chain, int draw, const std::vector<double>& statistics);
