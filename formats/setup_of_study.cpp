#include <algorithm>
#include <array>
#include <cmath>

#include "formats/host_actors.h"
#include "formats/host_setup.h"
#include "formats/host_text.h"

namespace {

struct Exporter {
    const ModelFile& model;
    const Study& study;
    const StudySelection& resolved;
    std::string stem;
    HostRun host;
    EffectSelection selection;
    RunSettings settings = {};
    HostFiles result = {};
};

std::string add_file(Exporter& exporter, const char* suffix, std::string text) {
    exporter.result.files.push_back({exporter.stem + suffix, std::move(text)});
    return exporter.result.files.back().path;
}

void add_problem(Exporter& exporter, std::string field, std::string found, std::string expected,
                 std::string mend) {
    exporter.result.problems.push_back({.file = exporter.model.path,
                                        .field = std::move(field),
                                        .found = std::move(found),
                                        .expected = std::move(expected),
                                        .mend = std::move(mend)});
}

std::string cells_text(std::size_t actors, bool directed, const std::vector<ActorTie>& ties) {
    // "0 0 ... 0\n" a row.
    const std::size_t row = 2 * actors;
    std::string text;
    for (std::size_t i = 0; i < actors; ++i) {
        for (std::size_t j = 0; j < actors; ++j) {
            text += j + 1 < actors ? "0 " : "0\n";
        }
    }
    for (const ActorTie& tie : ties) {
        const auto from = static_cast<std::size_t>(tie.from);
        const auto to = static_cast<std::size_t>(tie.to);
        text[from * row + 2 * to] = '1';
        if (!directed) {
            text[to * row + 2 * from] = '1';
        }
    }
    return text;
}

void add_network(Exporter& exporter) {
    const StudyNetwork& network = exporter.study.network;
    const std::size_t actors = network.actors.size();
    RunSettings& settings = exporter.settings;
    settings.actor_count = static_cast<int>(actors);
    if (exporter.host.mode != RunMode::simulation) {
        settings.network_path =
            add_file(exporter, "_network.txt", cells_text(actors, network.directed, network.ties));
    }
    const double dyads = static_cast<double>(actors) * (static_cast<double>(actors) - 1.0) /
                         (network.directed ? 1.0 : 2.0);
    settings.density = static_cast<float>(
        exporter.host.density.value_or(static_cast<double>(network.ties.size()) / dyads));
    if (exporter.study.dyads.restricted) {
        settings.free_dyads_flag = 1;
        settings.free_dyads_path =
            add_file(exporter, "_free_dyads.txt",
                     cells_text(actors, network.directed, exporter.study.dyads.free));
    }
    if (exporter.study.dyads.max_degree) {
        settings.max_degree_flag = 1;
        settings.max_degree = *exporter.study.dyads.max_degree;
    }
    exporter.result.files.push_back(
        {host_actors_path(exporter.stem + ".setup"), host_actors_text(network.actors)});
}

// A name as the first line of an attribute file can hold it.
std::string host_name(std::string name) {
    for (char& each : name) {
        each = each == ',' || each == '\n' || each == '\r' ? '_' : each;
    }
    return name;
}

AttributeGroup own_group(AttributeType type) {
    switch (type) {
        case AttributeType::binary:
            return AttributeGroup::binary;
        case AttributeType::continuous:
            return AttributeGroup::continuous;
        case AttributeType::categorical:
            break;
    }
    return AttributeGroup::categorical;
}

// The attributes of a group: those of its type, in the order of the study, and the binary ones that
// effects of the group make use of.
std::vector<const StudyAttribute*> attributes_of(const Exporter& exporter, AttributeGroup group) {
    std::vector<const StudyAttribute*> attributes;
    for (const StudyAttribute& each : exporter.study.attributes) {
        // A missing value of a coded attribute was told of; nothing makes use of it.
        if (own_group(each.type) == group) {
            attributes.push_back(&each);
        }
    }
    for (const std::string& name : attribute_names(exporter.resolved.selection, group)) {
        const auto known = [&](const StudyAttribute* each) { return each->name == name; };
        if (std::none_of(attributes.begin(), attributes.end(), known)) {
            attributes.push_back(find_attribute(exporter.study, name));
        }
    }
    return attributes;
}

std::string attribute_text(const std::vector<const StudyAttribute*>& attributes,
                           std::size_t actors) {
    std::string text;
    for (const StudyAttribute* each : attributes) {
        text += (text.empty() ? "" : ",") + host_name(each->name);
    }
    text += "\n";
    for (std::size_t actor = 0; actor < actors; ++actor) {
        for (std::size_t k = 0; k < attributes.size(); ++k) {
            text += (k == 0 ? "" : "\t") +
                    number_text(decimal_of(static_cast<float>(attributes[k]->values[actor])));
        }
        text += "\n";
    }
    return text;
}

std::string covariates_text(const Study& study) {
    std::string text;
    for (const StudyCovariate& each : study.covariates) {
        text += host_name(each.name) + "\n";
        for (int i = 0; i < each.values.rows; ++i) {
            for (int j = 0; j < each.values.columns; ++j) {
                text += (j == 0 ? "" : " ") + number_text(decimal_of(each.values[i][j]));
            }
            text += "\n";
        }
    }
    return text;
}

// The group's block with all its attributes, and the choices of the model among them.
void fill_group(Exporter& exporter, AttributeGroup group, const std::vector<std::string>& names,
                std::string path) {
    AttributeSelection& to = group_of(exporter.selection, group);
    const AttributeSelection& from = group_of(exporter.resolved.selection, group);
    const std::vector<std::string>& used = attribute_names(exporter.resolved.selection, group);
    to = {};
    to.choices.resize(from.choices.size());
    to.flag = names.empty() ? 0 : 1;
    to.attributes = static_cast<int>(names.size());
    to.path = std::move(path);
    selection_resize_group(exporter.selection, group, to.attributes);
    for (std::size_t row = 0; row < from.choices.size(); ++row) {
        for (std::size_t k = 0; k < names.size(); ++k) {
            const auto place = std::find(used.begin(), used.end(), names[k]);
            if (place != used.end()) {
                to.choices[row][k] =
                    from.choices[row][static_cast<std::size_t>(place - used.begin())];
            }
        }
    }
}

void add_attributes(Exporter& exporter) {
    struct Block {
        AttributeGroup group;
        const char* suffix;
    };
    constexpr std::array<Block, 3> kBlocks = {{{AttributeGroup::binary, "_binary.txt"},
                                               {AttributeGroup::continuous, "_continuous.txt"},
                                               {AttributeGroup::categorical, "_categorical.txt"}}};
    for (const Block& block : kBlocks) {
        const auto attributes = attributes_of(exporter, block.group);
        std::vector<std::string> names;
        names.reserve(attributes.size());
        for (const StudyAttribute* each : attributes) {
            names.push_back(each->name);
        }
        fill_group(exporter, block.group, names,
                   names.empty() ? ""
                                 : add_file(exporter, block.suffix,
                                            attribute_text(attributes,
                                                           exporter.study.network.actors.size())));
        names_of(exporter.selection.table, block.group) = names;
    }
    std::vector<std::string> names;
    for (const StudyCovariate& each : exporter.study.covariates) {
        names.push_back(each.name);
    }
    fill_group(exporter, AttributeGroup::covariate, names,
               names.empty()
                   ? ""
                   : add_file(exporter, "_covariates.txt", covariates_text(exporter.study)));
    names_of(exporter.selection.table, AttributeGroup::covariate) = names;
}

// Takes a number out of the map; false when the row has none.
bool take_number(std::map<std::string, double>& numbers, const std::string& row, double& value) {
    const auto place = numbers.find(row);
    if (place == numbers.end()) {
        return false;
    }
    value = place->second;
    numbers.erase(place);
    return true;
}

// Values and lambdas of the rows that are off.
void fill_rows(Exporter& exporter) {
    EffectSelection& selection = exporter.selection;
    for (const int id : selection.catalogue->setup_order) {
        StructuralChoice& choice = selection.structural[static_cast<std::size_t>(id)];
        const StructuralEffect& effect = selection.catalogue->effects[static_cast<std::size_t>(id)];
        if (choice.position >= 0) {
            continue;
        }
        take_number(exporter.host.values, effect.row, choice.value);
        double lambda = customary_lambda(*selection.catalogue, id);
        take_number(exporter.host.lambdas, effect.row, lambda);
        choice.lambda = effect.traits.alternating ? static_cast<float>(lambda) : choice.lambda;
    }
    for (const AttributeGroup group : kAllGroups) {
        AttributeSelection& chosen = group_of(selection, group);
        for (std::size_t row = 0; row < chosen.choices.size(); ++row) {
            for (std::size_t k = 0; k < chosen.choices[row].size(); ++k) {
                AttributeChoice& choice = chosen.choices[row][k];
                if (choice.flag != 1) {
                    take_number(
                        exporter.host.values,
                        row_label(selection, group, static_cast<int>(row), static_cast<int>(k)),
                        choice.value);
                }
            }
        }
    }
    for (const auto* numbers : {&exporter.host.values, &exporter.host.lambdas}) {
        for (const auto& [row, value] : *numbers) {
            add_problem(exporter, "[host]", "a number of the row `" + row + "`",
                        "a row that is off and has one",
                        "delete it; numbers of effects of the model stand under `start`");
        }
    }
}

void fill_sampling(Exporter& exporter, const StudySampling& sampling) {
    constexpr double kMultiplication = 30.0;
    constexpr double kEnoughProposals = 10000.0;
    constexpr double kBurnInIntervals = 10.0;
    const StudyNetwork& network = exporter.study.network;
    const auto n = static_cast<double>(network.actors.size());
    const double dyads = dyads_in(network);
    const double density = static_cast<double>(network.ties.size()) / dyads;
    const double chosen = std::ceil(std::max({kMultiplication * density * (1.0 - density) * n * n,
                                              std::min(dyads, kEnoughProposals), 1.0}));
    const double interval = sampling.interval > 0 ? static_cast<double>(sampling.interval) : chosen;
    RunSettings& settings = exporter.settings;
    settings.sample_count = sampling.samples;
    settings.iterations = exporter.host.iterations.value_or(interval * sampling.samples);
    settings.burn_in = exporter.host.burn_in.value_or(
        sampling.burn_in > 0 ? static_cast<double>(sampling.burn_in) : kBurnInIntervals * interval);
}

void fill_settings(Exporter& exporter) {
    const StudySettings& from = exporter.study.settings;
    const HostRun& host = exporter.host;
    RunSettings& to = exporter.settings;
    to.network_name = host.name.empty() ? name_stem(exporter.stem) : host.name;
    to.output_directory = host.output.empty() ? "." : host.output;
    to.proposal_kind = host.proposal_kind;
    to.run_mode = static_cast<int>(host.mode);
    to.network_kind = static_cast<int>(exporter.study.network.directed ? NetworkKind::directed
                                                                       : NetworkKind::undirected);
    to.covariance_path = host.covariance;
    to.switches = host.outputs;
    to.gof_after_estimation = host.fit_after ? 1 : 0;
    to.estimation.sub_phases = from.estimation.subphases;
    to.estimation.a_value = static_cast<float>(from.estimation.gain);
    to.estimation.multiplication_factor = from.estimation.multiplication;
    to.estimation.phase3_steps = from.estimation.samples;
    to.estimation.estimation_runs = from.estimation.attempts;
    fill_sampling(exporter, host.mode == RunMode::simulation ? from.simulation : from.gof);
}

// What the study says and no setup file can.
void check_study(Exporter& exporter) {
    const bool estimation = exporter.host.mode == RunMode::estimation;
    for (const StudyEffect& effect : exporter.study.model.effects) {
        const std::string field = "effect `" + effect_text(effect.expression) + "`";
        if (estimation && effect.fixed) {
            add_problem(exporter, field, "a parameter that is held",
                        "parameters that are all estimated: a setup file holds none",
                        "delete it from `fixed`, or take the effect out");
        }
        if (estimation && effect.start == 0.0 && effect.expression.name == "edge") {
            exporter.result.notes.emplace_back(
                "a setup file's run starts `edge` at the observed density where its value is 0");
        }
    }
    if (exporter.host.mode == RunMode::bayesian_fit && exporter.host.covariance.empty()) {
        add_problem(exporter, "[host]", "no `covariance`",
                    "the covariance matrix that an estimation of the model wrote",
                    "write covariance = \"results/covariance_NAME.txt\" under [host]");
    }
    if (estimation && exporter.study.settings.estimation.bootstrap > 0) {
        exporter.result.notes.emplace_back("a setup file's run has no bootstrap");
    }
    const EstimationMethod method = exporter.study.settings.estimation.method;
    if (estimation && (method == EstimationMethod::mple || method == EstimationMethod::mcmle)) {
        exporter.result.notes.push_back(
            std::string("a setup file's run estimates by stochastic approximation, not by ") +
            estimation_method_name(method));
    }
}

}  // namespace

HostFiles setup_of_study(const ModelFile& model, const Study& study, const StudySelection& resolved,
                         const std::string& path) {
    Exporter exporter{model,
                      study,
                      resolved,
                      path_stem(path),
                      model.host.value_or(HostRun{}),
                      resolved.selection};
    check_study(exporter);
    add_network(exporter);
    add_attributes(exporter);
    fill_rows(exporter);
    fill_settings(exporter);
    if (exporter.result.ok()) {
        exporter.result.files.push_back({path, setup_text(exporter.settings, exporter.selection)});
    }
    return std::move(exporter.result);
}
