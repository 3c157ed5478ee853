// One estimation run on a small network, without a setup file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "estimation/estimator.h"
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

    // The result of the run; the network starts from the observed one.
    int estimate(std::int64_t clock) {
        network = observed;
        RandomSource random{1, [clock] { return clock; }};
        Chain<Network> chain{network, model.active, parameters.data(), random};
        chain.proposal_kind = proposal_kind;
        chain.free_dyads = free_dyads;
        chain_prepare(chain);
        RunProgress progress;
        const RunSetting setting{model.selection, paths, {}, nullptr, progress};
        return ::estimate(chain, setting, settings, parameters, scaling_matrix);
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
    int proposal_kind = 0;
    const Network* free_dyads = nullptr;
};
