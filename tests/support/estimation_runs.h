// One estimation run on a small network, without a setup file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "report/estimation_log.h"
#include "support/chain_models.h"
#include "support/scratch_directory.h"

template <class Network>
struct EstimationRun {
    EstimationRun(const std::vector<ModelTerm>& terms, const Network& observed_)
        : model(terms),
          observed(observed_),
          network(observed_),
          parameters(model.parameters),
          scaling_matrix(matrix_create(model.size(), model.size(), 0.0)),
          paths(output_paths(scratch.path().string(), "net", '/')) {
        network.statistics.assign(parameters.size(), 0.0);
        count_statistics(network, model.active);
        observed = network;
    }
    EstimationRun(const EstimationRun&) = delete;
    EstimationRun& operator=(const EstimationRun&) = delete;

    // A run from the observed network, logged; whether it converged.
    bool estimate(std::int64_t clock) {
        found = estimate(clock, EstimationLog({model.selection, paths, {}, nullptr}));
        return found.verdict == EstimationVerdict::converged;
    }

    EstimationResult estimate(std::int64_t clock, const EstimationObserver& observer) {
        network = observed;
        RandomSource random{1, [clock] { return clock; }};
        Chain<Network> chain{network, model.active, parameters.data(), random};
        chain.proposal_kind = proposal_kind;
        chain.free_dyads = free_dyads;
        chain_prepare(chain);
        RunProgress progress;
        return ::estimate(chain, settings, parameters, scaling_matrix, progress, observer);
    }

    std::string log() const { return file_text(paths.estimation); }

    ChainModel<Network> model;
    Network observed;
    Network network;
    std::vector<double> parameters;
    Matrix scaling_matrix;
    ScratchDirectory scratch;
    OutputPaths paths;
    EstimationSettings settings;
    // What the last logged run found.
    EstimationResult found;
    int proposal_kind = 0;
    const BitMatrix* free_dyads = nullptr;
};
