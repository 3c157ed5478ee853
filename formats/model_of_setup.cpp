#include <algorithm>
#include <array>
#include <cmath>

#include "effects/attribute_table.h"
#include "formats/csv.h"
#include "formats/host_actors.h"
#include "formats/host_setup.h"
#include "formats/host_text.h"
#include "formats/model_writer.h"
#include "formats/network_writer.h"
#include "network/network_verbs.h"
#include "study/names.h"
#include "study/study_chain.h"

namespace {

struct Importer {
    const SetupFile& setup;
    const std::string& setup_path;
    std::string stem;
    EffectSelection selection;  // with its data
    std::vector<std::string> actors = {};
    ModelFile model = {};
    HostFiles result = {};

    const RunSettings& settings() const { return setup.settings; }
    bool directed() const { return selection.catalogue->kind == NetworkKind::directed; }
    bool is(RunMode mode) const { return settings().run_mode == static_cast<int>(mode); }
};

void add_problem(Importer& importer, std::string field, std::string found, std::string expected,
                 std::string mend) {
    importer.result.problems.push_back({.file = importer.setup_path,
                                        .field = std::move(field),
                                        .found = std::move(found),
                                        .expected = std::move(expected),
                                        .mend = std::move(mend)});
}

std::string add_file(Importer& importer, const std::string& suffix, std::string text) {
    importer.result.files.push_back({importer.stem + suffix, std::move(text)});
    return importer.result.files.back().path;
}

void read_data(Importer& importer) {
    EffectSelection& selection = importer.selection;
    const int actors = importer.settings().actor_count;
    selection.actors = actors;
    selection.table.actors = actors;
    const auto read = [&](AttributeGroup group, auto reader) {
        const AttributeSelection& chosen = group_of(selection, group);
        if (chosen.flag == 1 && chosen.attributes != 0) {
            reader(selection.table, actors, chosen.attributes, chosen.path, nullptr);
        }
    };
    read(AttributeGroup::binary, attribute_read_binary);
    read(AttributeGroup::continuous, attribute_read_continuous);
    read(AttributeGroup::categorical, attribute_read_categorical);
    read(AttributeGroup::covariate, read_covariates);
}

std::string pairs_text(const Importer& importer, const std::vector<ActorTie>& ties) {
    return network_text({importer.actors, importer.directed(), ties}, NetworkFormat::edge_list);
}

template <class Network>
void add_network(Importer& importer) {
    const RunSettings& settings = importer.settings();
    std::vector<ActorTie> ties;
    if (importer.is(RunMode::simulation)) {
        importer.result.notes.emplace_back(
            "a simulation's setup file names no network: that of the model file has no ties");
    } else {
        ties = ties_of(read_network<Network>(settings.network_path, settings.actor_count, 0, 0));
    }
    NetworkSource& source = importer.model.network;
    source.file = add_file(importer, "_network.csv", pairs_text(importer, ties));
    source.options.format = NetworkFormat::edge_list;
    source.options.directed = importer.directed();
    source.options.head = true;
    if (settings.free_dyads_flag == 1) {
        const BitMatrix dyads = read_dyads<Network>(settings.free_dyads_path, settings.actor_count);
        std::vector<ActorTie> free;
        for (int i = 0; i < settings.actor_count; ++i) {
            row_for_each(dyads[i], dyads.words_per_row, [&](int j) {
                if (i != j && (importer.directed() || i < j)) {
                    free.push_back({i, j});
                }
            });
        }
        importer.model.free_dyads =
            add_file(importer, "_free_dyads.csv", pairs_text(importer, free));
    }
    if (settings.max_degree_flag == 1) {
        importer.model.max_degree = settings.max_degree;
    }
}

// One column of the nodes file.
struct NodesColumnText {
    std::string name;
    AttributeType type;
    std::vector<std::string> values;
};

void check_coded(Importer& importer, const std::string& name, const std::vector<int>& values,
                 bool binary) {
    for (std::size_t k = 0; k < values.size(); ++k) {
        const bool missing = static_cast<double>(values[k]) == kMissingValue;
        if (missing || (binary && values[k] != 0 && values[k] != 1)) {
            add_problem(importer, "attribute `" + name + "`, actor `" + std::to_string(k + 1) + "`",
                        missing ? "a missing value (9999)" : std::to_string(values[k]),
                        binary ? "0 or 1" : "a code",
                        "write the value into the attribute's file; a model file has missing "
                        "values of continuous attributes alone");
            return;
        }
    }
}

void add_coded(Importer& importer, AttributeGroup group, const std::vector<CodedAttribute>& from,
               std::vector<NodesColumnText>& columns) {
    const std::vector<std::string>& names = attribute_names(importer.selection, group);
    const bool binary = group == AttributeGroup::binary;
    for (std::size_t k = 0; k < from.size(); ++k) {
        check_coded(importer, names[k], from[k].values, binary);
        NodesColumnText column{
            names[k], binary ? AttributeType::binary : AttributeType::categorical, {}};
        for (const int value : from[k].values) {
            column.values.push_back(std::to_string(value));
        }
        columns.push_back(std::move(column));
    }
}

void add_numbers(Importer& importer, std::vector<NodesColumnText>& columns) {
    const AttributeTable& table = importer.selection.table;
    for (std::size_t k = 0; k < table.continuous.size(); ++k) {
        NodesColumnText column{table.continuous_names[k], AttributeType::continuous, {}};
        for (const float value : table.continuous[k].values) {
            const double number = decimal_of(value);
            column.values.push_back(number == kMissingValue ? "NA" : number_text(number));
        }
        columns.push_back(std::move(column));
    }
}

void check_names(Importer& importer, const std::vector<NodesColumnText>& columns) {
    for (std::size_t k = 0; k < columns.size(); ++k) {
        const bool again = std::any_of(
            columns.begin(), columns.begin() + static_cast<std::ptrdiff_t>(k),
            [&](const NodesColumnText& each) { return names_match(each.name, columns[k].name); });
        if (again || columns[k].name.empty()) {
            add_problem(importer, "attribute `" + columns[k].name + "`",
                        again ? "a second attribute of that name" : "an attribute without a name",
                        "a name for each attribute, whatever its type",
                        "change it in the attribute's file");
        }
    }
}

void add_nodes(Importer& importer) {
    const AttributeTable& table = importer.selection.table;
    std::vector<NodesColumnText> columns;
    add_coded(importer, AttributeGroup::binary, table.binary, columns);
    add_numbers(importer, columns);
    add_coded(importer, AttributeGroup::categorical, table.categorical, columns);
    check_names(importer, columns);
    std::string text = "actor";
    for (const NodesColumnText& column : columns) {
        text += "," + csv_field(column.name);
        const bool missing =
            std::find(column.values.begin(), column.values.end(), "NA") != column.values.end();
        importer.model.attributes.push_back({column.name, column.type, missing});
    }
    for (int actor = 0; actor < importer.settings().actor_count; ++actor) {
        text += "\n" + csv_field(importer.actors[static_cast<std::size_t>(actor)]);
        for (const NodesColumnText& column : columns) {
            text += "," + column.values[static_cast<std::size_t>(actor)];
        }
    }
    importer.model.network.nodes = add_file(importer, "_nodes.csv", text + "\n");
}

// A list of the values that are not 0.
std::string covariate_text(const Importer& importer, const FloatTable& values) {
    const bool directed = importer.directed();
    std::string text = "from,to,value\n";
    for (int i = 0; i < values.rows; ++i) {
        for (int j = directed ? 0 : i + 1; j < values.columns; ++j) {
            if (i != j && values[i][j] != 0.0F) {
                text += csv_field(importer.actors[static_cast<std::size_t>(i)]) + "," +
                        csv_field(importer.actors[static_cast<std::size_t>(j)]) + "," +
                        number_text(decimal_of(values[i][j])) + "\n";
            }
        }
    }
    return text;
}

bool is_symmetric(const FloatTable& values) {
    for (int i = 0; i < values.rows; ++i) {
        for (int j = i + 1; j < values.columns; ++j) {
            if (values[i][j] != values[j][i]) {
                return false;
            }
        }
    }
    return true;
}

void add_covariates(Importer& importer) {
    const AttributeTable& table = importer.selection.table;
    for (std::size_t k = 0; k < table.covariates.size(); ++k) {
        const std::string& name = table.covariate_names[k];
        const bool directed = importer.directed();
        if (!directed && !is_symmetric(table.covariates[k])) {
            add_problem(importer, "covariate `" + name + "`", "a matrix that is not symmetric",
                        "a symmetric one, for the network is undirected",
                        "give both cells of a dyad the same value");
        }
        const std::string file = add_file(importer, "_covariate_" + std::to_string(k + 1) + ".csv",
                                          covariate_text(importer, table.covariates[k]));
        importer.model.covariates.push_back({name, file, 0.0});
    }
}

// Whether a value stands in the model file: an estimation's 0.0 is where effects start anyway.
std::optional<double> start_of(const Importer& importer, double value) {
    return importer.is(RunMode::estimation) && value == 0.0 ? std::nullopt : std::optional(value);
}

void add_structural(Importer& importer, HostRun& host) {
    const Catalogue& catalogue = *importer.selection.catalogue;
    for (const int id : catalogue.setup_order) {
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        const StructuralChoice& choice =
            importer.selection.structural[static_cast<std::size_t>(id)];
        const double lambda = decimal_of(choice.lambda);
        if (choice.position < 0) {
            if (choice.value != 0.0) {
                host.values[effect.row] = choice.value;
            }
            if (effect.traits.alternating && importer.selection.structural_flag == 1 &&
                lambda != customary_lambda(catalogue, id)) {
                host.lambdas[effect.row] = lambda;
            }
            continue;
        }
        EffectExpression expression{effect.facts.name, {}, {}};
        if (effect.traits.alternating) {
            expression.lambda = lambda;
        }
        const int first = find_effect(catalogue, effect.facts.name);
        if (first != id &&
            importer.selection.structural[static_cast<std::size_t>(first)].position < 0) {
            add_problem(importer, std::string(effect.row) + " flag", "the second row alone",
                        "the first row of that effect",
                        "move it to the row " +
                            std::string(catalogue.effects[static_cast<std::size_t>(first)].row));
        }
        if (effect.traits.alternating && !(lambda >= 1.0)) {
            add_problem(importer, std::string(effect.row) + " lambda", number_text(lambda),
                        "a lambda from 1", "write a lambda of 1 or more, or turn the row off");
        }
        importer.model.model.effects.push_back({expression, start_of(importer, choice.value), {}});
    }
}

void add_attribute_effects(Importer& importer, HostRun& host) {
    const EffectSelection& selection = importer.selection;
    for (const AttributeGroup group : kAllGroups) {
        const AttributeSelection& chosen = group_of(selection, group);
        const auto& effects = group_catalogue(*selection.catalogue, group).effects;
        const std::vector<std::string>& names = attribute_names(selection, group);
        for (std::size_t row = 0; row < chosen.choices.size(); ++row) {
            for (std::size_t k = 0; k < names.size() && k < chosen.choices[row].size(); ++k) {
                const AttributeChoice& choice = chosen.choices[row][k];
                if (choice.flag == 1) {
                    importer.model.model.effects.push_back({{effects[row].facts.name, {}, names[k]},
                                                            start_of(importer, choice.value),
                                                            {}});
                } else if (choice.value != 0.0) {
                    host.values[row_label(selection, group, static_cast<int>(row),
                                          static_cast<int>(k))] = choice.value;
                }
            }
        }
    }
}

bool is_whole(double value) { return value >= 0.0 && value < 1e15 && std::floor(value) == value; }

void take_sampling(const Importer& importer, StudySampling& sampling, HostRun& host) {
    const RunSettings& settings = importer.settings();
    sampling.samples = settings.sample_count;
    if (is_whole(settings.burn_in) && settings.burn_in > 0.0) {
        sampling.burn_in = static_cast<std::int64_t>(settings.burn_in);
    } else {
        host.burn_in = settings.burn_in;
    }
    const double interval =
        settings.sample_count > 0 ? std::floor(settings.iterations / settings.sample_count) : 0.0;
    sampling.interval = is_whole(interval) ? static_cast<std::int64_t>(interval) : 0;
    if (static_cast<double>(sampling.interval) * settings.sample_count != settings.iterations &&
        !importer.is(RunMode::bayesian_fit)) {
        host.iterations = settings.iterations;
    }
}

void take_settings(Importer& importer, HostRun& host) {
    const RunSettings& from = importer.settings();
    StudySettings& to = importer.model.settings;
    host.mode = static_cast<RunMode>(from.run_mode);
    host.name = from.network_name;
    host.output = from.output_directory;
    host.proposal_kind = from.proposal_kind;
    host.outputs = from.switches;
    if (importer.is(RunMode::estimation)) {
        to.estimation.method = EstimationMethod::stochastic_approximation;
        to.estimation.attempts = from.estimation.estimation_runs;
        to.estimation.subphases = from.estimation.sub_phases;
        to.estimation.gain = decimal_of(from.estimation.a_value);
        to.estimation.multiplication = from.estimation.multiplication_factor;
        to.estimation.samples = from.estimation.phase3_steps;
        host.fit_after = from.gof_after_estimation == 1;
        return;
    }
    const bool simulation = importer.is(RunMode::simulation);
    take_sampling(importer, simulation ? to.simulation : to.gof, host);
    if (simulation) {
        host.density = decimal_of(from.density);
    }
    if (importer.is(RunMode::bayesian_fit)) {
        host.covariance = from.covariance_path;
    }
}

std::string directory_of(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

}  // namespace

HostFiles model_of_setup(const SetupFile& setup, const std::string& setup_path,
                         const std::string& path) {
    Importer importer{setup, setup_path, path_stem(path), setup.selection};
    read_data(importer);
    importer.actors =
        host_actors(setup_path, importer.settings().actor_count, importer.result.notes);
    if (importer.directed()) {
        add_network<Digraph>(importer);
    } else {
        add_network<Graph>(importer);
    }
    add_nodes(importer);
    add_covariates(importer);
    HostRun host;
    add_structural(importer, host);
    add_attribute_effects(importer, host);
    take_settings(importer, host);
    importer.model.host = std::move(host);
    std::string text = model_text(importer.model, directory_of(path));
    // What a model file cannot say shows when it is read.
    const ModelFile again = read_model_file(text_file_of(path, text));
    importer.result.problems.insert(importer.result.problems.end(), again.problems.begin(),
                                    again.problems.end());
    importer.result.files.push_back({path, std::move(text)});
    return std::move(importer.result);
}
