#include "formats/study_files.h"

#include <algorithm>

#include "formats/covariates.h"
#include "study/names.h"

namespace {

void append(const Problems& problems, StudyFiles& files) {
    files.problems.insert(files.problems.end(), problems.begin(), problems.end());
}

void append(const std::string& about, const std::vector<std::string>& notes, StudyFiles& files) {
    for (const std::string& note : notes) {
        files.notes.push_back(about);
        files.notes.back().append(": ").append(note);
    }
}

// A file that cannot be opened is a mistake of the line that names it.
void place_problems(const ModelFile& model, const std::string& key, const std::string& path,
                    Problems& problems) {
    const FilePlace at = place_of(model, key);
    for (Problem& problem : problems) {
        if (at.line > 0 && problem.file == path && problem.line == 0 &&
            problem.found == "no such file") {
            problem.found = "no file `" + path + "`";
            problem.file = model.path;
            problem.line = at.line;
            problem.column = at.column;
        }
    }
}

bool is_used(const ModelFile& model, const std::string& attribute) {
    return std::any_of(model.model.effects.begin(), model.model.effects.end(),
                       [&](const StudyEffect& effect) {
                           return names_match(effect.expression.argument, attribute);
                       });
}

void take_columns(const ModelFile& model, NodesFile& nodes, StudyFiles& files) {
    for (NodesColumn& column : nodes.columns) {
        const std::string& name = column.attribute.name;
        if (column.problems.empty()) {
            files.notes.push_back("attribute " + name + ": " + column.note);
            files.study.attributes.push_back(std::move(column.attribute));
        } else if (is_used(model, name)) {
            append(column.problems, files);
        } else {
            files.notes.push_back("attribute " + name +
                                  " was left out: " + problem_text(column.problems[0]));
        }
    }
}

// A nodes file whose first line is an actor's row has lost its head line.
void check_head(const ModelFile& model, const NodesFile& nodes, const StudyNetwork& network,
                StudyFiles& files) {
    if (std::find(network.actors.begin(), network.actors.end(), nodes.actor_column) ==
            network.actors.end() ||
        !files.problems.empty()) {
        return;
    }
    files.problems.push_back({.file = model.network.nodes,
                              .line = 1,
                              .found = "the actor `" + nodes.actor_column + "`",
                              .expected = "a head line: a name for each column",
                              .mend = "write a line such as `name,age,sex` above the first actor"});
}

// The attributes that stand in the network's own file. Those of a nodes file go before them.
void take_own_columns(const ModelFile& model, const NetworkFile& network, bool has_nodes,
                      StudyFiles& files) {
    if (network.columns.empty()) {
        return;
    }
    if (has_nodes) {
        files.notes.emplace_back(
            "network: the attributes in its file were not read, for there is a nodes file");
        return;
    }
    NodesFile own = read_columns(model.network.file, files.study.network.actors, network.columns,
                                 model.attributes);
    append(own.problems, files);
    take_columns(model, own, files);
}

void miss_nodes(const ModelFile& model, StudyFiles& files) {
    const FilePlace at = place_of(model, "attributes." + model.attributes[0].name);
    files.problems.push_back({.file = model.path,
                              .line = at.line,
                              .column = at.column,
                              .field = "[attributes]",
                              .found = "attributes without a nodes file",
                              .expected = "`nodes = \"FILE\"` under [network]",
                              .mend = "name the nodes file, or delete the section"});
}

// Standard input can be read once.
void check_standard_input(const ModelFile& model, StudyFiles& files) {
    std::vector<std::string> paths = {model.path == kStandardInput ? "-" : "", model.network.file,
                                      model.network.nodes, model.free_dyads};
    for (const CovariateSource& each : model.covariates) {
        paths.push_back(each.file);
    }
    if (std::count(paths.begin(), paths.end(), "-") > 1) {
        files.problems.push_back({.file = model.path,
                                  .field = "`-`",
                                  .found = "two files that come from standard input",
                                  .expected = "one",
                                  .mend = "name the others"});
    }
}

void load_network(const ModelFile& model, StudyFiles& files) {
    NodesFile nodes;
    const bool has_nodes = !model.network.nodes.empty();
    if (has_nodes) {
        nodes = read_nodes(model.network.nodes, model.attributes);
        place_problems(model, "network.nodes", model.network.nodes, nodes.problems);
        append(nodes.problems, files);
    }
    if (!nodes.ok()) {
        return;
    }
    const TextFile file = read_text_file(model.network.file);
    files.standard_input = model.network.file == "-" ? file.text : "";
    NetworkFile network =
        read_network(file, model.network.options, has_nodes ? &nodes.actors : nullptr);
    if (has_nodes && !network.ok()) {
        // The actor that the nodes file lacks may stand where its head line should be.
        const NetworkFile alone = read_network(file, model.network.options, nullptr);
        check_head(model, nodes, alone.network, files);
    }
    place_problems(model, "network.file", model.network.file, network.problems);
    append(network.problems, files);
    append("network", network.notes, files);
    files.format = network.format;
    files.counts = network.counts;
    files.study.network = std::move(network.network);
    if (has_nodes) {
        take_columns(model, nodes, files);
    } else if (!model.attributes.empty() && network.columns.empty() && files.ok()) {
        miss_nodes(model, files);
    }
    if (files.ok()) {
        take_own_columns(model, network, has_nodes, files);
    }
}

void load_covariates(const ModelFile& model, StudyFiles& files) {
    for (const CovariateSource& source : model.covariates) {
        CovariateFile covariate =
            read_covariate(source.file, source.name, files.study.network, source.missing);
        place_problems(model, "covariates." + source.name, source.file, covariate.problems);
        append(covariate.problems, files);
        append("covariate " + source.name, covariate.notes, files);
        files.study.covariates.push_back(std::move(covariate.covariate));
    }
}

// A chain only adds ties below the bound: one that the network is beyond would never be met.
void check_degrees(const ModelFile& model, StudyFiles& files) {
    const StudyNetwork& network = files.study.network;
    std::vector<int> degrees(network.actors.size(), 0);
    for (const ActorTie& tie : network.ties) {
        ++degrees[static_cast<std::size_t>(tie.from)];
        degrees[static_cast<std::size_t>(tie.to)] += network.directed ? 0 : 1;
    }
    const auto most = std::max_element(degrees.begin(), degrees.end());
    if (most == degrees.end() || *most <= *model.max_degree) {
        return;
    }
    const FilePlace at = place_of(model, "dyads.max_degree");
    const std::string ties = network.directed ? " out-going ties" : " ties";
    files.problems.push_back(
        {.file = model.path,
         .line = at.line,
         .column = at.column,
         .field = "`max_degree` in [dyads]",
         .found = std::to_string(*model.max_degree) + ", and the actor `" +
                  network.actors[static_cast<std::size_t>(most - degrees.begin())] + "` has " +
                  std::to_string(*most) + ties,
         .expected = "a bound that the network keeps",
         .mend = "write max_degree = " + std::to_string(*most) + " or more, or delete the line"});
}

void load_dyads(const ModelFile& model, StudyFiles& files) {
    files.study.dyads.max_degree = model.max_degree;
    if (model.max_degree) {
        check_degrees(model, files);
    }
    if (model.free_dyads.empty()) {
        return;
    }
    Problems problems;
    files.study.dyads.restricted = true;
    files.study.dyads.free = read_pairs(model.free_dyads, files.study.network, problems);
    place_problems(model, "dyads.free", model.free_dyads, problems);
    append(problems, files);
    files.notes.push_back("free dyads: " + std::to_string(files.study.dyads.free.size()));
}

}  // namespace

StudyFiles load_study(const ModelFile& model) {
    StudyFiles files;
    append(model.problems, files);
    check_standard_input(model, files);
    if (!files.ok()) {
        return files;
    }
    files.study.model = model.model;
    files.study.settings = model.settings;
    load_network(model, files);
    if (files.ok()) {
        load_covariates(model, files);
        load_dyads(model, files);
    }
    return files;
}

Problems placed_problems(const ModelFile& model, Problems problems,
                         const std::vector<int>& effects) {
    for (std::size_t k = 0; k < problems.size(); ++k) {
        const auto effect = static_cast<std::size_t>(effects[k]);
        const FilePlace at =
            effect < model.effect_places.size() ? model.effect_places[effect] : FilePlace{};
        problems[k].file = at.line > 0 ? model.path : kEffectsOption;
        problems[k].line = at.line;
        problems[k].column = at.column;
    }
    return problems;
}
