// Evaluates the formulas of the catalogue by their own notation, with no help from the engine.
#pragma once

#include <string>
#include <vector>

// What a formula's letters stand for. Ties are symmetric in an undirected network.
struct FormulaData {
    std::vector<std::vector<int>> ties;          // x_ij
    std::vector<double> values;                  // a_i
    std::vector<int> missing;                    // u_i
    std::vector<std::vector<double>> covariate;  // c_ij
    double lambda = 2.0;
};

// The value of a formula; throws std::invalid_argument where it is not in the notation.
double formula_value(const std::string& formula, const FormulaData& data);

// The value of the formula of a change: i and j are bound, and sums leave them out. The ties are
// those without the tie (i, j).
double change_formula_value(const std::string& formula, const FormulaData& data, int i, int j);
