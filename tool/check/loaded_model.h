// The model and the observed network of a setup, read as an estimation reads them, and the changes
// that single ties make in it.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/conversions.h"
#include "check/setup_view.h"
#include "check/ties.h"
#include "effects/cliques.h"
#include "effects/evaluation.h"
#include "network/network_verbs.h"

// One selected effect.
struct ModelEffect {
    SetupKey flag;
    // As a setup row calls it, with the attribute's name.
    std::string name;
    const EffectFacts* facts;
    // Its place in the vectors of the run.
    std::size_t place;
};

// Selected effects in the order of their setup rows.
std::vector<ModelEffect> selected_effects(const EffectSelection& selection);

// The selection of a setup with its attribute files and weight tables read.
EffectSelection read_selection(const SetupView& view);

template <class Network>
class LoadedModel {
  public:
    // `free_dyads` is null when all are free, and must outlive the model.
    LoadedModel(EffectSelection& selection, const std::string& network_path, const Ties* free_dyads)
        : parameters_(assemble_parameters(selection)),
          model_(active_model<Network>(selection)),
          network_(read_network<Network>(network_path, selection.actors,
                                         static_cast<int>(parameters_.size()),
                                         clique_depth(selection))),
          free_dyads_(free_dyads),
          change_(parameters_.size(), 0.0) {}

    int actors() const { return network_.vertices; }
    bool tied(int i, int j) const { return has_tie(network_, i, j); }

    // Recounted.
    const std::vector<double>& statistics() {
        if constexpr (!kDirected<Network>) {
            graph_count_cliques(network_);
        }
        compute_statistics(network_, model_);
        return network_.statistics;
    }

    // What adding the tie would change in each statistic of the network without it.
    const std::vector<double>& change(int i, int j) {
        const bool there = tied(i, j);
        if (there) {
            remove_bit(network_, i, j);
        }
        const int adding = there ? 0 : 1;
        evaluate_toggle(network_, model_, parameters_.data(), change_.data(), i, j, adding);
        if (there) {
            add_bit(network_, i, j);
        }
        return change_;
    }

    // Calls work() while these effects alone are evaluated.
    template <class Work>
    void with_only(const std::vector<ModelEffect>& effects, Work work) {
        const ActiveModel<Network> all = model_;
        std::erase_if(model_, [&effects](const ActiveEffect<Network>& active) {
            return std::none_of(effects.begin(), effects.end(), [&](const ModelEffect& effect) {
                return static_cast<int>(effect.place) == active.position;
            });
        });
        work();
        model_ = all;
    }

    void toggle(int i, int j) {
        const int adding = tied(i, j) ? 0 : 1;
        adding == 1 ? add_bit(network_, i, j) : remove_bit(network_, i, j);
        update_tables(network_, i, j, adding);
    }

    // Calls visit(i, j) for each free dyad of two of these actors until it returns false.
    template <class Visit>
    bool for_each_free_dyad(const std::vector<int>& among, Visit visit) const {
        for (const int i : among) {
            for (const int j : among) {
                const bool dyad = kDirected<Network> ? i != j : i < j;
                if (dyad && (free_dyads_ == nullptr || free_dyads_->has(i, j)) && !visit(i, j)) {
                    return false;
                }
            }
        }
        return true;
    }

  private:
    std::vector<double> parameters_;
    ActiveModel<Network> model_;
    Network network_;
    const Ties* free_dyads_;
    std::vector<double> change_;
};
