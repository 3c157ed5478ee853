// The figures of a model's results: each a function from records to a drawing.
//
// What is drawn of an estimation that did not converge says so in the figure. Figures know neither
// files nor pages.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pictures/drawing.h"
#include "study/study.h"
#include "study/study_gof.h"

// How a result is called where several are drawn, and whether its estimates are to be used.
struct ResultLabel {
    std::string name;
    bool usable = true;
    std::string verdict;  // in words: "not converged"
};

// -- Estimates

struct DrawnEstimate {
    std::string effect;
    double estimate = 0.0;
    double lower = 0.0;  // of the 95% interval; NaN without one
    double upper = 0.0;
    bool held = false;
    // That the estimate's Monte Carlo error supports; left open, numbers are shown as they are
    // readable.
    std::optional<int> decimals = {};
};

struct DrawnResult {
    ResultLabel label;
    std::vector<DrawnEstimate> estimates;
};

// Estimates with their intervals on one axis, a line an effect, results below each other in it.
Drawing forest_figure(const std::vector<DrawnResult>& results);

// One effect of a model in many networks, and the mean parameter of all.
struct DrawnPool {
    std::string model;
    std::vector<DrawnEstimate> networks;  // `effect` names the network
    DrawnEstimate pooled;                 // of the effect
    int left_out = 0;                     // networks without an estimate that may be used
};

// A line a network and the pooled mean as a diamond as wide as its interval. Networks are named up
// to 60 of them.
Drawing pooled_figure(const DrawnPool& pool);

// -- The network

struct Point {
    double x = 0.0;
    double y = 0.0;
};

// Places of the actors, in no particular unit: the same network has the same places. Actors without
// ties stand apart from the others.
std::vector<Point> network_places(const StudyNetwork& network);

// Actors as dots whose colour and shape tell their category of `attribute` (null for none), with
// their names up to 60 of them; arcs have heads where there are few enough to see them.
Drawing network_figure(const StudyNetwork& network, const std::vector<Point>& places,
                       const StudyAttribute* attribute);

// -- The way to the estimates

// A parameter by step of the search, a stretch a stage.
struct DrawnPath {
    ResultLabel label;
    std::string effect;
    double estimate = 0.0;
    std::vector<std::string> stages;
    std::vector<std::vector<double>> values;  // of each stage
    std::optional<int> decimals = {};         // of the estimate, as of a DrawnEstimate
};

// The parameter by step, stages parted by upright lines, and what it ended at.
Drawing path_figure(const DrawnPath& path);

// -- Samples

struct DrawnSample {
    ResultLabel label;
    std::string effect;
    double observed = 0.0;
    std::vector<std::vector<double>> chains;  // the statistic by draw, a series a chain
};

// The statistic by draw, chains told apart by colour and dash, and the observed value.
Drawing trace_figure(const DrawnSample& sample);

// How often the samples had which value, and the observed one. Several figures can share their
// axis: [low, high] is what it spans at least.
Drawing histogram_figure(const DrawnSample& sample, std::optional<double> low = {},
                         std::optional<double> high = {});

// -- Goodness of fit

// Boxes of the samples for each entry (quartiles, whiskers to the 5% and 95% points, median and
// mean) and the observed network as a line. At least as high as `highest`.
Drawing distribution_figure(const GofDistribution& distribution, const ResultLabel& label,
                            double highest = 0.0);

// The largest number that the figure shows.
double highest_of(const GofDistribution& distribution);

// t-ratios of all statistics on one axis, with the band in which a model fits.
Drawing statistics_figure(const std::vector<GofStatistic>& statistics, const ResultLabel& label);
