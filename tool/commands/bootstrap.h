// What a parametric bootstrap found, as a record and as a file.
#pragma once

#include <string>

#include "show/result_record.h"
#include "study/study_bootstrap.h"

ResultBootstrap result_bootstrap(const StudyBootstrap& found);

// One row a replicate: its number, from 1, its verdict, and the estimate of each effect; empty
// where it did not converge.
std::string bootstrap_csv(const StudyBootstrap& found);
