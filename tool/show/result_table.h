// The table of estimates that people read.
#pragma once

#include <string>

#include "show/result_record.h"

// One line an effect below a head; "-" where there is no number. Stars stand beside p-values only:
// *** below 0.001, ** below 0.01, * below 0.05.
std::string estimates_table(const ResultRecord& result);

// Values and statistics of a simulation, laid out alike.
std::string simulation_table(const ResultRecord& result);
