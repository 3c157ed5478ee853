// The table of estimates that people read.
#pragma once

#include <string>

#include "show/result_record.h"

// One line an effect below a head; "-" where there is no number. Stars stand beside p-values only:
// *** below 0.001, ** below 0.01, * below 0.05.
std::string estimates_table(const ResultRecord& result);

// "log-likelihood -210.84 (Monte Carlo error 0.03), deviance ..." and the end of the line; empty
// where there is none.
std::string likelihood_line(const ResultRecord& result);

// How many replicates came to which verdict, and the percentile intervals of those that converged.
std::string bootstrap_table(const ResultBootstrap& bootstrap);

// Values and statistics of a simulation, laid out alike.
std::string simulation_table(const ResultRecord& result);
