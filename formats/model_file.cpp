#include "formats/model_file.h"

#include <algorithm>
#include <cstdint>

#include "formats/host_section.h"
#include "formats/settings_section.h"
#include "formats/toml_section.h"
#include "study/names.h"

namespace {

using Keys = std::vector<std::string>;

const Keys kSections = {"network",    "attributes", "covariates", "model", "dyads",
                        "estimation", "gof",        "simulation", "run",   "host"};

TomlFile file_of(ModelFile& model) { return {model.path, model.places, model.problems}; }

void read_format(SectionReader& reader, const Keys& known, std::optional<NetworkFormat>& target) {
    std::string format;
    reader.text("format", format);
    target = network_format_of(format);
    if (!format.empty() && !target) {
        const std::string nearest = nearest_name(format, known);
        reader.wrong_value("format", *reader.find("format"), "one of " + listed_names(known),
                           nearest.empty() ? "" : "a similar one is `" + nearest + "`");
    }
}

void read_network_section(SectionReader reader, ModelFile& model) {
    reader.check_keys({"file", "format", "directed", "nodes", "threshold", "head"});
    reader.path("file", model.network.file);
    reader.path("nodes", model.network.nodes);
    reader.flag("directed", model.network.options.directed);
    reader.flag("head", model.network.options.head);
    model.network.options.threshold = reader.number("threshold");
    read_format(reader, readable_formats(), model.network.options.format);
}

void set_type(SectionReader& reader, const std::string& key, const toml::node& node,
              ColumnOption& option) {
    const std::string type = node.value_or(std::string());
    for (const AttributeType each :
         {AttributeType::binary, AttributeType::continuous, AttributeType::categorical}) {
        if (type == attribute_type_name(each)) {
            option.type = each;
        }
    }
    if (!option.type) {
        const std::string nearest = nearest_name(type, {"binary", "continuous", "categorical"});
        reader.wrong_value(key, node, "`binary`, `continuous` or `categorical`",
                           nearest.empty() ? "" : "a similar one is `" + nearest + "`");
    }
}

void read_column_table(const toml::table& table, ModelFile& model, ColumnOption& option) {
    SectionReader reader(table, "attributes." + option.name, file_of(model));
    reader.check_keys({"type", "missing"});
    if (const toml::node* type = reader.find("type")) {
        set_type(reader, "type", *type, option);
    }
    std::string missing;
    reader.text("missing", missing);
    option.keep_missing = missing == "keep";
    if (!missing.empty() && !option.keep_missing) {
        reader.wrong_value("missing", *reader.find("missing"), "`keep`");
    }
}

void read_attributes_section(SectionReader reader, ModelFile& model) {
    for (const auto& [key, node] : reader.table()) {
        ColumnOption option;
        option.name = key.str();
        const FilePlace place = toml_place(key.source());
        model.places["attributes." + option.name] = place;
        option.file = model.path;
        option.line = place.line;
        option.column = place.column;
        if (const toml::table* table = node.as_table()) {
            read_column_table(*table, model, option);
        } else {
            set_type(reader, option.name, node, option);
        }
        model.attributes.push_back(std::move(option));
    }
}

void read_covariates_section(SectionReader reader, ModelFile& model) {
    for (const auto& [key, node] : reader.table()) {
        CovariateSource source;
        source.name = key.str();
        model.places["covariates." + source.name] = toml_place(key.source());
        if (const toml::table* table = node.as_table()) {
            SectionReader inner(*table, "covariates." + source.name, file_of(model));
            inner.check_keys({"file", "missing"});
            inner.path("file", source.file);
            source.missing = inner.number("missing");
        } else if (const auto file = node.value_exact<std::string>()) {
            source.file = path_beside(model.path, *file);
        }
        if (source.file.empty()) {
            reader.wrong_value(source.name, node, "the path of a file");
        }
        model.covariates.push_back(std::move(source));
    }
}

void read_effects(SectionReader& reader, ModelFile& model) {
    const toml::node* node = reader.find("effects");
    if (node == nullptr) {
        return;
    }
    const char* expected = "a list of effects, such as [\"edge\", \"AT(2)\"]";
    const toml::array* list = node->as_array();
    if (list == nullptr || list->empty()) {
        reader.wrong_value("effects", *node, expected);
        return;
    }
    for (const toml::node& each : *list) {
        if (const auto text = each.value_exact<std::string>()) {
            add_effect(*text, toml_place(each.source()), model);
        } else {
            reader.wrong_value("effects", each, expected, "put the effect into quotation marks");
        }
    }
}

StudyEffect* find_model_effect(ModelFile& model, const std::string& text) {
    const ParsedEffect effect = parse_effect(text);
    for (StudyEffect& each : model.model.effects) {
        if (effect.ok() && effects_match(each.expression, effect.expression)) {
            return &each;
        }
    }
    return nullptr;
}

void miss_effect(const std::string& key, const char* what, FilePlace at, ModelFile& model) {
    std::vector<std::string> names;
    for (const StudyEffect& each : model.model.effects) {
        names.push_back(effect_text(each.expression));
    }
    const std::string nearest = nearest_name(key, names);
    model.problems.push_back(
        {.file = model.path,
         .line = at.line,
         .column = at.column,
         .field = std::string("`") + what + "` in [model]",
         .found = "`" + key + "`, which is not among the effects",
         .expected = names.empty() ? "an effect of the model" : "one of " + listed_names(names),
         .mend = nearest.empty() ? "add it to the effects, or delete it here"
                                 : "a similar one is `" + nearest + "`"});
}

// `start` or `fixed`: values by effect.
void read_values(SectionReader& reader, const char* what,
                 std::optional<double> StudyEffect::*member, ModelFile& model) {
    const toml::node* node = reader.find(what);
    if (node == nullptr) {
        return;
    }
    const toml::table* table = node->as_table();
    if (table == nullptr) {
        reader.wrong_value(what, *node, "values by effect, such as { edge = -2.0 }");
        return;
    }
    SectionReader values(*table, std::string("model.") + what, file_of(model));
    for (const auto& [key, value] : *table) {
        const std::string name(key.str());
        StudyEffect* effect = find_model_effect(model, name);
        if (effect == nullptr) {
            miss_effect(name, what, toml_place(key.source()), model);
        } else {
            effect->*member = values.number(name.c_str());
        }
    }
}

void read_model_section(SectionReader reader, ModelFile& model) {
    reader.check_keys({"effects", "start", "fixed"});
    read_effects(reader, model);
    read_values(reader, "start", &StudyEffect::start, model);
    read_values(reader, "fixed", &StudyEffect::fixed, model);
}

void read_dyads_section(SectionReader reader, ModelFile& model) {
    reader.check_keys({"free", "max_degree"});
    reader.path("free", model.free_dyads);
    if (const auto most = reader.whole("max_degree", {0, kMostActors})) {
        model.max_degree = static_cast<int>(*most);
    }
}

void read_estimation_section(SectionReader reader, ModelFile& model) {
    reader.check_keys(estimation_keys());
    read_estimation_keys(reader, model.settings.estimation);
}

void read_sampling_keys(SectionReader& reader, StudySampling& sampling) {
    constexpr double kMostProposals = 1e15;
    reader.whole("samples", sampling.samples, {1, 100000000});
    reader.whole("burn_in", sampling.burn_in, {0, kMostProposals});
    reader.whole("interval", sampling.interval, {0, kMostProposals});
}

void read_gof_section(SectionReader reader, ModelFile& model) {
    reader.check_keys({"samples", "burn_in", "interval"});
    read_sampling_keys(reader, model.settings.gof);
}

void read_simulation_section(SectionReader reader, ModelFile& model) {
    reader.check_keys({"samples", "burn_in", "interval", "format"});
    read_sampling_keys(reader, model.settings.simulation);
    Keys known = readable_formats();
    known.emplace_back(network_format_name(NetworkFormat::dot));
    read_format(reader, known, model.simulation_format);
}

void read_run_section(SectionReader reader, ModelFile& model) {
    reader.check_keys(run_keys());
    read_run_keys(reader, model.settings.run);
}

void read_section(const std::string& name, const toml::table& table, ModelFile& model) {
    const SectionReader reader(table, name, file_of(model));
    if (name == "network") {
        read_network_section(reader, model);
    } else if (name == "attributes") {
        read_attributes_section(reader, model);
    } else if (name == "covariates") {
        read_covariates_section(reader, model);
    } else if (name == "model") {
        read_model_section(reader, model);
    } else if (name == "dyads") {
        read_dyads_section(reader, model);
    } else if (name == "estimation") {
        read_estimation_section(reader, model);
    } else if (name == "gof") {
        read_gof_section(reader, model);
    } else if (name == "simulation") {
        read_simulation_section(reader, model);
    } else if (name == "host") {
        read_host_section(reader, file_of(model), model.host.emplace());
    } else {
        read_run_section(reader, model);
    }
}

void unknown_section(const std::string& name, const toml::node& node, FilePlace at,
                     ModelFile& model) {
    const std::string nearest = nearest_name(name, kSections);
    model.problems.push_back(
        {.file = model.path,
         .line = at.line,
         .column = at.column,
         .found = std::string(node.is_table() ? "the unknown section `[" : "the key `") + name +
                  (node.is_table() ? "]`" : "` outside a section"),
         .expected = "one of the sections " + listed_names(kSections),
         .mend = nearest.empty() ? "delete it" : "a similar one is `[" + nearest + "]`"});
}

void need_key(ModelFile& model, const char* section, const char* key, bool there,
              const char* mend) {
    if (there || model.places.count(std::string(section) + "." + key) > 0) {
        return;
    }
    model.problems.push_back({.file = model.path,
                              .line = model.places[section].line,
                              .field = std::string("[") + section + "]",
                              .found = std::string("no `") + key + "`",
                              .expected = std::string("`") + key + " = ...`",
                              .mend = mend});
}

void read_document(const toml::table& document, bool with_network, ModelFile& model) {
    for (const auto& [key, node] : document) {
        const std::string name(key.str());
        const toml::table* table = node.as_table();
        model.places[name] = toml_place(key.source());
        const bool known = std::find(kSections.begin(), kSections.end(), name) != kSections.end();
        if (table != nullptr && known) {
            read_section(name, *table, model);
        } else {
            unknown_section(name, node, model.places[name], model);
        }
    }
    need_key(model, "network", "file", !with_network || !model.network.file.empty(),
             "name the network's file: file = \"network.csv\"");
    need_key(model, "model", "effects", !model.model.effects.empty(),
             "list the effects: effects = [\"edge\", \"AT(2)\"]");
}

// The problem of a network that stands where a model was expected.
Problem data_for_model(const std::string& path) {
    return {.file = path,
            .found = "data, such as a network",
            .expected = "a model file (TOML), which names them",
            .mend = "`ovri new " + path +
                    "` writes a model file for a network; or name it by "
                    "--network and the model by --effects"};
}

}  // namespace

