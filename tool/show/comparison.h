// Models of one network beside each other: estimates, likelihoods, and tests of nested ones.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "show/result_record.h"

struct ComparedModel {
    std::string name;  // of the results folder
    ResultRecord result;
    int parameters = 0;    // that were estimated
    std::string left_out;  // why it is in no test and cannot be the best; empty where it is not
    bool best_aic = false;
    bool best_bic = false;
};

// Of a model and one that holds it: twice the difference of their log-likelihoods, under the
// smaller one approximately chi-squared.
struct LikelihoodRatio {
    std::size_t smaller = 0;  // places among the models
    std::size_t larger = 0;
    double statistic = 0.0;
    double mc_error = 0.0;  // Monte Carlo standard error of the statistic
    int degrees = 0;        // of freedom: parameters that the larger one has beyond the smaller
    double p_value = 0.0;
};

struct Comparison {
    std::string ovri;                   // version
    std::vector<ComparedModel> models;  // in the order in which they were given
    std::vector<LikelihoodRatio> tests;
};

// Whether every parameter that the smaller model can have, the larger one can have too, and more.
// An effect that a model does not name is one that it holds at 0.
bool is_nested(const ResultRecord& smaller, const ResultRecord& larger);

// Marks the best models and tests every nested pair. Left out of both are models that did not
// converge or have no log-likelihood. A single model is not the best. At least one model; only name
// and result of each are looked at.
Comparison comparison_of(std::vector<ComparedModel> models);

// "results/first: not converged: do not use its estimates; ...", one a model that is left out.
std::vector<std::string> comparison_notes(const Comparison& comparison);

// The models side by side, a column each, and below them the tests and the notes.
std::string comparison_table(const Comparison& comparison);

// One row a model. Behind its likelihood stand estimate and standard error of each effect that any
// of the models has.
std::string comparison_csv(const Comparison& comparison);

// The document, with a line end behind it.
std::string comparison_json(const Comparison& comparison);
