// The simulation run: a chain that is sampled at regular proposals.
#pragma once

#include "report/output_context.h"
#include "sampling/chain.h"

// Makes `iterations` proposals and records a sample at every `sample_interval`-th: rows of the
// sample table, of the acceptance file and of the switched-on distributions, and a report with a
// Pajek record when sample graphs are on. Each row is flushed by closing its file, so an
// interrupted run keeps all complete samples. A sample falls where the proposal number equals the
// sample point, so an interval of 0 never samples; proposals behind the last sample are in no
// acceptance total.
template <class Network>
void simulation_run(Chain<Network>& chain, const OutputContext& outputs, RunProgress& progress,
                    double iterations, double sample_interval);
