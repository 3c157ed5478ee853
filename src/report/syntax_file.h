// The SPSS syntax file: loads the sample table and draws a histogram and a trace plot per
// statistic.
#pragma once

#include <string>

#include "effects/effect_selection.h"

// Writes the file anew; `table` is the sample table's whole path.
void write_syntax(const EffectSelection& selection, const std::string& table,
                  const std::string& path);
