#include "formats/plan_file.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "base/native_path.h"
#include "formats/glob.h"
#include "formats/settings_section.h"
#include "formats/toml_section.h"
#include "study/names.h"

namespace {

using Names = std::vector<std::string>;

constexpr std::int64_t kLargestSeed = 4294967295;

// A file that a plan names, and where.
struct NamedFile {
    std::string path;  // as seen from the working directory
    FilePlace at;
};

class PlanReader {
  public:
    explicit PlanReader(Plan& plan) : plan_(plan) {}

    void read(const toml::table& document) {
        SectionReader reader(document, "", {plan_.path, plan_.places, plan_.problems});
        reader.check_keys({"networks", "nodes", "directed", "models", "seeds", "settings"});
        need(document, "networks", "networks = \"villages/*.csv\"");
        need(document, "models", "models = [[\"edge\", \"AT(2)\"]]");
        need(document, "seeds", "seeds = [1]");
        read_networks(reader);
        reader.flag("directed", plan_.directed);
        read_models(reader);
        read_seeds(reader);
        read_settings(reader);
        check_count();
    }

  private:
    void need(const toml::table& document, const char* key, const std::string& example) {
        if (!document.contains(key)) {
            plan_.problems.push_back({.file = plan_.path,
                                      .found = std::string("no `") + key + "`",
                                      .expected = std::string("`") + key + " = ...`",
                                      .mend = "add a line such as " + example});
        }
    }

    void complain(FilePlace at, const char* key, const std::string& found,
                  const std::string& expected, const std::string& mend) {
        plan_.problems.push_back({.file = plan_.path,
                                  .line = at.line,
                                  .column = at.column,
                                  .field = std::string("`") + key + "`",
                                  .found = found,
                                  .expected = expected,
                                  .mend = mend});
    }

    // As the plan writes it: without the plan's own folder, which relative paths were led by.
    std::string plan_name(const std::string& path) const {
        const std::string folder = path_beside(plan_.path, "x");
        const std::size_t length = folder.size() - 1;
        return length > 0 && path.compare(0, length, folder, 0, length) == 0 ? path.substr(length)
                                                                             : path;
    }

    void add_files(const std::string& text, FilePlace at, const char* key,
                   std::vector<NamedFile>& files) {
        const std::string path = path_beside(plan_.path, text);
        std::error_code problem;
        if (std::filesystem::is_regular_file(native_path(path), problem)) {
            files.push_back({path, at});
            return;
        }
        const Names found = is_glob(text) ? glob_files(path) : Names();
        for (const std::string& each : found) {
            files.push_back({each, at});
        }
        if (found.empty()) {
            complain(
                at, key,
                is_glob(text) ? "`" + text + "`, which no file matches" : "no file `" + path + "`",
                is_glob(text) ? "a pattern of files that are there" : "a file that is there",
                "mend the path; relative ones start where the plan stands");
        }
    }

    // A pattern, a path, or a list of them.
    std::vector<NamedFile> read_files(SectionReader& reader, const char* key) {
        std::vector<NamedFile> files;
        const toml::node* node = reader.find(key);
        if (node == nullptr) {
            return files;
        }
        const char* expected = "a pattern such as \"villages/*.csv\", or a list of files";
        const toml::array* list = node->as_array();
        if (const auto text = node->value_exact<std::string>(); text && !text->empty()) {
            add_files(*text, toml_place(node->source()), key, files);
        } else if (list == nullptr || list->empty()) {
            reader.wrong_value(key, *node, expected);
        } else {
            for (const toml::node& each : *list) {
                if (const auto path = each.value_exact<std::string>(); path && !path->empty()) {
                    add_files(*path, toml_place(each.source()), key, files);
                } else {
                    reader.wrong_value(key, each, expected,
                                       "put the path of a file into quotation marks");
                }
            }
        }
        return files;
    }

