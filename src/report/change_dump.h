// The change statistics and the odds of a tie for every dyad of a network.
#pragma once

#include <string>
#include <vector>

#include "effects/evaluation.h"

// Writes two files anew. The change table: one line per dyad i < j with its tie and the change of
// each selected effect, on the network as it stands, tied dyads left tied (`adding` is 0 for them,
// 1 for the others). The odds table: exp of the weighted sum of the changes per cell, 1.0 on the
// diagonal. Of the covariate effects only the first is in either.
void change_statistics_dump(Graph& graph, const EffectSelection& selection,
                            const ActiveModel<Graph>& model, const std::vector<double>& parameters,
                            const std::string& change_path, const std::string& odds_path);
