#include "study/pseudo_likelihood.h"

#include <algorithm>
#include <cmath>

#include "study/dyad_changes.h"
#include "study/study_chain.h"

namespace {

// Changes of every effect on any dyad, in the order of the study's effects.
template <class Network>
class Changes {
  public:
    Changes(const Study& study, const StudySelection& resolved)
        : run_(study, resolved, std::vector<double>(resolved.places.size(), 1.0), 0),
          placed_(resolved.places.size(), 0.0),
          places_(resolved.places) {}

    Network& network() { return run_.network(); }

    // Of the tie, whether it is there or not, written to `ordered`.
    void of(int i, int j, double* ordered) {
        dyad_changes(network(), run_.model(), run_.parameters().data(), i, j, placed_.data());
        put_in_order(ordered);
    }

    // The three outcomes of a pair of arcs beside none: i to j, j to i, both. False where the two
    // ways to both do not agree. Only for effects that read no more than the arc back.
    bool of_pair(int i, int j, double* ordered) {
        const std::size_t p = placed_.size();
        const PairArcs kept(network(), i, j);
        std::vector<double> other(2 * p, 0.0);
        evaluate(i, j, 1, ordered);
        evaluate(j, i, 1, ordered + p);
        add_bit(network(), i, j);
        evaluate(j, i, 1, other.data());
        remove_bit(network(), i, j);
        add_bit(network(), j, i);
        evaluate(i, j, 1, other.data() + p);
        remove_bit(network(), j, i);
        for (std::size_t k = 0; k < p; ++k) {
            const double one_way = ordered[k] + other[k];
            const double other_way = ordered[p + k] + other[p + k];
            ordered[2 * p + k] = one_way;
            if (std::fabs(one_way - other_way) > 1e-9 * (1.0 + std::fabs(one_way))) {
                return false;
            }
        }
        return true;
    }

  private:
    // Takes both arcs of a pair away, and brings them back at the end.
    class PairArcs {
      public:
        PairArcs(Network& network, int i, int j)
            : network_(network),
              i_(i),
              j_(j),
              to_(has_tie(network, i, j)),
              back_(has_tie(network, j, i)) {
            if (to_) {
                remove_bit(network_, i_, j_);
            }
            if (back_) {
                remove_bit(network_, j_, i_);
            }
        }
        PairArcs(const PairArcs&) = delete;
        PairArcs& operator=(const PairArcs&) = delete;
        ~PairArcs() {
            if (to_) {
                add_bit(network_, i_, j_);
            }
            if (back_) {
                add_bit(network_, j_, i_);
            }
        }

      private:
        Network& network_;
        int i_;
        int j_;
        bool to_;
        bool back_;
    };

    void evaluate(int i, int j, int adding, double* ordered) {
        evaluate_toggle(network(), run_.model(), run_.parameters().data(), placed_.data(), i, j,
                        adding);
        put_in_order(ordered);
    }

    void put_in_order(double* ordered) const {
        for (std::size_t k = 0; k < places_.size(); ++k) {
            ordered[k] = placed_[static_cast<std::size_t>(places_[k])];
        }
    }

    StudyChain<Network> run_;
    std::vector<double> placed_;
    const std::vector<int>& places_;
};

template <class Network>
ChoiceTable tie_choices(const Study& study, const StudySelection& resolved) {
    const int p = static_cast<int>(resolved.places.size());
    Changes<Network> changes(study, resolved);
    ChoiceTable table(p, 1);
    std::vector<double> change(static_cast<std::size_t>(p), 0.0);
    for_each_free_dyad(study, [&](int i, int j) {
        changes.of(i, j, change.data());
        table.add(change.data(), has_tie(changes.network(), i, j) ? 1 : 0);
    });
    return table;
}

// Pairs of which both arcs may change are choices of four, the other arcs choices of two.
std::optional<IndependentChoices> pair_choices(const Study& study, const StudySelection& resolved) {
    const int p = static_cast<int>(resolved.places.size());
    Changes<Digraph> changes(study, resolved);
    const auto is_free = [&study](int i, int j) {
        return !study.dyads.restricted ||
               std::binary_search(study.dyads.free.begin(), study.dyads.free.end(), ActorTie{i, j});
    };
    IndependentChoices choices = {ChoiceTable(p, 1), ChoiceTable(p, kMostAlternatives)};
    std::vector<double> change(static_cast<std::size_t>(kMostAlternatives * p), 0.0);
    bool agree = true;
    for_each_free_dyad(study, [&](int i, int j) {
        const int to = has_tie(changes.network(), i, j) ? 1 : 0;
        const int back = has_tie(changes.network(), j, i) ? 2 : 0;
        if (!is_free(j, i)) {
            changes.of(i, j, change.data());
            choices[0].add(change.data(), to);
        } else if (i < j) {
            agree = changes.of_pair(i, j, change.data()) && agree;
            choices[1].add(change.data(), to + back);
        }
    });
    return agree ? std::optional(std::move(choices)) : std::nullopt;
}

}  // namespace

IndependentChoices pseudo_choices(const Study& study, StudySelection& resolved) {
    return {study.network.directed ? tie_choices<Digraph>(study, resolved)
                                   : tie_choices<Graph>(study, resolved)};
}

std::optional<IndependentChoices> exact_choices(const Study& study, StudySelection& resolved) {
    const std::vector<Dependence> dependences = effect_dependences(resolved);
    const auto any = [&](Dependence dependence) {
        return std::find(dependences.begin(), dependences.end(), dependence) != dependences.end();
    };
    if (study.dyads.max_degree || any(Dependence::other_dyads)) {
        return std::nullopt;
    }
    return any(Dependence::reverse_arc) ? pair_choices(study, resolved)
                                        : std::optional(pseudo_choices(study, resolved));
}
