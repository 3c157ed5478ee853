// Networks drawn of a model into a results folder, as `ovri simulate` does.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "commands/results_folder.h"
#include "commands/study_input.h"
#include "study/study_simulate.h"

struct DrawnNetworks {
    StudySimulation simulation;
    std::vector<std::vector<double>> statistics;  // one row a network, by effect
    int with_isolates = 0;                        // networks in which an actor has no tie
    bool interrupted = false;                     // `simulation` then has the number alone
};

// The value that each effect of the study has.
std::vector<double> values_of(const StudyInput& input);

// Draws the networks of a part, or of a run that is not divided, into `networks` of the folder,
// with a progress line on a terminal. A failed write ends it, as an interruption does.
DrawnNetworks draw_networks(const StudyInput& input, std::uint32_t seed, const WorkPart& part,
                            bool with_progress, ResultsFolder& folder);

// What a part tells of its networks, all numbers exact.
nlohmann::ordered_json drawn_json(const DrawnNetworks& drawn);
// Adds it behind the parts before. Throws nlohmann::ordered_json::exception where it cannot be.
void add_drawn(const nlohmann::ordered_json& json, DrawnNetworks& all);

// Removes networks that other settings have left: of a higher number or in another format.
void remove_stray_networks(const StudyInput& input, int samples, const ResultsFolder& folder);

// What the networks' files leave out or write otherwise, with the way to keep it: a nodes file for
// edge lists, the model's own or one beside the networks.
std::vector<std::string> losses(const StudyInput& input, const DrawnNetworks& drawn,
                                ResultsFolder& folder);
