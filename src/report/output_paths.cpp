#include "report/output_paths.h"

#include <string_view>

#include "base/text_writer.h"

namespace {

using Paths = OutputPaths;
using Switches = OutputSwitches;
using enum OutputGrowth;

constexpr OutputCase kNever = {};
constexpr OutputCase kBoth = {.undirected = true, .directed = true};
constexpr OutputCase kUndirected = {.undirected = true};
constexpr OutputCase kDirected = {.directed = true};
constexpr OutputCase kSound = {.undirected = true, .directed = true, .unless_degenerate = true};
constexpr OutputCase kConverged = {.undirected = true, .if_converged = true};
constexpr OutputCase kFitAfter = {.undirected = true, .directed = true, .in_fit_after = true};
constexpr OutputCase kDirectedFitAfter = {.directed = true, .in_fit_after = true};

// Modes: simulation, estimation, fit, Bayesian fit.
using Cases = std::array<OutputCase, 4>;
constexpr Cases kAll = {kBoth, kBoth, kBoth, kBoth};
constexpr Cases kEnds = {kBoth, kFitAfter, kUndirected, kBoth};
constexpr Cases kSimulation = {kBoth, kNever, kNever, kNever};
constexpr Cases kAcceptance = {kBoth, kDirectedFitAfter, kDirected, kNever};
constexpr Cases kSampling = {kBoth, kFitAfter, kBoth, kBoth};
constexpr Cases kSwitched = {kBoth, kNever, kBoth, kBoth};
constexpr Cases kSwitchedUndirected = {kUndirected, kNever, kUndirected, kUndirected};
constexpr Cases kEstimation = {kNever, kBoth, kNever, kNever};
constexpr Cases kCovariance = {kNever, kSound, kNever, kNever};
constexpr Cases kChanges = {kNever, kConverged, kNever, kNever};
constexpr Cases kFits = {kNever, kFitAfter, kBoth, kBoth};
constexpr Cases kUndirectedUpdate = {kNever, kUndirected, kNever, kNever};
constexpr Cases kDirectedUpdate = {kNever, kDirected, kNever, kNever};

constexpr auto kFiles = std::to_array<OutputFile>({
    {&Paths::start_statistics, "start_statistics_%s.txt", added, kAll, nullptr,
     "description of the network before the run"},
    {&Paths::estimation, "estimation_%s.txt", added, kEstimation, nullptr,
     "log of the estimation, with the result table"},
    {&Paths::covariance, "covariance_%s.txt", replaced, kCovariance, nullptr,
     "covariance matrix of the estimates"},
    {&Paths::change_statistics, "change_statistics_%s.txt", replaced, kChanges, nullptr,
     "change statistics of every dyad"},
    {&Paths::logodds, "logodds_%s.txt", replaced, kChanges, nullptr, "odds of every tie"},
    {&Paths::parameter, "parameter_%s.txt", replaced, kSimulation, nullptr,
     "parameters and length of the run"},
    {&Paths::simulation, "simulation_%s.txt", replaced, kSampling, nullptr,
     "table of sampled statistics"},
    {&Paths::accept, "accept_%s.txt", replaced, kAcceptance, nullptr,
     "shares of accepted proposals"},
    {&Paths::degree_distribution, "degree_distribution_%s.txt", added, kSwitched,
     &Switches::degree_distribution, "degrees, a row per sample"},
    {&Paths::geodesic_distribution, "geodesic_distribution_%s.txt", added, kSwitched,
     &Switches::geodesic_distribution, "distances, a row per sample"},
    {&Paths::geodesic_quartiles, "geodesic_quartiles_%s.txt", added, kSwitched,
     &Switches::geodesic_distribution, "quartiles of the distances, a row per sample"},
    {&Paths::cluster_giant, "cluster_giant_%s.txt", added, kSwitched, &Switches::cluster_giant,
     "clustering and largest component, a row per sample"},
    {&Paths::triangle_distribution, "triangle_distribution_%s.txt", added, kSwitchedUndirected,
     &Switches::triangle_distribution, "triangles per actor, a row per sample"},
    {&Paths::twopath_distribution, "twopath_distribution_%s.txt", added, kSwitchedUndirected,
     &Switches::two_path_distribution, "common neighbours per dyad, a row per sample"},
    {&Paths::et0nt_distribution, "et0nt_distribution_%s.txt", added, kSwitchedUndirected,
     &Switches::et_distribution, "edge-triangle terms per actor, a row per sample"},
    {&Paths::sample_statistics, "sample_statistics_%s", added, kSwitched, &Switches::sample_graphs,
     "description of a sampled network; its number and .txt end the name"},
    {&Paths::pajek, "pajek_%s.paj", added, kSwitched, &Switches::sample_graphs,
     "sampled networks as Pajek matrices"},
    {&Paths::gof, "gof_%s.txt", added, kFits, nullptr, "fit report"},
    {&Paths::sim, "sim_%s.sps", replaced, kSampling, nullptr,
     "SPSS syntax for the table of sampled statistics"},
    {&Paths::end_statistics, "end_statistics_%s.txt", added, kEnds, nullptr,
     "description of the network after the run"},
    {&Paths::structural_update, "stupdate.ovri", replaced, kUndirectedUpdate, nullptr,
     "structural estimates"},
    {&Paths::binary_update, "biupdate.ovri", replaced, kUndirectedUpdate, nullptr,
     "estimates of binary attributes"},
    {&Paths::continuous_update, "contupdate.ovri", replaced, kUndirectedUpdate, nullptr,
     "estimates of continuous attributes"},
    {&Paths::categorical_update, "catupdate.ovri", replaced, kUndirectedUpdate, nullptr,
     "estimates of categorical attributes"},
    {&Paths::covariate_update, "covupdate.ovri", replaced, kUndirectedUpdate, nullptr,
     "estimates of covariates"},
    {&Paths::structural_update, "distupdate.ovri", replaced, kDirectedUpdate, nullptr,
     "structural estimates"},
    {&Paths::binary_update, "dibiupdate.ovri", replaced, kDirectedUpdate, nullptr,
     "estimates of binary attributes"},
    {&Paths::continuous_update, "dicontupdate.ovri", replaced, kDirectedUpdate, nullptr,
     "estimates of continuous attributes"},
    {&Paths::categorical_update, "dicatupdate.ovri", replaced, kDirectedUpdate, nullptr,
     "estimates of categorical attributes"},
    {&Paths::covariate_update, "dicovupdate.ovri", replaced, kDirectedUpdate, nullptr,
     "estimates of covariates"},
});

bool is_of_kind(const OutputCase& which, NetworkKind kind) {
    return kind == NetworkKind::directed ? which.directed : which.undirected;
}

const OutputCase& case_of(const OutputFile& file, RunMode mode) {
    return file.cases[static_cast<std::size_t>(mode) - 1];
}

}  // namespace

