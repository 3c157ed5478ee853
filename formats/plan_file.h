// Plans of many runs (TOML): networks crossed with models and seeds, and settings for all of them.
//
// A Plan names files and holds model files that were read; no network has been opened. Its names of
// networks and models are as the plan writes them, so that they mean the same on every machine.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "formats/model_file.h"

struct PlanNetwork {
    std::string name;   // as seen from the plan
    std::string file;   // as seen from the working directory
    std::string nodes;  // likewise; empty without a nodes file
};

struct PlanModel {
    std::string name;  // "edge,AT(2)", or the model file as the plan writes it
    // With the plan's settings; its network is still to be filled in. Effects that stand in the
    // plan have their places there, and then its path is the plan's.
    ModelFile model;
};

struct Plan {
    std::string path;
    std::vector<PlanNetwork> networks;
    std::optional<bool> directed;
    std::vector<PlanModel> models;
    std::vector<std::uint32_t> seeds;
    std::map<std::string, FilePlace> places;
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// Runs that a plan may ask for.
constexpr std::int64_t kMostJobs = 10000000;

// Reads a plan and the model files that it names. Files that the nodes' pattern matches are no
// networks, though the networks' pattern may match them too. A single nodes file serves every
// network. Problems: what is no TOML, an unknown or missing key, a value of another type or out of
// its range, a pattern that matches nothing, a file that is not there, nodes and networks of
// different numbers, the same network, model or seed twice, problems of a model file, effects that
// are none by their form.
Plan read_plan(const std::string& path);
Plan read_plan(const TextFile& file);
