#include "run/setup_items.h"

#include <array>

#include "base/text_writer.h"

namespace {

using enum SetupId;
using enum SetupValue;
using enum SetupLead;
using enum SetupPart;
using Run = RunSettings;
using Switches = OutputSwitches;
using Estimation = EstimationSettings;

constexpr RunModes kSimulation = modes_of(RunMode::simulation);
constexpr RunModes kEstimation = modes_of(RunMode::estimation);
constexpr RunModes kBayesian = modes_of(RunMode::bayesian_fit);
constexpr RunModes kObserved = RunMode::estimation | RunMode::fit | RunMode::bayesian_fit;
constexpr RunModes kSampling = RunMode::simulation | RunMode::fit | RunMode::bayesian_fit;
constexpr RunModes kIterating = RunMode::simulation | RunMode::fit;
constexpr RunModes kAll = kSampling | kEstimation;
constexpr std::monostate kModel = {};

// clang-format off
constexpr auto kItems = std::to_array<SetupItem>({
    {network_name, "network name", line, label, head, kAll, &Run::network_name, nullptr,
     "the last part of every output file's name"},
    {output_directory, "output directory", line, label, head, kAll, &Run::output_directory,
     "a directory that exists", "where the output files go"},
    {proposal_kind, "proposal kind", number, label, head, kAll, &Run::proposal_kind, "0, 1; directed 0, 1, 2",
     "1 dyad swap, 2 in a directed network sender swap, any other a toggle"},
    {run_mode, "run mode", number, label, head, kAll, &Run::run_mode, "1, 2, 3, 4",
     "1 simulation, 2 estimation, 3 goodness of fit, 4 Bayesian goodness of fit"},
    {network_kind, "network kind", number, if_read, head, kAll, &Run::network_kind, "1, 2",
     "1 undirected, 2 directed"},
    {actor_count, "actor count", number, label, body, kAll, &Run::actor_count, "2 or more actors",
     "how many actors the network has"},
    {density, "density", real, label, body, kSimulation, &Run::density, "a number from 0 to 1",
     "the share of dyads that are tied in the random start network"},
    {network_file, "network file", line, label, body, kObserved, &Run::network_path, nullptr,
     "a matrix of 0 and 1, actor count x actor count"},
    {degree_cap_flag, "degree cap flag", flag, label, body, kAll, &Run::max_degree_flag, nullptr,
     "whether degrees are capped"},
    {degree_cap, "degree cap", number, if_on, body, kAll, &Run::max_degree, "0 or more",
     "the largest degree; directed: the largest out-degree"},
    {structural_section, "structural section flag", flag, label, body, kAll, kModel, nullptr,
     "whether the structural rows follow"},
    {structural_flag, "%s flag", flag, label, structural_row, kAll, kModel, nullptr,
     "whether the effect is in the model"},
    {structural_value, "%s value", real, if_read, structural_row, kAll, kModel, nullptr,
     "the effect's parameter; in an estimation its starting value"},
    {structural_lambda, "%s lambda", real, if_read, structural_row, kAll, kModel,
     "a number of 1 or more", "the weight of an alternating effect"},
    {attribute_section, "attribute section flag", flag, label, body, kAll, kModel, nullptr,
     "whether the three attribute blocks follow"},
    {group_section, "%s section flag", flag, label, block, kAll, kModel, nullptr,
     "whether the block follows"},
    {group_count, "%s count", count, if_on, block, kAll, kModel, "0 or more",
     "how many attributes or covariates the file has"},
    {group_file, "%s file", line, label, block, kAll, kModel, nullptr,
     "the file with their values"},
    {group_flag, "%s flag", flag, label, block_row, kAll, kModel, nullptr,
     "whether the effect is in the model"},
    {group_value, "%s value", real, if_read, block_row, kAll, kModel, nullptr,
     "the effect's parameter; in an estimation its starting value"},
    {covariance_file, "covariance file", line, label, body, kBayesian, &Run::covariance_path, nullptr,
     "the covariance matrix that an estimation of the same model wrote"},
    {free_dyads_flag, "free dyads flag", flag, label, body, kAll, &Run::free_dyads_flag, nullptr,
     "whether only some dyads may change"},
    {free_dyads_file, "free dyads file", line, if_on, body, kAll, &Run::free_dyads_path, nullptr,
     "a matrix whose ties are the dyads that may be proposed"},
    {sub_phases, "number of sub-phases", number, label, body, kEstimation, &Estimation::sub_phases,
     "1 or more", "sub-phases of phase 2"},
    {a_value, "starting a-value", real, label, body, kEstimation, &Estimation::a_value,
     "a number above 0", "the gain of the first sub-phase"},
    {multiplication_factor, "multiplication factor", number, label, body, kEstimation,
     &Estimation::multiplication_factor, "1 or more",
     "the length of a step, in units of d (1 - d) n^2 proposals, d the observed density"},
    {phase3_steps, "steps of phase 3", number, label, body, kEstimation, &Estimation::phase3_steps,
     "1 or more", "samples behind standard errors and t-ratios"},
    {estimation_runs, "number of estimation runs", number, label, body, kEstimation,
     &Estimation::estimation_runs, "1 or more", "runs at most; the first that converges is the last"},
    {gof_after_estimation, "goodness of fit after estimation", flag, label, body, kEstimation,
     &Run::gof_after_estimation, nullptr, "whether a fit follows an estimation that converged"},
    {sample_graphs, "sample graphs switch", flag, label, body, kSampling, &Switches::sample_graphs,
     nullptr, "a report and a Pajek record of each sample"},
    {degree_distribution, "degree distribution switch", flag, label, body, kSampling,
     &Switches::degree_distribution, nullptr, "the degrees of each sample"},
    {geodesic_distribution, "geodesic distribution switch", flag, label, body, kSampling,
     &Switches::geodesic_distribution, nullptr, "the distances of each sample and their quartiles"},
    {cluster_giant, "cluster and giant switch", flag, label, body, kSampling, &Switches::cluster_giant,
     nullptr, "clustering and the largest component of each sample"},
    {triangle_distribution, "triangle distribution switch", flag, label, body, kSampling,
     &Switches::triangle_distribution, nullptr, "triangles per actor; ignored in a directed run"},
    {two_path_distribution, "two-path distribution switch", flag, label, body, kSampling,
     &Switches::two_path_distribution, nullptr,
     "common neighbours per dyad; ignored in a directed run"},
    {et_distribution, "ET distribution switch", flag, label, body, kSampling, &Switches::et_distribution,
     nullptr, "edge-triangle terms per actor; ignored in a directed run"},
    {burn_in, "burn-in", real, label, body, kSampling, &Run::burn_in, "0 or more proposals",
     "proposals before the first sample; in mode 4 before each"},
    {iterations, "iterations", real, label, body, kIterating, &Run::iterations,
     "1 or more proposals",
     "proposals of the run; samples are iterations / samples apart, without the fraction"},
    {sample_count, "sample count", number, label, body, kSampling, &Run::sample_count,
     "1 or more samples", "samples; in mode 4 draws of the parameters"},
});
// clang-format on

// The table stands in the order of the ids, so that an id is an index.
consteval bool is_in_order() {
    for (std::size_t k = 0; k < kItems.size(); ++k) {
        if (kItems[k].id != static_cast<SetupId>(k)) {
            return false;
        }
    }
    return kItems.back().id == sample_count;
}
static_assert(is_in_order());

}  // namespace

