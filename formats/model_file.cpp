#include "formats/model_file.h"

#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <sstream>

#include "study/names.h"

namespace {

using Keys = std::vector<std::string>;

const Keys kSections = {"network",    "attributes", "covariates", "model", "dyads",
                        "estimation", "gof",        "simulation", "run",   "host"};

FilePlace place(const toml::source_region& region) {
    return {static_cast<int>(region.begin.line), static_cast<int>(region.begin.column)};
}

// A value as it was written, shortened.
std::string shown(const toml::node& node) {
    std::ostringstream text;
    node.visit([&text](const auto& value) { text << value; });
    std::string line = text.str();
    return line.size() > 60 ? line.substr(0, 60) + "..." : line;
}

const char* type_name(const toml::node& node) {
    switch (node.type()) {
        case toml::node_type::table:
            return "a table";
        case toml::node_type::array:
            return "a list";
        case toml::node_type::string:
            return "a text";
        case toml::node_type::integer:
        case toml::node_type::floating_point:
            return "a number";
        case toml::node_type::boolean:
            return "a truth value";
        default:
            return "a date or time";
    }
}

struct Range {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
};

std::string range_text(const Range& range, const char* what) {
    if (std::isinf(range.most)) {
        return std::isinf(range.least) ? std::string(what)
                                       : std::string(what) + " from " + number_text(range.least);
    }
    return std::string(what) + " from " + number_text(range.least) + " to " +
           number_text(range.most);
}

// One section of the file and what its keys hold. A key that is not there leaves its target.
class SectionReader {
  public:
    SectionReader(const toml::table& table, std::string section, ModelFile& model)
        : table_(table), section_(std::move(section)), model_(model) {}

    // Notes the places of the keys and complains of those that are not among `keys`.
    void check_keys(const Keys& keys) {
        for (const auto& [key, node] : table_) {
            const std::string name(key.str());
            model_.places[full_name(name)] = place(key.source());
            if (std::find(keys.begin(), keys.end(), name) == keys.end()) {
                unknown_key(name, keys);
            }
        }
    }

    void text(const char* key, std::string& target) {
        const toml::node* node = find(key);
        if (node == nullptr) {
            return;
        }
        if (const auto value = node->value_exact<std::string>()) {
            target = *value;
        } else {
            wrong_value(key, *node, "a text in quotation marks");
        }
    }

    // A path, which must not be empty.
    void path(const char* key, std::string& target) {
        text(key, target);
        if (target.empty() && find(key) != nullptr && find(key)->is_string()) {
            wrong_value(key, *find(key), "the path of a file");
        }
        target = path_beside(model_.path, target);
    }

    void flag(const char* key, std::optional<bool>& target) {
        const toml::node* node = find(key);
        if (node == nullptr) {
            return;
        }
        target = node->value_exact<bool>();
        if (!target) {
            wrong_value(key, *node, "`true` or `false`");
        }
    }

    std::optional<double> number(const char* key, const Range& range = {}) {
        const toml::node* node = find(key);
        if (node == nullptr) {
            return std::nullopt;
        }
        const auto value = node->is_number() ? node->value<double>() : std::nullopt;
        if (!value || !std::isfinite(*value) || *value < range.least || *value > range.most) {
            wrong_value(key, *node, range_text(range, "a number"));
            return std::nullopt;
        }
        return value;
    }

    std::optional<std::int64_t> whole(const char* key, const Range& range) {
        const toml::node* node = find(key);
        if (node == nullptr) {
            return std::nullopt;
        }
        const auto value = node->value_exact<std::int64_t>();
        if (!value || static_cast<double>(*value) < range.least ||
            static_cast<double>(*value) > range.most) {
            wrong_value(key, *node, range_text(range, "a whole number"));
            return std::nullopt;
        }
        return value;
    }

    template <class Target>
    void whole(const char* key, Target& target, const Range& range) {
        if (const auto value = whole(key, range)) {
            target = static_cast<Target>(*value);
        }
    }

    void number(const char* key, double& target, const Range& range) {
        target = number(key, range).value_or(target);
    }

    const toml::node* find(std::string_view key) const { return table_.get(key); }

    void wrong_value(const std::string& key, const toml::node& node, const std::string& expected,
                     const std::string& mend = "") {
        const FilePlace at = place(node.source());
        model_.problems.push_back({.file = model_.path,
                                   .line = at.line,
                                   .column = at.column,
                                   .field = "`" + key + "` in [" + section_ + "]",
                                   .found = std::string(type_name(node)) + ", " + shown(node),
                                   .expected = expected,
                                   .mend = mend.empty() ? "write " + expected : mend});
    }