std::span<const OutputFile> output_files() { return kFiles; }

bool is_update_file(const OutputFile& file) {
    return std::string_view(file.name).find("%s") == std::string_view::npos;
}

bool is_sample_report(const OutputFile& file) {
    return file.path == &OutputPaths::sample_statistics;
}

bool may_write(const OutputFile& file, RunMode mode, NetworkKind kind,
               const OutputSwitches& switches, bool fit_after) {
    const OutputCase& which = case_of(file, mode);
    return is_of_kind(which, kind) && (fit_after || !which.in_fit_after) &&
           (file.on_switch == nullptr || switches.*file.on_switch);
}

const std::string& update_path(const OutputPaths& paths, AttributeGroup group) {
    constexpr std::array<std::string OutputPaths::*, kAttributeGroups> kUpdates = {
        &Paths::binary_update, &Paths::continuous_update, &Paths::categorical_update,
        &Paths::covariate_update};
    return paths.*kUpdates[static_cast<std::size_t>(group)];
}

OutputPaths output_paths(const std::string& directory, const std::string& network, char separator,
                         NetworkKind kind, bool updates_beside) {
    const std::string beside = directory + separator;
    OutputPaths paths;
    for (const OutputFile& file : kFiles) {
        if (!is_update_file(file)) {
            paths.*file.path = beside + text_with_name(file.name, network);
        } else if (is_of_kind(case_of(file, RunMode::estimation), kind)) {
            paths.*file.path = (updates_beside ? beside : "") + file.name;
        }
    }
    return paths;
}
