#include "study/study_chains.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "measures/descriptives.h"
#include "sampling/tie_no_tie.h"
#include "study/shared_work.h"
#include "study/study_chain.h"

class StudyChains::Ensemble {
  public:
    Ensemble() = default;
    Ensemble(const Ensemble&) = delete;
    Ensemble& operator=(const Ensemble&) = delete;
    virtual ~Ensemble() = default;
    virtual int chains() const = 0;
    virtual double dyads() const = 0;
    virtual const std::vector<double>& observed() const = 0;
    virtual ChainSamples run(const std::vector<double>& parameters, std::int64_t burn_in,
                             std::int64_t interval, int samples, RunProgress& progress,
                             const VisitSample& visit) = 0;
    virtual void restart() = 0;
};

namespace {

DyadSpace dyad_space(const Study& study) {
    if (!study.dyads.restricted) {
        return {static_cast<int>(study.network.actors.size()), study.network.directed};
    }
    std::vector<Dyad> dyads;
    dyads.reserve(study.dyads.free.size());
    for (const ActorTie& dyad : study.dyads.free) {
        dyads.push_back({dyad.from, dyad.to});
    }
    return DyadSpace(std::move(dyads));
}

// The observed ties that may change.
std::vector<Dyad> free_ties(const Study& study) {
    std::vector<ActorTie> ties = study.network.ties;
    if (study.dyads.restricted) {
        ties.clear();
        std::set_intersection(study.network.ties.begin(), study.network.ties.end(),
                              study.dyads.free.begin(), study.dyads.free.end(),
                              std::back_inserter(ties));
    }
    std::vector<Dyad> dyads;
    dyads.reserve(ties.size());
    for (const ActorTie& tie : ties) {
        dyads.push_back({tie.from, tie.to});
    }
    return dyads;
}

template <class Network>
SampledNetwork sampled(Network& network) {
    SampledNetwork handed;
    if constexpr (kDirected<Network>) {
        handed.digraph = &network;
    } else {
        handed.graph = &network;
    }
    return handed;
}

// What a chain is while no thread carries it out.
struct RestingChain {
    RandomStream random;
    std::vector<Dyad> ties;
    std::vector<double> statistics;  // by place
    int runs = 0;                    // that it has been carried on
};

// A network that takes in one chain after the other.
template <class Network>
struct Workplace {
    Network network;
    TieList ties;
    int chain = -1;  // whose ties it holds; -1 when nobody's
    int runs = 0;    // as they were after so many runs: another thread may have carried it on since
};

template <class Network>
class EnsembleOf final : public StudyChains::Ensemble {
  public:
    EnsembleOf(const Study& study, const StudySelection& resolved, std::uint64_t seed, int chains,
               int threads)
        : study_(study),
          resolved_(resolved),
          model_(active_model<Network>(resolved.selection)),
          dyads_(dyad_space(study)),
          observed_ties_(free_ties(study)) {
        chains = std::max(chains, 1);
        workplaces_.resize(static_cast<std::size_t>(threads_for(threads, chains)));
        Workplace<Network>& first = workplace(0);
        observed_places_ = first.network.statistics;
        observed_ = by_effect(observed_places_);
        for (int chain = 0; chain < chains; ++chain) {
            chains_.push_back({RandomStream(seed, static_cast<std::uint64_t>(chain)),
                               observed_ties_, observed_places_});
        }
    }

    int chains() const override { return static_cast<int>(chains_.size()); }
    double dyads() const override { return dyads_.count(); }
    const std::vector<double>& observed() const override { return observed_; }

    void restart() override {
        for (RestingChain& chain : chains_) {
            chain.ties = observed_ties_;
            chain.statistics = observed_places_;
        }
        for (auto& each : workplaces_) {
            if (each) {
                each->chain = -1;
            }
        }
    }

    ChainSamples run(const std::vector<double>& parameters, std::int64_t burn_in,
                     std::int64_t interval, int samples, RunProgress& progress,
                     const VisitSample& visit) override {
        std::vector<double> placed(observed_places_.size(), 0.0);
        for (std::size_t k = 0; k < resolved_.places.size(); ++k) {
            placed[static_cast<std::size_t>(resolved_.places[k])] = parameters[k];
        }
        Run task{placed, burn_in, interval, std::max(samples, 0), progress, visit};
        ChainSamples& drawn = task.drawn;
        drawn.statistics = Matrix(chains() * task.samples, static_cast<int>(observed_.size()));
        for (int row = 0; row < drawn.statistics.rows; ++row) {
            drawn.chain.push_back(row / task.samples);
            drawn.draw.push_back(row % task.samples);
        }
        drawn.proposals = chains() * (static_cast<double>(burn_in) +
                                      static_cast<double>(interval) * task.samples);
        share_work(chains(), static_cast<int>(workplaces_.size()),
                   [this, &task](int thread, int number) {
                       carry_on(static_cast<std::size_t>(thread), number, task);
                   });
        return std::move(drawn);
    }

  private:
    // One run of all chains, as its threads share it.
    struct Run {
        const std::vector<double>& parameters;  // by place
        std::int64_t burn_in;
        std::int64_t interval;
        int samples;
        RunProgress& progress;
        const VisitSample& visit;
        ChainSamples drawn = {};
    };