std::span<const SetupItem> setup_items() { return kItems; }

const SetupItem& setup_item(SetupId id) { return kItems[static_cast<std::size_t>(id)]; }

const char* group_name(AttributeGroup group) {
    constexpr std::array<const char*, kAttributeGroups> kNames = {
        "binary attribute", "continuous attribute", "categorical attribute", "covariate"};
    return kNames[static_cast<std::size_t>(group)];
}

std::string attribute_of(const SetupKey& key) {
    return std::string(group_name(key.group)) + " " + std::to_string(key.attribute + 1);
}

std::string setup_effect(const SetupKey& key, const Catalogue& catalogue, const std::string& name) {
    const auto row = static_cast<std::size_t>(key.row);
    return setup_item(key.id).part == structural_row
               ? std::string(catalogue.effects[row].row)
               : text_with_name(group_catalogue(catalogue, key.group).effects[row].update, name);
}

std::string setup_name(const SetupKey& key, const Catalogue* catalogue) {
    const SetupItem& item = setup_item(key.id);
    switch (item.part) {
        case structural_row:
            return text_with_name(item.name, setup_effect(key, *catalogue, ""));
        case block:
            return text_with_name(item.name, group_name(key.group));
        case block_row:
            return text_with_name(item.name,
                                  attribute_of(key) + ": " + setup_effect(key, *catalogue, ""));
        default:
            return item.name;
    }
}
