// The effects that a test of fit compares beside those of the model.
#pragma once

#include "study/study.h"

// The effects that a fit compares beside the model's own: the full model that a fit of a setup file
// compares (with lambda 2, a second alternating effect 1), and each effect of each attribute and
// covariate of the study. The model's come first, in their order.
StudyModel gof_model(const Study& study);
