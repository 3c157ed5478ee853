#include "commands/study_input.h"

#include <algorithm>
#include <random>

#include "formats/model_writer.h"
#include "run/memory_estimate.h"
#include "study/estimability.h"
#include "study/monte_carlo_likelihood.h"
#include "study/names.h"
#include "study/study_estimate.h"
#include "terminal/machine.h"
#include "terminal/print.h"

namespace {

// The type of each attribute as it was read, where the model file left it to the guess.
void settle_types(const Study& study, ModelFile& model) {
    for (const StudyAttribute& attribute : study.attributes) {
        const auto place =
            std::find_if(model.attributes.begin(), model.attributes.end(),
                         [&](const ColumnOption& each) { return each.name == attribute.name; });
        if (place == model.attributes.end()) {
            model.attributes.push_back({attribute.name, attribute.type, false});
        } else if (!place->type) {
            place->type = attribute.type;
        }
    }
}

// The tables of the network that a chain moves, against the machine.
Problems memory_problems(const StudyInput& input) {
    const StudyNetwork& network = input.files.study.network;
    const auto n = static_cast<std::int64_t>(network.actors.size());
    const double needed = network.directed ? digraph_bytes(n) : graph_bytes(n);
    const double there = machine_memory();
    if (there <= 0.0 || needed <= there) {
        return {};
    }
    return {{.file = input.model.network.file,
             .found = fmt::format("{} actors: a chain needs {:.1f} GB of memory", n, needed / 1e9),
             .expected = fmt::format("a network for the {:.1f} GB that there are", there / 1e9),
             .mend = "take a part of the network, or a larger machine"}};
}

}  // namespace

StudyInput read_study(ModelFile model) {
    StudyInput input;
    input.model = std::move(model);
    input.files = load_study(input.model);
    input.problems = input.files.problems;
    if (input.ok()) {
        input.problems = memory_problems(input);
    }
    if (input.ok()) {
        input.resolved = study_selection(input.files.study);
        input.problems =
            placed_problems(input.model, input.resolved.problems, input.resolved.faulty_effects);
    }
    return input;
}

StudyInput read_study_to_estimate(ModelFile model) {
    StudyInput input = read_study(std::move(model));
    if (!input.ok()) {
        return input;
    }
    input.problems = estimation_problems(input.files.study);
    for (Problem& problem : input.problems) {
        problem.file = input.model.path;
    }
    const Estimability drifting = drifting_effects(input.files.study, input.resolved);
    const Problems placed =
        placed_problems(input.model, drifting.problems, drifting.faulty_effects);
    input.problems.insert(input.problems.end(), placed.begin(), placed.end());
    return input;
}

std::vector<std::string> files_of(const ModelFile& model) {
    std::vector<std::string> files = {model.path, model.network.file, model.network.nodes,
                                      model.free_dyads};
    for (const CovariateSource& each : model.covariates) {
        files.push_back(each.file);
    }
    return files;
}

std::string network_summary(const StudyInput& input) {
    const ResultNetwork network = result_network(input);
    return fmt::format(
        "{}, {}, {} without ties, density {:.4f}, {}", counted(network.actors, "actor"),
        counted(network.ties, network.directed ? "arc" : "tie"), input.files.counts.isolates,
        network.density, network.directed ? "directed" : "undirected");
}

void tell_notes(const StudyInput& input, const Screen& out) {
    const std::string& file = input.model.network.file;
    print(out.stream, "{}: {}\n", file == "-" ? kStandardInput : file, network_summary(input));
    for (const std::string& note : input.files.notes) {
        print(out.stream, "  {}\n", note);
    }
}

void tell_problems(const Problems& problems, const Screen& out) {
    for (const Problem& problem : problems) {
        print(out.stream, "{}: {}\n", painted(out, Colour::red, "error"), problem_text(problem));
    }
}

std::optional<ResultsFolder> open_results(const StudyInput& input, FolderOptions options,
                                          const std::string& name, bool quiet, const Screen& out) {
    if (!input.ok()) {
        tell_problems(input.problems, out);
        return std::nullopt;
    }
    if (!quiet) {
        tell_notes(input, out);
    }
    options.inputs = files_of(input.model);
    ResultsFolder folder(options, name);
    if (!folder.mistake().empty()) {
        print(stderr, "ovri: {}\n", folder.mistake());
        return std::nullopt;
    }
    return folder;
}

std::uint32_t settle_seed(StudyInput& input) {
    std::optional<std::uint32_t>& seed = input.files.study.settings.run.seed;
    if (!seed) {
        seed = static_cast<std::uint32_t>(std::random_device{}());
    }
    return *seed;
}

ModelFile settled_model(const StudyInput& input) {
    ModelFile model = input.model;
    model.settings = input.files.study.settings;
    model.settings.estimation.precision = wanted_precision(input.files.study);
    model.network.options.format = input.files.format;
    model.network.options.directed = input.files.study.network.directed;
    settle_types(input.files.study, model);
    return model;
}

void write_model(ModelFile settled, const StudyInput& input, ResultsFolder& folder) {
    if (settled.network.file == "-") {
        constexpr const char* kNetwork = "network.txt";
        folder.write(kNetwork, input.files.standard_input);
        settled.network.file = folder.path(kNetwork);
    }
    folder.write("model.toml", model_text(settled, folder.directory()));
}

ResultNetwork result_network(const StudyInput& input) {
    const StudyNetwork& network = input.files.study.network;
    const double dyads = dyads_in(network);
    const auto ties = static_cast<int>(network.ties.size());
    return {input.model.network.file, network.directed, static_cast<int>(network.actors.size()),
            ties, dyads > 0.0 ? ties / dyads : kNoNumber};
}