ModelFile read_model_file(const std::string& path) { return read_model_file(read_text_file(path)); }

ModelFile read_model_file(const TextFile& file, bool with_network) {
    ModelFile model;
    model.path = file.path;
    model.problems = file.problems;
    if (!file.ok()) {
        return model;
    }
    const toml::parse_result document = toml::parse(std::string_view(file.text));
    if (document.failed()) {
        model.problems.push_back(looks_like_data(file.path, file.text)
                                     ? data_for_model(file.path)
                                     : no_toml(file.path, document));
        return model;
    }
    read_document(document.table(), with_network, model);
    sort_by_place(model.problems);
    return model;
}

void add_effect(std::string_view text, FilePlace at, ModelFile& model) {
    const ParsedEffect effect = parse_effect(text);
    if (!effect.ok()) {
        Problem problem = effect.problems[0];
        problem.file = at.line > 0 ? model.path : kEffectsOption;
        problem.line = at.line;
        // Behind the quotation mark, when it stands in a file.
        problem.column += at.column > 0 ? at.column : 0;
        model.problems.push_back(std::move(problem));
        return;
    }
    model.model.effects.push_back({effect.expression, {}, {}});
    model.effect_places.push_back({at.line, at.column > 0 ? at.column + 1 : 0});
}

void add_effects(std::string_view list, ModelFile& model) {
    for (const EffectText& effect : split_effects(list)) {
        add_effect(effect.text, {}, model);
    }
}

FilePlace place_of(const ModelFile& model, const std::string& key) {
    const auto found = model.places.find(key);
    return found == model.places.end() ? FilePlace{} : found->second;
}
