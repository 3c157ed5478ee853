// The verdict of an estimation as a person reads it below the table.
#pragma once

#include <string>

#include "show/result_record.h"
#include "terminal/terminal.h"

// Verdict and method; where the estimates are not to be used, the reasons and what to try next.
// `runs` counts those of stochastic approximation.
std::string verdict_line(const ResultRecord& result, std::size_t runs, const Screen& out);
