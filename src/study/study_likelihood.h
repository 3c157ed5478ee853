// The log-likelihood of a study's model, so that models of one network can be compared.
//
// Where dyads are independent (a digraph's two arcs of a pair may depend on each other) it is a sum
// over pairs of actors, and exact. Elsewhere the normalising constant is no sum that could be
// formed. It is then found along a path (Hunter and Handcock 2006, Journal of Computational and
// Graphical Statistics 15) from a reference, the model's dyad-independent part at its own
// estimates, to the parameters: see study/constant_path.h.
#pragma once

#include <cstdint>
#include <vector>

#include "study/constant_path.h"

// What weighs a log-likelihood against the number of parameters that were estimated.
struct LikelihoodCriteria {
    double deviance = 0.0;  // -2 x the log-likelihood
    double aic = 0.0;  // deviance + 2 x parameters (Akaike 1974, IEEE Trans. Autom. Control 19)
    double bic = 0.0;  // deviance + log(N) x parameters (Schwarz 1978, Annals of Statistics 6)
};
// `value`: the log-likelihood of the study's model; N its free dyads.
LikelihoodCriteria likelihood_criteria(double value, const Study& study);

// A number that does not exist is NaN.
struct StudyLikelihood {
    double value = 0.0;
    double mc_error = 0.0;    // standard error of `value`; 0 where it is exact
    double null_value = 0.0;  // with every parameter at 0: -N log 2, N the dyads that may change
    double dyads = 0.0;       // N
    bool exact = false;
    int points = 0;  // of the path, both ends among them; 0 where it is exact
    double proposals = 0.0;
};

// Whether no effect's change depends on other dyads (other pairs of actors, in a digraph).
bool dyad_independent(const StudySelection& resolved);

// The log-likelihood of the observed network at `parameters`: one an effect, in the study's order,
// held ones too. Ties outside the free dyads are given. Under a cap on degrees nothing is known of
// the constant of any reference: value and null value are NaN. The same seed gives the same value
// whatever the threads. Throws RunStopped when `progress` asks for the end.
StudyLikelihood study_likelihood(const Study& study, const StudySelection& resolved,
                                 const std::vector<double>& parameters, std::uint64_t seed,
                                 const LikelihoodSettings& settings, RunProgress& progress);
