// What a test of fit found, as tables, JSON, CSV and pictures take it.
#pragma once

#include <string>

#include "show/result_record.h"
#include "study/study_gof.h"

struct GofRecord {
    std::string ovri;     // version
    std::string verdict;  // of the estimation; empty where values were simulated that are none
    int exit_status = 0;
    bool bayesian = false;
    std::string conclusion;
    ResultNetwork network;
    StudyGof gof;
};

// What fits and what does not, in one line: "the model misses 3 of 40 statistics ...".
std::string gof_conclusion(const StudyGof& gof, bool directed);

// "more actors of degree 10 to 17 than the model gives"; empty for a distribution that fits.
std::string gof_words(const GofDistribution& distribution, int samples, bool directed);