    std::vector<double> by_effect(const std::vector<double>& placed) const {
        std::vector<double> ordered;
        for (const int place : resolved_.places) {
            ordered.push_back(placed[static_cast<std::size_t>(place)]);
        }
        return ordered;
    }

    // With the observed network in it when it is new.
    Workplace<Network>& workplace(std::size_t number) {
        std::optional<Workplace<Network>>& place = workplaces_[number];
        if (!place) {
            const int n = static_cast<int>(study_.network.actors.size());
            place.emplace(
                Workplace<Network>{empty_network_for<Network>(n, resolved_.selection,
                                                              selection_size(resolved_.selection)),
                                   TieList(n, kDirected<Network>)});
            add_ties(place->network, study_.network.ties);
            count_anew(place->network, model_);
            for (const Dyad& dyad : observed_ties_) {
                place->ties.add(dyad);
            }
        }
        return *place;
    }

    // Puts a chain's ties in the place of those that are there.
    void settle(Workplace<Network>& place, int number) {
        const RestingChain& chain = chains_[static_cast<std::size_t>(number)];
        if (place.chain != number || place.runs != chain.runs) {
            for (const Dyad& dyad : place.ties.ties()) {
                remove_bit(place.network, dyad.i, dyad.j);
                update_tables(place.network, dyad.i, dyad.j, 0);
            }
            place.ties.clear();
            for (const Dyad& dyad : chain.ties) {
                add_bit(place.network, dyad.i, dyad.j);
                update_tables(place.network, dyad.i, dyad.j, 1);
                place.ties.add(dyad);
            }
            place.chain = number;
        }
        place.network.statistics = chain.statistics;
    }

    void advance(Workplace<Network>& place, int number, Run& task) {
        settle(place, number);
        RandomStream random = chains_[static_cast<std::size_t>(number)].random;
        Network& network = place.network;
        TieNoTieChain<Network> chain{network, model_,     task.parameters.data(),
                                     dyads_,  place.ties, random};
        chain.max_degree = study_.dyads.max_degree.value_or(chain.max_degree);
        tie_no_tie_prepare(chain);
        if (!task.visit) {
            tie_no_tie_tables_begin(chain, task.burn_in + task.interval * task.samples);
        }
        tie_no_tie_run(chain, task.burn_in, task.progress);
        for (int draw = 0; draw < task.samples; ++draw) {
            tie_no_tie_run(chain, task.interval, task.progress);
            progress_check(task.progress);
            recount_uncarried(network, resolved_.selection);
            double* row = task.drawn.statistics[number * task.samples + draw];
            for (const int at : resolved_.places) {
                *row++ = network.statistics[static_cast<std::size_t>(at)];
            }
            if (task.visit) {
                task.visit(number, draw, sampled(network));
            }
        }
        tie_no_tie_tables_end(chain);
        RestingChain& resting = chains_[static_cast<std::size_t>(number)];
        resting.ties = place.ties.ties();
        resting.statistics = network.statistics;
        resting.random = random;
        place.runs = ++resting.runs;
    }

    // A chain that is due, at a thread's workplace.
    void carry_on(std::size_t thread, int number, Run& task) {
        try {
            advance(workplace(thread), number, task);
        } catch (...) {
            // Whatever it was may have left tables half done.
            workplaces_[thread].reset();
            throw;
        }
    }

    const Study& study_;
    const StudySelection& resolved_;
    ActiveModel<Network> model_;
    DyadSpace dyads_;
    std::vector<Dyad> observed_ties_;
    std::vector<double> observed_places_;  // statistics by place
    std::vector<double> observed_;         // and by effect
    std::vector<RestingChain> chains_;
    std::vector<std::optional<Workplace<Network>>> workplaces_;  // one a thread
};

}  // namespace

std::vector<ActorTie> ties_of(const SampledNetwork& network) {
    return network.digraph != nullptr ? ties_of(*network.digraph) : ties_of(*network.graph);
}

StudyChains::StudyChains(const Study& study, const StudySelection& resolved, std::uint64_t seed,
                         int chains, int threads) {
    if (study.network.directed) {
        ensemble_ = std::make_unique<EnsembleOf<Digraph>>(study, resolved, seed, chains, threads);
    } else {
        ensemble_ = std::make_unique<EnsembleOf<Graph>>(study, resolved, seed, chains, threads);
    }
}
StudyChains::~StudyChains() = default;

int StudyChains::chains() const { return ensemble_->chains(); }
double StudyChains::dyads() const { return ensemble_->dyads(); }
const std::vector<double>& StudyChains::observed() const { return ensemble_->observed(); }
void StudyChains::restart() { ensemble_->restart(); }

ChainSamples StudyChains::run(const std::vector<double>& parameters, std::int64_t burn_in,
                              std::int64_t interval, int samples_per_chain, RunProgress& progress) {
    return ensemble_->run(parameters, burn_in, interval, samples_per_chain, progress, {});
}
ChainSamples StudyChains::run(const std::vector<double>& parameters, std::int64_t burn_in,
                              std::int64_t interval, int samples_per_chain, RunProgress& progress,
                              const VisitSample& visit) {
    return ensemble_->run(parameters, burn_in, interval, samples_per_chain, progress, visit);
}
