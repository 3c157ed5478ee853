// Effects that say the same together: the change of one is, on every dyad, a weighted sum of the
// changes of others, so that no data tell their parameters apart.
#pragma once

#include <vector>

#include "check/findings.h"
#include "check/loaded_model.h"

// Adds an error that names the smallest set of such effects. The network is left changed.
template <class Network>
void check_dependence(const SetupView& view, LoadedModel<Network>& model,
                      const std::vector<ModelEffect>& effects, Findings& findings);
