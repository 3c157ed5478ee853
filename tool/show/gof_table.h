// The table of a test of fit that people read.
#pragma once

#include <string>

#include "show/gof_record.h"

// What does not fit, the worst first; what fits; a line a distribution; the conclusion.
std::string gof_table(const GofRecord& record);
