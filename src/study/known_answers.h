// Known answers: models whose results are known beforehand, estimated here and now.
//
// What is expected comes from closed forms, from an enumeration of every network on a few actors,
// from long runs, and from an earlier run of the engine's own procedure. Seeds are fixed, so that
// the same program finds the same numbers each time.
#pragma once

#include <string>
#include <vector>

#include "base/host_options.h"

struct KnownAnswer {
    std::string model;     // "Florentine marriages: edge, triangle"
    std::string quantity;  // "edge", "std. error of edge", "log-likelihood"
    double found = 0.0;    // NaN where the estimation found nothing that is to be used
    double expected = 0.0;
    // What a difference is counted in: the standard error of an estimate; of a standard error
    // itself that again; 1 for a log-likelihood.
    double unit = 1.0;
    double allowed = 0.0;  // largest difference, in units
};

double difference(const KnownAnswer& answer);  // in units
bool is_as_expected(const KnownAnswer& answer);

// All of them, in a few seconds. `threads` as in StudyRun. Throws RunStopped when `progress` asks
// for the end.
std::vector<KnownAnswer> known_answers(int threads, RunProgress& progress);
