// Summaries of what was measured of the samples of a test of fit.
#pragma once

#include <span>

#include "study/gof_measures.h"
#include "study/study_gof.h"

// The quantile of ascending values with `zeros` further values of 0 sorted among them, none of the
// values negative if there are; linear between neighbours. NaN without any.
double quantile_with_zeros(std::span<const double> ascending, std::size_t zeros, double share);

// Two-sided Monte Carlo p-value: twice the smaller share of samples on either side, the observed
// value counted as one of them, at most 1 (Davison and Hinkley 1997).
double rank_p_value(int below, int above, int equal);

// Compares the observed measures with those of the samples.
StudyGof summarised_gof(const std::vector<std::string>& names, const std::vector<GofShape>& shapes,
                        const GofMeasures& observed, const std::vector<GofMeasures>& samples);

// L with L L' the matrix, for one that is positive semidefinite; rows and columns of entries that
// are not numbers, or that depend on those before them, are 0.
Matrix lower_root(const Matrix& matrix);
