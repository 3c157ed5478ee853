// Directed models for tests: every structural effect, or every effect of an attribute, switched on
// at once, and their changes held against the plain reference.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "effects/evaluation.h"
#include "reference/attributes.h"
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

// Changes (for every ordered pair and both states of `adding`) and whole values of a selection made
// by directed_group_selection, against the reference rows of that group: bit for bit. Statistics
// are grouped by row and within a row by attribute.
template <class Row, class Data>
void expect_group_equals_reference(const reference::PlainDigraph& plain, EffectSelection& selection,
                                   const std::vector<Row>& rows,
                                   const std::vector<Data>& attributes) {
    assemble_parameters(selection);
    const ActiveModel<Digraph> model = active_model<Digraph>(selection);
    ASSERT_EQ(model.size(), rows.size() * attributes.size());
    const std::vector<double> parameters(model.size(), 1.0);
    const auto place = [&](std::size_t row, std::size_t a) { return row * attributes.size() + a; };

    Digraph whole = engine_digraph(plain, static_cast<int>(model.size()));
    compute_statistics(whole, model);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t a = 0; a < attributes.size(); ++a) {
            EXPECT_EQ(whole.statistics[place(row, a)], rows[row].count(plain, attributes[a]))
                << rows[row].name << " of attribute " << a << " among " << plain.n;
        }
    }
    for (const reference::Stage stage : {reference::Stage::addition, reference::Stage::deletion}) {
        const int adding = stage == reference::Stage::addition ? 1 : 0;
        for_each_ordered_pair(plain.n, [&](int i, int j) {
            const reference::DirectedState state = reference::evaluation_state(plain, i, j, stage);
            Digraph digraph = engine_digraph(plain);
            stage_evaluation(digraph, i, j, stage);
            std::vector<double> change(model.size(), -1e30);
            evaluate_toggle(digraph, model, parameters.data(), change.data(), i, j, adding);
            for (std::size_t row = 0; row < rows.size(); ++row) {
                for (std::size_t a = 0; a < attributes.size(); ++a) {
                    EXPECT_EQ(change[place(row, a)], rows[row].change(state, i, j, attributes[a]))
                        << rows[row].name << " of attribute " << a << ", arc " << i << " to " << j
                        << " among " << plain.n << ", adding " << adding;
                }
            }
        });
    }
}

// Calls visit(row, change, difference) for every row of a selection with one attribute: the change
// of adding i to j, and the whole value with the arc less the one without it.
template <class Visit>
void for_each_group_difference(const reference::PlainDigraph& plain, EffectSelection& selection,
                               Visit visit) {
    assemble_parameters(selection);
    const ActiveModel<Digraph> model = active_model<Digraph>(selection);
    const int p = static_cast<int>(model.size());
    const std::vector<double> parameters(model.size(), 1.0);
    for_each_ordered_pair(plain.n, [&](int i, int j) {
        Digraph with = engine_digraph(reference::with_arc(plain, i, j), p);
        Digraph without = engine_digraph(reference::without_arc(plain, i, j), p);
        compute_statistics(with, model);
        compute_statistics(without, model);
        std::vector<double> change(model.size(), -1e30);
        evaluate_toggle(without, model, parameters.data(), change.data(), i, j, 1);
        for (std::size_t row = 0; row < model.size(); ++row) {
            visit(row, change[row], with.statistics[row] - without.statistics[row]);
        }
    });
}