    const toml::table& table() const { return table_; }
    const std::string& section() const { return section_; }

  private:
    std::string full_name(const std::string& key) const { return section_ + "." + key; }

    void unknown_key(const std::string& name, const Keys& keys) {
        const FilePlace at = model_.places[full_name(name)];
        const std::string nearest = nearest_name(name, keys);
        model_.problems.push_back(
            {.file = model_.path,
             .line = at.line,
             .column = at.column,
             .field = "[" + section_ + "]",
             .found = "the unknown key `" + name + "`",
             .expected = "one of " + listed_names(keys),
             .mend = nearest.empty() ? "delete it" : "a similar one is `" + nearest + "`"});
    }

    const toml::table& table_;
    std::string section_;
    ModelFile& model_;
};

void read_network_section(SectionReader reader, ModelFile& model) {
    reader.check_keys({"file", "format", "directed", "nodes", "threshold", "head"});
    reader.path("file", model.network.file);
    reader.path("nodes", model.network.nodes);
    reader.flag("directed", model.network.options.directed);
    reader.flag("head", model.network.options.head);
    model.network.options.threshold = reader.number("threshold");
    std::string format;
    reader.text("format", format);
    model.network.options.format = network_format_of(format);
    if (!format.empty() && !model.network.options.format) {
        const std::string nearest = nearest_name(format, readable_formats());
        reader.wrong_value("format", *reader.find("format"),
                           "one of " + listed_names(readable_formats()),
                           nearest.empty() ? "" : "a similar one is `" + nearest + "`");
    }
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
    SectionReader reader(table, "attributes." + option.name, model);
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
        model.places["attributes." + option.name] = place(key.source());
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
        model.places["covariates." + source.name] = place(key.source());
        if (const toml::table* table = node.as_table()) {
            SectionReader inner(*table, "covariates." + source.name, model);
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

void add_effect(const std::string& text, FilePlace at, ModelFile& model) {
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
            add_effect(*text, place(each.source()), model);
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
    SectionReader values(*table, std::string("model.") + what, model);
    for (const auto& [key, value] : *table) {
        const std::string name(key.str());
        StudyEffect* effect = find_model_effect(model, name);
        if (effect == nullptr) {
            miss_effect(name, what, place(key.source()), model);
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
    StudyEstimation& estimation = model.settings.estimation;
    reader.check_keys({"method", "attempts", "precision", "time_limit", "chains", "subphases",
                       "gain", "multiplication", "samples"});
    std::string method;
    reader.text("method", method);
    if (!method.empty()) {
        const Keys methods = {"auto", "stochastic-approximation", "mple", "mcmle"};
        const auto known = estimation_method_of(method);
        estimation.method = known.value_or(estimation.method);
        const std::string nearest = nearest_name(method, methods);
        if (!known) {
            reader.wrong_value("method", *reader.find("method"), "one of " + listed_names(methods),
                               nearest.empty() ? "" : "a similar one is `" + nearest + "`");
        }
    }
    reader.whole("attempts", estimation.attempts, {1, 1000});
    reader.number("precision", estimation.precision, {0, 1});
    reader.number("time_limit", estimation.time_limit, {0, 1e9});
    reader.whole("chains", estimation.chains, {1, 1000});
    reader.whole("subphases", estimation.subphases, {1, 20});
    reader.number("gain", estimation.gain, {1e-6, 10});
    reader.whole("multiplication", estimation.multiplication, {1, 1000000});
    reader.whole("samples", estimation.samples, {2, 10000000});
}

void read_sampling_section(SectionReader reader, StudySampling& sampling) {
    constexpr double kMostProposals = 1e15;
    reader.check_keys({"samples", "burn_in", "interval"});
    reader.whole("samples", sampling.samples, {1, 100000000});
    reader.whole("burn_in", sampling.burn_in, {0, kMostProposals});
    reader.whole("interval", sampling.interval, {0, kMostProposals});
}

void read_run_section(SectionReader reader, ModelFile& model) {
    reader.check_keys({"seed", "threads"});
    if (const auto seed = reader.whole("seed", {0, 4294967295.0})) {
        model.settings.run.seed = static_cast<std::uint32_t>(*seed);
    }
    reader.whole("threads", model.settings.run.threads, {0, 1024});
}

void read_numbers(SectionReader& reader, const char* key, std::map<std::string, double>& numbers,
                  ModelFile& model) {
    const toml::node* node = reader.find(key);
    const toml::table* table = node != nullptr ? node->as_table() : nullptr;
    if (table == nullptr) {
        if (node != nullptr) {
            reader.wrong_value(key, *node, "numbers by row, such as { A2P = 1.5 }");
        }
        return;
    }
    SectionReader values(*table, std::string("host.") + key, model);
    for (const auto& [row, value] : *table) {
        const std::string name(row.str());
        if (const auto number = values.number(name.c_str())) {
            numbers[name] = *number;
        }
    }
}

void read_outputs(SectionReader& reader, OutputSwitches& outputs) {
    const toml::node* node = reader.find("outputs");
    if (node == nullptr) {
        return;
    }
    const std::vector<OutputSwitchName> known = output_switch_names();
    Keys names;
    for (const OutputSwitchName& each : known) {
        names.push_back(each.name);
    }
    const toml::array* list = node->as_array();
    if (list == nullptr) {
        reader.wrong_value("outputs", *node, "a list of " + listed_names(names));
        return;
    }
    for (const toml::node& each : *list) {
        const std::string name = each.value_or(std::string());
        const auto place = std::find_if(
            known.begin(), known.end(),
            [&name](const OutputSwitchName& output) { return names_match(output.name, name); });
        if (place == known.end()) {
            reader.wrong_value("outputs", each, "one of " + listed_names(names));
        } else {
            outputs.*(place->member) = true;
        }
    }
}

void read_host_section(SectionReader reader, ModelFile& model) {
    constexpr Range kProposals = {0, 1e18};
    HostRun& host = model.host.emplace();
    reader.check_keys({"run", "name", "output", "proposal", "density", "fit", "outputs", "burn_in",
                       "iterations", "covariance", "values", "lambdas"});
    std::string mode;
    reader.text("run", mode);
    if (const auto known = run_mode_of(mode)) {
        host.mode = *known;
    } else if (!mode.empty()) {
        reader.wrong_value("run", *reader.find("run"), "one of " + listed_names(run_mode_names()));
    }
    reader.text("name", host.name);
    reader.text("output", host.output);
    reader.text("covariance", host.covariance);
    reader.whole("proposal", host.proposal_kind, {-2147483648.0, 2147483647.0});
    std::optional<bool> fit;
    reader.flag("fit", fit);
    host.fit_after = fit.value_or(false);
    host.density = reader.number("density", {0, 1});
    host.burn_in = reader.number("burn_in", kProposals);
    host.iterations = reader.number("iterations", kProposals);
    read_outputs(reader, host.outputs);
    read_numbers(reader, "values", host.values, model);
    read_numbers(reader, "lambdas", host.lambdas, model);
}

void read_section(const std::string& name, const toml::table& table, ModelFile& model) {
    const SectionReader reader(table, name, model);
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
        read_sampling_section(reader, model.settings.gof);
    } else if (name == "simulation") {
        read_sampling_section(reader, model.settings.simulation);
    } else if (name == "host") {
        read_host_section(reader, model);
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

void read_document(const toml::table& document, ModelFile& model) {
    for (const auto& [key, node] : document) {
        const std::string name(key.str());
        const toml::table* table = node.as_table();
        model.places[name] = place(key.source());
        const bool known = std::find(kSections.begin(), kSections.end(), name) != kSections.end();
        if (table != nullptr && known) {
            read_section(name, *table, model);
        } else {
            unknown_section(name, node, model.places[name], model);
        }
    }
    need_key(model, "network", "file", !model.network.file.empty(),
             "name the network's file: file = \"network.csv\"");
    need_key(model, "model", "effects", !model.model.effects.empty(),
             "list the effects: effects = [\"edge\", \"AT(2)\"]");
}

// Sections come in the order of their names; people read problems from the top.
void sort_problems(Problems& problems) {
    std::stable_sort(problems.begin(), problems.end(), [](const Problem& a, const Problem& b) {
        return a.line != b.line ? a.line < b.line : a.column < b.column;
    });
}

}  // namespace

ModelFile read_model_file(const std::string& path) { return read_model_file(read_text_file(path)); }

ModelFile read_model_file(const TextFile& file) {
    ModelFile model;
    model.path = file.path;
    model.problems = file.problems;
    if (!file.ok()) {
        return model;
    }
    const toml::parse_result document = toml::parse(std::string_view(file.text));
    if (document.failed()) {
        const FilePlace at = place(document.error().source());
        model.problems.push_back({.file = file.path,
                                  .line = at.line,
                                  .column = at.column,
                                  .found = std::string(document.error().description()),
                                  .expected = "TOML: [section], then lines such as key = \"text\"",
                                  .mend = "mend the line; texts stand in quotation marks"});
        return model;
    }
    read_document(document.table(), model);
    sort_problems(model.problems);
    return model;
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
