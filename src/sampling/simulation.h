// The simulation run: a chain that is sampled at regular proposals.
#pragma once

#include "sampling/chain.h"
#include "sampling/run_setting.h"

// Makes `iterations` proposals and records a sample at every `sample_interval`-th: rows of the
// sample table, of the acceptance file and of the switched-on distributions, and a report with a
// Pajek record when sample graphs are on. Each row is flushed by closing its file, so an
// interrupted run keeps all complete samples. A sample falls where the proposal number equals the
// sample point, so an interval of 0 never samples; proposals behind the last sample are in no
// acceptance total.
void graph_simulation_run(Chain<Graph>& chain, const RunSetting& setting, double iterations,
                          double sample_interval);
void digraph_simulation_run(Chain<Digraph>& chain, const RunSetting& setting, double iterations,
                            double sample_interval);
