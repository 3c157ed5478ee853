// Setup files for tests, with labels of their own: readers never look at them.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "support/chain_models.h"

struct SetupText {
    NetworkKind kind = NetworkKind::undirected;
    int mode = 1;
    int proposal = 0;
    int actors = 6;
    std::string name = "net";
    std::string directory = "out";
    std::string density = "0.3";
    std::string network = "network.txt";
    int cap = 0;  // 0 for none
    bool structural = true;
    std::vector<ModelTerm> effects = {};
    // Whole sections, as they stand in the file.
    std::string attributes = "Attributes 0\n";
    std::string covariates = "Covariates 0\n";
    std::string covariance = "covariance.txt";
    std::string free_dyads = "";  // a path, or none
    std::array<int, 7> switches = {0, 0, 0, 0, 0, 0, 0};
    std::string burn_in = "50";
    std::string iterations = "200";
    std::string samples = "4";
    int sub_phases = 2;
    std::string a_value = "0.1";
    int factor = 2;
    int phase3_steps = 50;
    int runs = 1;
    int fit = 0;
};

std::string setup_text(const SetupText& setup);

// Sections that name binary.txt (one attribute), continuous.txt (two), categorical.txt (one) and
// covariates.txt (one), with every effect's flag and value as given.
std::string attribute_section(NetworkKind kind, int flag, const std::string& value);
std::string covariate_section(NetworkKind kind, int flag, const std::string& value);

// Those four files for so many actors, by name.
std::map<std::string, std::string> attribute_files(int actors);

// n rows of cells, one blank between two.
template <class Network>
std::string matrix_text(const Network& network) {
    std::string text;
    for (int i = 0; i < network.vertices; ++i) {
        for (int j = 0; j < network.vertices; ++j) {
            text += j == 0 ? "" : " ";
            text += i != j && has_tie(network, i, j) ? "1" : "0";
        }
        text += "\n";
    }
    return text;
}
