// Observed statistics that could not be smaller, or not be larger.
//
// No finite parameter makes a model expect a smallest or largest value, so an estimation from one
// runs away.
#pragma once

#include <vector>

#include "check/findings.h"
#include "check/loaded_model.h"

// Adds an error for each effect whose observed statistic is certainly an extreme one, and takes it
// out of the effects.
template <class Network>
void check_extremes(const SetupView& view, const EffectSelection& selection,
                    LoadedModel<Network>& model, std::vector<ModelEffect>& effects,
                    Findings& findings);
