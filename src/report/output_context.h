// What the writers of a run's files share, lent by the run.
#pragma once

#include <cstdio>

#include "effects/effect_selection.h"
#include "report/output_paths.h"
#include "report/sample_tables.h"

struct OutputContext {
    const EffectSelection& selection;
    const OutputPaths& paths;
    OutputSwitches switches;
    // Takes the console text; null for none.
    std::FILE* console;
};
