// Directed models for tests: every structural effect, or every effect of an attribute, switched on
// at once, and their changes held against the plain reference.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "effects/evaluation.h"
#include "reference/directed_structural.h"
#include "support/random_digraphs.h"

// All structural effects of the evaluator, the two four-star slots included, each at the place of
// its id and with the same lambda.
class DirectedStructuralModel {
  public:
    explicit DirectedStructuralModel(float lambda = kDefaultLambda);
    DirectedStructuralModel(const DirectedStructuralModel&) = delete;
    DirectedStructuralModel& operator=(const DirectedStructuralModel&) = delete;

    const ActiveModel<Digraph>& active() const { return active_; }
    const EffectSelection& selection() const { return selection_; }
    int size() const { return static_cast<int>(active_.size()); }

    // The change of each effect for the arc i to j, the record being staged for it.
    std::vector<double> changes(Digraph& digraph, int i, int j, int adding) const;
    // The whole value of each effect.
    std::vector<double> counts(Digraph& digraph) const;

  private:
    EffectSelection selection_;
    ActiveModel<Digraph> active_;
};

// Place of the effect with this setup-file name.
int directed_place(std::string_view name);

// Changes of the named effects on the network, for every ordered pair and both states of `adding`,
// against the reference: bit for bit.
void expect_directed_changes(const reference::PlainDigraph& plain,
                             const DirectedStructuralModel& model, float lambda,
                             const std::vector<std::string_view>& names);

// A selection whose only effects are all rows of one attribute group, for `attributes` attributes.
EffectSelection directed_group_selection(AttributeGroup group, int attributes);
