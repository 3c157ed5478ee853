// What every driver of a run works with beside its chain, lent by the run.
#pragma once

#include <cstdio>

#include "base/host_options.h"
#include "effects/effect_selection.h"
#include "report/output_paths.h"
#include "report/sample_tables.h"

struct RunSetting {
    const EffectSelection& selection;
    const OutputPaths& paths;
    OutputSwitches switches;
    std::FILE* console;
    RunProgress& progress;
};
