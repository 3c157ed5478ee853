#include "commands/drawn_networks.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/native_path.h"
#include "commands/model_options.h"
#include "formats/network_writer.h"
#include "formats/text_file.h"
#include "show/document_pieces.h"
#include "terminal/print.h"
#include "terminal/watched.h"

namespace {

using Json = nlohmann::ordered_json;

const char* extension_of(NetworkFormat format) {
    switch (format) {
        case NetworkFormat::edge_list:
            return "csv";
        case NetworkFormat::matrix:
            return "txt";
        case NetworkFormat::pajek:
            return "net";
        case NetworkFormat::graphml:
            return "graphml";
        case NetworkFormat::gml:
            return "gml";
        case NetworkFormat::dl:
            return "dl";
        case NetworkFormat::dot:
            break;
    }
    return "dot";
}

// `number` from 0.
std::string file_name(int number, NetworkFormat format) {
    return fmt::format("{:04}.{}", number + 1, extension_of(format));
}

bool has_isolates(const StudyNetwork& network, const std::vector<ActorTie>& ties) {
    std::vector<char> tied(network.actors.size(), 0);
    for (const ActorTie& tie : ties) {
        tied[static_cast<std::size_t>(tie.from)] = 1;
        tied[static_cast<std::size_t>(tie.to)] = 1;
    }
    return std::find(tied.begin(), tied.end(), 0) != tied.end();
}

}  // namespace

std::vector<double> values_of(const StudyInput& input) {
    std::vector<double> values;
    for (const StudyEffect& effect : input.files.study.model.effects) {
        values.push_back(effect.fixed ? *effect.fixed : effect.start.value_or(0.0));
    }
    return values;
}

DrawnNetworks draw_networks(const StudyInput& input, std::uint32_t seed, const WorkPart& part,
                            bool with_progress, ResultsFolder& folder) {
    DrawnNetworks drawn;
    const Study& study = input.files.study;
    StudyNetwork network = study.network;
    const NetworkFormat format = *input.model.simulation_format;
    const std::vector<double> values = values_of(input);
    const StudySampling& sampling = study.settings.simulation;
    const bool whole = watched(with_progress, [&](RunProgress& progress) {
        const auto visit = [&](const StudySample& sample) {
            drawn.statistics.push_back(sample.statistics);
            ++drawn.simulation.samples;
            network.ties = sample.ties;
            drawn.with_isolates += has_isolates(network, sample.ties) ? 1 : 0;
            folder.write("networks/" + file_name(sample.number, format),
                         network_text(network, format));
            progress.stop = progress.stop || !folder.failures().empty();
        };
        drawn.simulation =
            part.number == 0
                ? study_simulate(study, input.resolved, values, sampling, seed, progress, visit)
                : study_simulate_part(study, input.resolved, values, sampling, seed, part, progress,
                                      visit);
    });
    drawn.interrupted = !whole;
    return drawn;
}

Json drawn_json(const DrawnNetworks& drawn) {
    Json json;
    json["burn_in"] = drawn.simulation.burn_in;
    json["interval"] = drawn.simulation.interval;
    json["proposals"] = drawn.simulation.proposals;
    json["with_isolates"] = drawn.with_isolates;
    json["observed"] = exact_numbers(drawn.simulation.observed);
    json["statistics"] = Json::array();
    for (const std::vector<double>& row : drawn.statistics) {
        json["statistics"].push_back(exact_numbers(row));
    }
    return json;
}

void add_drawn(const Json& json, DrawnNetworks& all) {
    all.simulation.burn_in = json.at("burn_in").get<std::int64_t>();
    all.simulation.interval = json.at("interval").get<std::int64_t>();
    all.simulation.proposals += json.at("proposals").get<double>();
    all.simulation.observed = exact_numbers_at(json.at("observed"));
    all.with_isolates += json.at("with_isolates").get<int>();
    for (const Json& row : json.at("statistics")) {
        all.statistics.push_back(exact_numbers_at(row));
        ++all.simulation.samples;
    }
}

void remove_stray_networks(const StudyInput& input, int samples, const ResultsFolder& folder) {
    namespace fs = std::filesystem;
    std::error_code problem;
    const std::string own = std::string(".") + extension_of(*input.model.simulation_format);
    for (const fs::directory_entry& each :
         fs::directory_iterator(native_path(folder.path("networks")), problem)) {
        const std::string stem = each.path().stem().string();
        const bool numbered = stem.size() >= 4 && stem.size() < 10 &&
                              std::all_of(stem.begin(), stem.end(),
                                          [](unsigned char sign) { return std::isdigit(sign); });
        if (numbered && (each.path().extension() != own || std::stoi(stem) > samples)) {
            fs::remove(each.path(), problem);
        }
    }
}

std::vector<std::string> losses(const StudyInput& input, const DrawnNetworks& drawn,
                                ResultsFolder& folder) {
    std::vector<std::string> notes;
    const NetworkFormat format = *input.model.simulation_format;
    const StudyNetwork& network = input.files.study.network;
    if (format == NetworkFormat::edge_list && drawn.with_isolates > 0) {
        std::string nodes = input.model.network.nodes;
        if (nodes.empty() || nodes == "-") {
            folder.write("nodes.csv", nodes_text(network.actors));
            nodes = folder.path("nodes.csv");
        }
        notes.push_back(fmt::format(
            "{} of {} {} actors without ties, whom an edge list leaves out: read them with --nodes "
            "{}",
            drawn.with_isolates, counted(drawn.simulation.samples, "network"),
            drawn.with_isolates == 1 ? "has" : "have", shell_word(nodes)));
    }
    if (const auto changed = changed_names(network, format); !changed.empty()) {
        notes.push_back(
            fmt::format("{} has no sign for quotation marks and line ends in names: "
                        "apostrophes and blanks stand in their place, as in that of {}",
                        network_format_name(format), shown_text(changed.front())));
    }
    return notes;
}
