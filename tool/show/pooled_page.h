// The page of many runs: how they ended, and each model's parameters over the networks.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "show/report_figures.h"
#include "study/pooling.h"

struct PooledNetwork {
    std::string network;
    GroupEstimate estimate;
};

// One effect of a model, in the networks that went into its mean.
struct PooledEffect {
    std::string name;
    std::vector<PooledNetwork> networks;
    PooledEstimate pooled;
};

struct PooledRuns {
    std::string model;
    std::vector<PooledEffect> effects;
    std::vector<std::pair<std::string, std::string>> left_out;  // network and verdict
};

// What summary.json of a folder of many runs holds.
struct SummaryRecord {
    std::string ovri;
    std::string plan;
    int jobs = 0;
    int converged = 0;
    std::vector<std::vector<std::string>> troubled;  // job, network, model, seed, verdict
    std::vector<PooledRuns> models;                  // none of a plan with one network
};

// None of a text that is no such document.
std::optional<SummaryRecord> read_summary_json(const std::string& text);

// A forest plot for each model and effect.
std::vector<NamedFigure> pooled_figures(const SummaryRecord& summary);

std::string pooled_page(const std::string& name, const SummaryRecord& summary,
                        const std::vector<NamedFigure>& figures);
