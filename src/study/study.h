// What a person brings to the engine: data, a model and settings, as plain records.
//
// A study knows nothing of files or terminals: readers of files fill it, methods of estimation and
// simulation take it. Actors are numbered from 0 in the order of `StudyNetwork::actors` and keep
// their names; every vector over actors follows that order.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/table.h"
#include "study/effect_expression.h"

// An ordered pair of actors; where direction has no meaning, from < to.
struct ActorTie {
    int from = 0;
    int to = 0;
    // NOLINTNEXTLINE(modernize-use-nullptr): the comparison that the compiler writes
    friend auto operator<=>(const ActorTie&, const ActorTie&) = default;
};

struct StudyNetwork {
    std::vector<std::string> actors;  // unique names
    bool directed = false;
    // Each tie once, in ascending order; no actor is tied to itself.
    std::vector<ActorTie> ties;
};

enum class AttributeType { binary, continuous, categorical };

// "binary", "continuous", "categorical".
const char* attribute_type_name(AttributeType type);

struct StudyAttribute {
    std::string name;
    AttributeType type = AttributeType::continuous;
    // One value an actor: 0 or 1 of a binary attribute, a code from 1 on of a categorical one. A
    // missing value is kMissingValue.
    std::vector<double> values;
    // How a coded value was written: labels[code] is the text of that code. A binary attribute has
    // two, a categorical one an empty text at code 0, a continuous one none.
    std::vector<std::string> labels;
};

// The engine's code of a value that is not known.
constexpr double kMissingValue = 9999.0;

int missing_values(const StudyAttribute& attribute);

// A number for each ordered pair of actors.
struct StudyCovariate {
    std::string name;
    FloatTable values;
};

// One effect of a model, as it is written, with what is said about its parameter.
struct StudyEffect {
    EffectExpression expression;
    std::optional<double> start;
    std::optional<double> fixed;  // held at this value, not estimated
};

struct StudyModel {
    std::vector<StudyEffect> effects;
};

enum class EstimationMethod { automatic, stochastic_approximation, mple, mcmle };

// "auto", "stochastic-approximation", "mple", "mcmle".
const char* estimation_method_name(EstimationMethod method);
std::optional<EstimationMethod> estimation_method_of(const std::string& name);

struct StudyEstimation {
    EstimationMethod method = EstimationMethod::automatic;
    int attempts = 10;  // runs of the stochastic approximation until one converges
    // Largest Monte Carlo error of an estimate, in its standard errors; 0 for 0.02 up to 100 actors
    // and 0.05 beyond.
    double precision = 0.0;
    double time_limit = 0.0;  // seconds; 0 for none
    int chains = 8;           // that simulate side by side; results depend on it, not on threads
    int bootstrap = 0;        // networks of a parametric bootstrap behind it; 0 for none
    // Of the stochastic approximation: its sub-phases, the gain of the first, the length of a step
    // in units of d (1 - d) n^2 proposals (d the observed density), and the samples of phase 3.
    int subphases = 5;
    double gain = 0.1;
    int multiplication = 30;
    int samples = 1000;
};

// A series of networks drawn from a model; 0 proposals leave the choice to the method.
struct StudySampling {
    int samples = 0;
    std::int64_t burn_in = 0;   // proposals before the first
    std::int64_t interval = 0;  // proposals from one to the next
};

struct StudyRun {
    std::optional<std::uint32_t> seed;  // none: to be chosen and shown
    int threads = 0;                    // 0: as many as the machine has
};

struct StudySettings {
    StudyEstimation estimation;
    StudySampling gof = {.samples = 1000};
    StudySampling simulation = {.samples = 100};
    StudyRun run;
};

// What of the network may change.
struct StudyDyads {
    bool restricted = false;        // then only `free` may
    std::vector<ActorTie> free;     // ascending; in an undirected network from < to
    std::optional<int> max_degree;  // no actor gets more ties (out-going ones, when directed)
};

struct Study {
    StudyNetwork network;
    std::vector<StudyAttribute> attributes;
    std::vector<StudyCovariate> covariates;
    StudyModel model;
    StudyDyads dyads;
    StudySettings settings;
};

// Dyads of a network: ordered pairs of actors where it is directed.
double dyads_in(const StudyNetwork& network);
// Those that may change.
double free_dyads(const Study& study);

// Null when there is none of that name; names compare without regard to case, "-" and "_".
const StudyAttribute* find_attribute(const Study& study, const std::string& name);
const StudyCovariate* find_covariate(const Study& study, const std::string& name);