    void read_networks(SectionReader& reader) {
        const std::vector<NamedFile> nodes = read_files(reader, "nodes");
        std::vector<NamedFile> networks = read_files(reader, "networks");
        std::erase_if(networks, [&nodes](const NamedFile& network) {
            return std::any_of(nodes.begin(), nodes.end(), [&network](const NamedFile& each) {
                return each.path == network.path;
            });
        });
        std::set<std::string> known;
        for (const NamedFile& network : networks) {
            if (!known.insert(network.path).second) {
                complain(network.at, "networks", "`" + plan_name(network.path) + "` twice",
                         "each network once", "leave one of them out");
            }
            plan_.networks.push_back({plan_name(network.path), network.path, ""});
        }
        pair_nodes(nodes);
    }

    void pair_nodes(const std::vector<NamedFile>& nodes) {
        if (nodes.empty()) {
            return;
        }
        if (nodes.size() != 1 && nodes.size() != plan_.networks.size()) {
            complain(nodes[0].at, "nodes",
                     std::to_string(nodes.size()) + " nodes files and " +
                         std::to_string(plan_.networks.size()) + " networks",
                     "one nodes file a network, or one for all",
                     "name the files so that the patterns find pairs, or list them");
            return;
        }
        for (std::size_t k = 0; k < plan_.networks.size(); ++k) {
            plan_.networks[k].nodes = nodes[nodes.size() == 1 ? 0 : k].path;
        }
    }

    void add_listed_model(SectionReader& reader, const toml::array& list) {
        PlanModel model;
        model.model.path = plan_.path;
        for (const toml::node& each : list) {
            if (const auto text = each.value_exact<std::string>()) {
                add_effect(*text, toml_place(each.source()), model.model);
            } else {
                reader.wrong_value("models", each, "an effect such as \"AT(2)\"",
                                   "put the effect into quotation marks");
            }
        }
        for (const StudyEffect& effect : model.model.model.effects) {
            model.name += (model.name.empty() ? "" : ",") + effect_text(effect.expression);
        }
        if (list.empty()) {
            reader.wrong_value("models", list, "a list of effects, such as [\"edge\", \"AT(2)\"]");
        }
        take_model(std::move(model), toml_place(list.source()));
    }

    void add_model_file(const std::string& text, FilePlace at) {
        const std::string path = path_beside(plan_.path, text);
        std::error_code problem;
        if (!std::filesystem::exists(native_path(path), problem)) {
            complain(at, "models", "no file `" + path + "`",
                     "a model file, or a list of effects such as [\"edge\", \"AT(2)\"]",
                     "mend the path; relative ones start where the plan stands");
            return;
        }
        take_model({text, read_model_file(read_text_file(path), false)}, at);
    }

    void take_model(PlanModel model, FilePlace at) {
        plan_.problems.insert(plan_.problems.end(), model.model.problems.begin(),
                              model.model.problems.end());
        model.model.problems.clear();
        const bool known =
            std::any_of(plan_.models.begin(), plan_.models.end(),
                        [&](const PlanModel& each) { return each.name == model.name; });
        if (known && !model.name.empty()) {
            complain(at, "models", "the model `" + model.name + "` twice", "each model once",
                     "leave one of them out");
        }
        plan_.models.push_back(std::move(model));
    }

    void read_models(SectionReader& reader) {
        const char* expected =
            "a list of models, each a list of effects or a model file: [[\"edge\", \"AT(2)\"], "
            "\"closure.toml\"]";
        const toml::node* node = reader.find("models");
        const toml::array* list = node != nullptr ? node->as_array() : nullptr;
        if (node != nullptr && (list == nullptr || list->empty())) {
            reader.wrong_value("models", *node, expected);
        }
        for (std::size_t k = 0; list != nullptr && k < list->size(); ++k) {
            const toml::node& each = (*list)[k];
            if (const auto text = each.value_exact<std::string>(); text && !text->empty()) {
                add_model_file(*text, toml_place(each.source()));
            } else if (const toml::array* effects = each.as_array()) {
                add_listed_model(reader, *effects);
            } else {
                reader.wrong_value("models", each, expected);
            }
        }
    }

    void read_seeds(SectionReader& reader) {
        const char* expected = "a list of seeds, such as [1, 2, 3], or { from = 1, count = 200 }";
        const toml::node* node = reader.find("seeds");
        if (node == nullptr) {
            return;
        }
        const toml::array* list = node->as_array();
        if (const toml::table* table = node->as_table()) {
            read_series(*table);
        } else if (list == nullptr || list->empty()) {
            reader.wrong_value("seeds", *node, expected);
        } else {
            for (const toml::node& each : *list) {
                add_seed(reader, each);
            }
        }
    }

