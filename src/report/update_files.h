// Parameter update files: small text files through which estimates go back to the host.
#pragma once

#include "effects/effect_selection.h"
#include "report/output_paths.h"

// Writes the five files of the network kind, each a sequence of line pairs: an effect's label, then
// its value with five decimals. An earlier file is replaced. Every row is present whether its
// effect was estimated or not. An undirected file stays empty when its section's switch is not 1;
// the directed ones ask for no switch.
void write_update_files(const EffectSelection& selection, const OutputPaths& paths);
