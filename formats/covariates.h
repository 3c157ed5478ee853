// Dyadic covariates: a matrix of numbers, or lines of from, to, value.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "formats/text_file.h"
#include "formats/ties.h"

struct CovariateFile {
    StudyCovariate covariate;
    std::vector<std::string> notes;
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// Reads a covariate over the network's actors. Names in the file are matched with the actors; a
// matrix without names has them in the network's order. In a list a pair that does not stand there
// takes the value `missing`; without one it is a problem. In an undirected network a list may give
// each pair once, and a matrix must be symmetric. The diagonal counts as 0.
CovariateFile read_covariate(const std::string& path, const std::string& name,
                             const StudyNetwork& network, std::optional<double> missing);