    void add_seed(SectionReader& reader, const toml::node& node) {
        const std::int64_t seed = node.value_exact<std::int64_t>().value_or(-1);
        if (seed < 0 || seed > kLargestSeed) {
            reader.wrong_value("seeds", node, "a whole number from 0 to 4294967295");
            return;
        }
        if (std::find(plan_.seeds.begin(), plan_.seeds.end(), seed) != plan_.seeds.end()) {
            complain(toml_place(node.source()), "seeds",
                     "the seed " + std::to_string(seed) + " twice", "each seed once",
                     "the same seed gives the same numbers: leave one out");
        }
        plan_.seeds.push_back(static_cast<std::uint32_t>(seed));
    }

    void read_series(const toml::table& table) {
        SectionReader reader(table, "seeds", {plan_.path, plan_.places, plan_.problems});
        reader.check_keys({"from", "count"});
        std::int64_t from = 1;
        std::int64_t count = 1;
        reader.whole("from", from, {0, static_cast<double>(kLargestSeed)});
        reader.whole("count", count, {1, static_cast<double>(kMostJobs)});
        if (!table.contains("count")) {
            complain(toml_place(table.source()), "seeds", "no `count`", "{ from = 1, count = 200 }",
                     "say how many seeds there are");
        }
        if (from + count - 1 > kLargestSeed) {
            reader.wrong_value("count", *reader.find("count"), "seeds up to 4294967295");
            return;
        }
        for (std::int64_t k = 0; k < count; ++k) {
            plan_.seeds.push_back(static_cast<std::uint32_t>(from + k));
        }
    }

    // Every model takes the settings that are written; others stay as its file has them. What is
    // wrong with them is told once.
    void read_settings(SectionReader& outer) {
        const toml::node* node = outer.find("settings");
        const toml::table* table = node != nullptr ? node->as_table() : nullptr;
        if (node != nullptr && table == nullptr) {
            outer.wrong_value("settings", *node, "a section: [settings], then lines below it");
        }
        if (table == nullptr) {
            return;
        }
        StudySettings settings;
        take_settings(*table, {plan_.path, plan_.places, plan_.problems}, true, settings);
        for (PlanModel& each : plan_.models) {
            Problems told;
            take_settings(*table, {plan_.path, plan_.places, told}, false, each.model.settings);
        }
    }

    void take_settings(const toml::table& table, TomlFile file, bool check,
                       StudySettings& settings) {
        SectionReader reader(table, "settings", file);
        if (check && table.contains("seed")) {
            reader.wrong_value("seed", *table.get("seed"), "`seeds` above the section",
                               "write seeds = [...] before [settings]");
        }
        if (check) {
            Names keys = estimation_keys();
            keys.insert(keys.end(), {"seed", "threads"});
            reader.check_keys(keys);
        }
        read_estimation_keys(reader, settings.estimation);
        reader.whole("threads", settings.run.threads, {0, 1024});
    }

    void check_count() {
        const double jobs = static_cast<double>(plan_.networks.size()) *
                            static_cast<double>(plan_.models.size()) *
                            static_cast<double>(plan_.seeds.size());
        if (jobs > static_cast<double>(kMostJobs)) {
            plan_.problems.push_back(
                {.file = plan_.path,
                 .found = number_text(jobs) + " runs",
                 .expected = "at most " + std::to_string(kMostJobs),
                 .mend = "make several plans of it, each with seeds of its own"});
        }
    }

    Plan& plan_;
};

}  // namespace

Plan read_plan(const std::string& path) { return read_plan(read_text_file(path)); }

Plan read_plan(const TextFile& file) {
    Plan plan;
    plan.path = file.path;
    plan.problems = file.problems;
    if (!file.ok()) {
        return plan;
    }
    const toml::parse_result document = toml::parse(std::string_view(file.text));
    if (document.failed()) {
        plan.problems.push_back(no_toml(file.path, document));
        return plan;
    }
    PlanReader(plan).read(document.table());
    sort_by_place(plan.problems);
    return plan;
}
