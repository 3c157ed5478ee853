// A study's model in the engine's terms: effects by canonical name become a selection.
#pragma once

#include <string>
#include <vector>

#include "effects/effect_selection.h"
#include "study/problem.h"
#include "study/study.h"

struct StudySelection {
    EffectSelection selection;
    // Of each effect of the model, in its order: the canonical name ("AT(2)", "same(dept)"), and
    // the place in the run's vectors.
    std::vector<std::string> names;
    std::vector<int> places;
    // A problem, and the number of the effect that it is about.
    Problems problems;
    std::vector<int> faulty_effects;
    bool ok() const { return problems.empty(); }
};

// Selects the model's effects with their attributes and covariates; each has its start or fixed
// value (else 0.0), and the weight tables are built. A binary attribute also serves effects of
// categories and of numbers. The second `AS` or `AT` of an undirected model is an effect of its own
// with its own lambda.
//
// Problems: an effect that the catalogue does not have (with the nearest that it has) or that
// belongs to the other kind of network, a lambda that is missing, below 1 or not wanted, an
// attribute that is missing, unknown or of another type, the same effect twice, a third `AS` or
// `AT`.
StudySelection study_selection(const Study& study);

// Start and fixed values at their places, zero elsewhere; the parameters of a run. They are not the
// engine's own assembly, whose order hosts rely on and which differs from that of the statistics
// for some directed attribute effects.
std::vector<double> study_parameters(const Study& study, const StudySelection& resolved);
