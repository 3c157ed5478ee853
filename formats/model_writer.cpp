#include "formats/model_writer.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace fs = std::filesystem;

namespace {

class ModelText {
  public:
    void section(const std::string& name) { text_ += (text_.empty() ? "[" : "\n[") + name + "]\n"; }
    void line(const std::string& key, const std::string& value) {
        text_ += toml_key(key) + " = " + value + "\n";
    }
    void text(const char* key, const std::string& value) {
        if (!value.empty()) {
            line(key, toml_text(value));
        }
    }
    void number(const char* key, double value) { line(key, number_text(value)); }
    void whole(const char* key, std::int64_t value) { line(key, std::to_string(value)); }
    void flag(const char* key, std::optional<bool> value) {
        if (value) {
            line(key, *value ? "true" : "false");
        }
    }
    const std::string& all() const { return text_; }

  private:
    std::string text_;
};

void write_network(ModelText& out, const ModelFile& model, const std::string& directory) {
    const NetworkOptions& options = model.network.options;
    out.section("network");
    out.text("file", path_from(directory, model.network.file));
    if (options.format) {
        out.text("format", network_format_name(*options.format));
    }
    out.flag("directed", options.directed);
    out.text("nodes", path_from(directory, model.network.nodes));
    if (options.threshold) {
        out.number("threshold", *options.threshold);
    }
    out.flag("head", options.head);
}

std::string column_text(const ColumnOption& option) {
    std::string type = option.type ? toml_text(attribute_type_name(*option.type)) : "";
    if (!option.keep_missing) {
        return type;
    }
    return "{ " + (type.empty() ? "" : "type = " + type + ", ") + "missing = \"keep\" }";
}

void write_data(ModelText& out, const ModelFile& model, const std::string& directory) {
    if (!model.attributes.empty()) {
        out.section("attributes");
    }
    for (const ColumnOption& option : model.attributes) {
        if (option.type || option.keep_missing) {
            out.line(option.name, column_text(option));
        }
    }
    if (!model.covariates.empty()) {
        out.section("covariates");
    }
    for (const CovariateSource& source : model.covariates) {
        const std::string file = toml_text(path_from(directory, source.file));
        out.line(source.name,
                 source.missing
                     ? "{ file = " + file + ", missing = " + number_text(*source.missing) + " }"
                     : file);
    }
}

void write_values(ModelText& out, const char* what, std::optional<double> StudyEffect::*member,
                  const StudyModel& model) {
    std::string values;
    for (const StudyEffect& effect : model.effects) {
        if (effect.*member) {
            values += (values.empty() ? "" : ", ") + toml_key(effect_text(effect.expression)) +
                      " = " + number_text(*(effect.*member));
        }
    }
    if (!values.empty()) {
        out.line(what, "{ " + values + " }");
    }
}

void write_model(ModelText& out, const ModelFile& model, const std::string& directory) {
    std::string effects;
    for (const StudyEffect& effect : model.model.effects) {
        effects += (effects.empty() ? "" : ", ") + toml_text(effect_text(effect.expression));
    }
    out.section("model");
    out.line("effects", "[" + effects + "]");
    write_values(out, "start", &StudyEffect::start, model.model);
    write_values(out, "fixed", &StudyEffect::fixed, model.model);
    if (!model.free_dyads.empty() || model.max_degree) {
        out.section("dyads");
        out.text("free", path_from(directory, model.free_dyads));
    }
    if (model.max_degree) {
        out.whole("max_degree", *model.max_degree);
    }
}

void write_sampling(ModelText& out, const char* name, const StudySampling& sampling) {
    out.section(name);
    out.whole("samples", sampling.samples);
    out.whole("burn_in", sampling.burn_in);
    out.whole("interval", sampling.interval);
}

void write_settings(ModelText& out, const ModelFile& model) {
    const StudySettings& settings = model.settings;
    const StudyEstimation& estimation = settings.estimation;
    out.section("estimation");
    out.text("method", estimation_method_name(estimation.method));
    out.whole("attempts", estimation.attempts);
    out.number("precision", estimation.precision);
    out.number("time_limit", estimation.time_limit);
    out.whole("chains", estimation.chains);
    out.whole("bootstrap", estimation.bootstrap);
    out.whole("subphases", estimation.subphases);
    out.number("gain", estimation.gain);
    out.whole("multiplication", estimation.multiplication);
    out.whole("samples", estimation.samples);
    write_sampling(out, "gof", settings.gof);
    write_sampling(out, "simulation", settings.simulation);
    if (model.simulation_format) {
        out.text("format", network_format_name(*model.simulation_format));
    }
    out.section("run");
    if (settings.run.seed) {
        out.whole("seed", *settings.run.seed);
    }
    out.whole("threads", settings.run.threads);
}

std::string table_of(const std::map<std::string, double>& numbers) {
    std::string text;
    for (const auto& [row, number] : numbers) {
        text += (text.empty() ? "" : ", ") + toml_key(row) + " = " + number_text(number);
    }
    return text.empty() ? text : "{ " + text + " }";
}

void write_host(ModelText& out, const HostRun& host) {
    out.section("host");
    out.text("run", run_mode_name(host.mode));
    out.text("name", host.name);
    out.text("output", host.output);
    out.whole("proposal", host.proposal_kind);
    if (host.density) {
        out.number("density", *host.density);
    }
    out.flag("fit", host.fit_after ? std::optional(true) : std::nullopt);
    std::string outputs;
    for (const OutputSwitchName& each : output_switch_names()) {
        if (host.outputs.*each.member) {
            outputs += (outputs.empty() ? "" : ", ") + toml_text(each.name);
        }
    }
    if (!outputs.empty()) {
        out.line("outputs", "[" + outputs + "]");
    }
    if (host.burn_in) {
        out.number("burn_in", *host.burn_in);
    }
    if (host.iterations) {
        out.number("iterations", *host.iterations);
    }
    out.text("covariance", host.covariance);
    for (const auto& [key, numbers] :
         {std::pair{"values", &host.values}, std::pair{"lambdas", &host.lambdas}}) {
        if (!numbers->empty()) {
            out.line(key, table_of(*numbers));
        }
    }
}

}  // namespace

std::string path_from(const std::string& directory, const std::string& path) {
    if (path.empty() || path == "-") {
        return path;
    }
    std::error_code problem;
    const fs::path whole = fs::absolute(path, problem).lexically_normal();
    const fs::path base =
        fs::absolute(directory.empty() ? "." : directory, problem).lexically_normal();
    const fs::path relative = whole.lexically_relative(base);
    return (relative.empty() || problem ? whole : relative).generic_string();
}

std::string toml_text(const std::string& text) {
    std::string quoted = "\"";
    for (const char each : text) {
        const auto code = static_cast<unsigned char>(each);
        if (each == '"' || each == '\\') {
            quoted += '\\';
            quoted += each;
        } else if (code < 0x20 || code == 0x7F) {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\u%04X", code);
            quoted += escape.data();
        } else {
            quoted += each;
        }
    }
    return quoted + "\"";
}

std::string toml_key(const std::string& key) {
    const bool bare = !key.empty() && std::all_of(key.begin(), key.end(), [](char each) {
        return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z') ||
               (each >= '0' && each <= '9') || each == '_' || each == '-';
    });
    return bare ? key : toml_text(key);
}

std::string model_text(const ModelFile& model, const std::string& directory) {
    ModelText out;
    write_network(out, model, directory);
    write_data(out, model, directory);
    write_model(out, model, directory);
    write_settings(out, model);
    if (model.host) {
        write_host(out, *model.host);
    }
    return out.all();
}
