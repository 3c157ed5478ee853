// What a test of fit measures of one network: statistics and distributions.
//
// Everything is counted of the network as it stands, and nothing is carried by changes: the numbers
// of the observed network and of the sampled ones mean the same, also where an effect's change and
// its count differ.
#pragma once

#include <string>
#include <vector>

#include "effects/evaluation.h"
#include "study/gof_counts.h"
#include "study/study_selection.h"

struct GofMeasures {
    // NaN where one does not exist, such as an assortativity without ties.
    std::vector<double> statistics;
    std::vector<SparseCounts> distributions;
};

// How the entries of a distribution are called.
struct GofShape {
    std::string name;
    int first = 0;                         // its first entry
    bool gaps = false;                     // entries that no network has are left out
    int infinite = -1;                     // the entry of pairs without a path
    std::vector<std::string> labels = {};  // of entries that are no numbers, from 0 on
};

// Measures networks of one study. Several threads may measure networks of their own at a time.
template <class Network>
class GofMeter {
  public:
    // `study` is read while this lives; its model has been resolved without a problem.
    explicit GofMeter(const Study& study);
    GofMeter(const GofMeter&) = delete;
    GofMeter& operator=(const GofMeter&) = delete;

    const std::vector<std::string>& statistics() const { return names_; }
    const std::vector<GofShape>& shapes() const { return shapes_; }

    // Refreshes the network's snapshots; its statistics and clique tables stay as they are.
    GofMeasures measure(Network& network) const;

  private:
    // An attribute as the ties at its actors are told apart.
    struct Trait {
        std::string name;
        std::vector<int> codes;      // from 0, -1 unknown; empty for numbers
        std::vector<double> values;  // of a continuous attribute
        int categories = 0;
        bool cells = false;  // each pair of categories is told, not only same and different
    };

    void add_trait(const StudyAttribute& attribute);
    void add_mixing(const Trait& trait, const std::vector<std::string>& labels);
    void name_measures();
    std::vector<double> effect_statistics(Network& network) const;
    double assortativity(const Trait& trait, const std::vector<ActorTie>& ties) const;
    SparseCounts mixing(const Trait& trait, const std::vector<ActorTie>& ties) const;

    Study study_;  // with the model that is measured
    StudySelection resolved_;
    ActiveModel<Network> model_;
    std::vector<Trait> traits_;
    std::vector<std::string> names_;
    std::vector<GofShape> shapes_;
};
