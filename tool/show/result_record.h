// What a command found, as the records that tables, JSON and CSV are made of.
//
// A number that does not exist is NaN here, null in JSON and an empty cell in CSV.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/matrix.h"
#include "base/no_number.h"
#include "study/parameter_path.h"

struct ResultNetwork {
    std::string file;
    bool directed = false;
    int actors = 0;
    int ties = 0;
    double density = 0.0;  // ties of the ties that could be
};

struct ResultEffect {
    std::string name;
    double estimate = kNoNumber;
    double standard_error = kNoNumber;
    double mc_error = kNoNumber;  // Monte Carlo error of the estimate
    double z = kNoNumber;         // estimate / standard error
    double p_value = kNoNumber;   // of z, two-sided
    double lower = kNoNumber;     // of the 95% interval
    double upper = kNoNumber;
    double odds_ratio = kNoNumber;  // exp(estimate)
    double t_ratio = kNoNumber;
    double observed = kNoNumber;
    double simulated_mean = kNoNumber;
    double simulated_sd = kNoNumber;
    bool fixed = false;
};

struct ResultLikelihood {
    double value = kNoNumber;
    double mc_error = kNoNumber;
    double null_model = kNoNumber;  // of the model in which every free dyad is a fair coin
    double deviance = kNoNumber;    // -2 x value
    double aic = kNoNumber;
    double bic = kNoNumber;
};

// How the simulated networks came about and what they look like.
struct ResultDiagnosis {
    int chains = 0;
    double burn_in = kNoNumber;             // proposals of a chain before its first sample
    double interval = kNoNumber;            // and from one to the next
    int samples = 0;                        // of all chains
    int runs = 0;                           // of the chains until the end
    bool approximated = false;              // stochastic approximation took over for a while
    double hotelling_p_value = kNoNumber;   // of observed against simulated means
    bool two_kinds = false;                 // sparse networks and nearly complete ones
    double dense_share = 0.0;               // of the latter
    std::vector<double> effective_samples;  // one an effect
    std::vector<double> gelman_rubin;
    Matrix correlation;  // of the statistics
};

// Of one effect, over replicates of the parametric bootstrap.
struct ResultBootstrapEffect {
    std::string name;
    double mean = kNoNumber;
    double standard_error = kNoNumber;
    double lower = kNoNumber;  // of the 95% percentile interval
    double upper = kNoNumber;
    double coverage = kNoNumber;  // of the replicates' own 95% intervals
};

struct ResultBootstrap {
    // Those of the replicates that converged count.
    int replicates = 0;
    int converged = 0;
    int not_converged = 0;
    int not_identified = 0;
    int degenerate = 0;
    double proposals = 0.0;
    double seconds = 0.0;
    std::vector<ResultBootstrapEffect> effects;
};

struct ResultRecord {
    std::string ovri;     // version
    std::string command;  // "estimate"
    std::string verdict;  // empty for a command that judges nothing
    int exit_status = 0;
    std::vector<std::string> reasons;
    std::vector<std::string> advice;  // commands, in the order to try them
    ResultNetwork network;
    std::string method;
    std::uint32_t seed = 0;
    double proposals = 0.0;
    double seconds = 0.0;
    std::vector<ResultEffect> effects;
    Matrix covariance;
    ResultLikelihood likelihood;
    std::optional<ResultDiagnosis> diagnosis;  // where networks were simulated
    std::optional<ResultBootstrap> bootstrap;  // where one was asked for
    ParameterPath path;                        // empty where nothing was searched for
};

// Fills z, p-value, interval and odds ratio from estimate and standard error. Beside an estimate
// that is not to be used only the odds ratio stands.
void judge_effect(ResultEffect& effect, bool usable);

// Decimals of an estimate that its Monte Carlo error supports; of one whose error is not known, a
// tenth of its standard error stands for it.
int supported_decimals(const ResultEffect& effect);

// Those that tables of text show: four, or as many as the Monte Carlo error supports.
int table_decimals(const ResultEffect& effect);
// Of the effect that has most of them; 0 without effects.
int most_decimals(const ResultRecord& result);
