#include <algorithm>
#include <cmath>
#include <memory>

#include "batch/digest.h"
#include "commands/commands.h"
#include "commands/options.h"
#include "commands/results_model.h"
#include "commands/study_input.h"
#include "formats/text_file.h"
#include "show/comparison.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"

namespace {

struct CompareOptions {
    std::vector<std::string> folders;
    bool json = false;
    bool csv = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
};

// One folder, read, and the digest of its network's file; empty where the file is gone.
struct ComparedFolder {
    ComparedModel model;
    std::string digest;
};

std::string digest_of_network(const std::string& folder) {
    const ModelFile model = read_model_file(folder + "/model.toml");
    const TextFile file = model.ok() ? read_text_file(model.network.file) : TextFile{};
    if (!model.ok() || !file.ok()) {
        return "";
    }
    Digest digest;
    digest.add(file.text);
    return digest.text();
}

std::optional<ComparedFolder> read_source(const std::string& word, Problems& problems) {
    if (!names_folder(word)) {
        problems.push_back({.file = word,
                            .found = "no results folder",
                            .expected = "a folder that `ovri estimate` has written",
                            .mend = "run `ovri estimate` first"});
        return std::nullopt;
    }
    const std::string folder = folder_word(word);
    std::optional<ResultRecord> result = read_result(folder, problems);
    if (!result) {
        return std::nullopt;
    }
    if (result->verdict.empty()) {
        problems.push_back({.file = folder + "/result.json",
                            .found = "the result of `ovri " + result->command + "`",
                            .expected = "the result of `ovri estimate`",
                            .mend = "name the folder in which the model was estimated"});
        return std::nullopt;
    }
    ComparedFolder source;
    source.model.name = folder;
    source.model.result = *std::move(result);
    source.digest = digest_of_network(folder);
    return source;
}

std::string network_words(const ResultNetwork& network) {
    return fmt::format("{}: {}, {}, {}", network.file, counted(network.actors, "actor"),
                       counted(network.ties, network.directed ? "arc" : "tie"),
                       network.directed ? "directed" : "undirected");
}

std::string last_part(const std::string& path) {
    const std::size_t stroke = path.find_last_of("/\\");
    return stroke == std::string::npos ? path : path.substr(stroke + 1);
}

// By content where both files are still there, by name where not.
bool same_network(const ComparedFolder& one, const ComparedFolder& other) {
    const ResultNetwork& a = one.model.result.network;
    const ResultNetwork& b = other.model.result.network;
    if (a.directed != b.directed || a.actors != b.actors || a.ties != b.ties) {
        return false;
    }
    return one.digest.empty() || other.digest.empty() ? last_part(a.file) == last_part(b.file)
                                                      : one.digest == other.digest;
}

// An effect that the two models share and that counts something else in each; empty without one.
std::string differing_effect(const ResultRecord& one, const ResultRecord& other) {
    for (const ResultEffect& a : one.effects) {
        for (const ResultEffect& b : other.effects) {
            if (a.name == b.name && std::isfinite(a.observed) && std::isfinite(b.observed) &&
                std::fabs(a.observed - b.observed) > 1e-6 * (1.0 + std::fabs(a.observed))) {
                return fmt::format("`{}` is {} here and {} there", a.name, b.observed, a.observed);
            }
        }
    }
    return "";
}

// Of each likelihood the null one is -N log 2, N the dyads that may change.
bool same_dyads(const ResultRecord& one, const ResultRecord& other) {
    const double a = one.likelihood.null_model;
    const double b = other.likelihood.null_model;
    return !std::isfinite(a) || !std::isfinite(b) || std::fabs(a - b) < 1e-6 * (1.0 + std::fabs(a));
}

// Likelihoods are comparable where the data are the same.
void add_differences(const ComparedFolder& first, const ComparedFolder& other, Problems& problems) {
    const std::string path = other.model.name + "/result.json";
    const ResultRecord& a = first.model.result;
    const ResultRecord& b = other.model.result;
    const std::string mend = "compare models that were estimated on the same data";
    if (!same_network(first, other)) {
        const std::string found = network_words(b.network);
        const std::string expected = network_words(a.network);
        problems.push_back({.file = path,
                            .field = "network",
                            .found = found + (found == expected ? ", of other content" : ""),
                            .expected = fmt::format("that of {} ({})", first.model.name, expected),
                            .mend = mend});
    } else if (const std::string effect = differing_effect(a, b); !effect.empty()) {
        problems.push_back({.file = path,
                            .field = "observed statistics",
                            .found = effect,
                            .expected = "the data of " + first.model.name,
                            .mend = mend});
    } else if (!same_dyads(a, b)) {
        problems.push_back({.file = path,
                            .field = "dyads",
                            .found = "another number of dyads that may change",
                            .expected = "that of " + first.model.name,
                            .mend = mend});
    }
}

std::vector<ComparedModel> read_models(const std::vector<std::string>& folders,
                                       Problems& problems) {
    std::vector<ComparedFolder> sources;
    for (const std::string& folder : folders) {
        if (std::optional<ComparedFolder> source = read_source(folder, problems)) {
            sources.push_back(*std::move(source));
        }
    }
    std::vector<ComparedModel> models;
    for (const ComparedFolder& source : sources) {
        add_differences(sources.front(), source, problems);
        models.push_back(source.model);
    }
    return models;
}

int compare(const CompareOptions& options) {
    outlive_failed_writes();
    const Screen screen = screen_on(stderr, options.colour);
    Problems problems;
    std::vector<ComparedModel> models = read_models(options.folders, problems);
    if (!problems.empty()) {
        tell_problems(problems, screen);
        return kErrorsFound;
    }
    const Comparison comparison = comparison_of(std::move(models));
    const bool table = !options.json && !options.csv;
    print(stdout, "{}",
          table          ? comparison_table(comparison)
          : options.json ? comparison_json(comparison)
                         : comparison_csv(comparison));
    // The table says it itself.
    for (const std::string& note : comparison_notes(comparison)) {
        if (!table && !options.quiet) {
            print(stderr, "{}: {}\n", painted(screen, Colour::yellow, "warning"), note);
        }
    }
    if (lost_output(stdout)) {
        print(stderr, "ovri: standard output could not be written\n");
        return kNotCompleted;
    }
    return kDone;
}

std::function<int()> declare_compare(CLI::App& app) {
    const auto options = std::make_shared<CompareOptions>();
    add_words(app, "RESULTS", options->folders, "Results folders of `ovri estimate`.");
    CLI::Option& json = add_flag(app, "--json", options->json, "Print a JSON document instead.");
    exclude(add_flag(app, "--csv", options->csv, "Print a table as CSV, one row a model."), json);
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return compare(*options); };
}

}  // namespace

extern const Command kCompareCommand = {.name = "compare",
                                        .summary = "a table of models of one network",
                                        .examples = R"(
  ovri compare first.results second.results
  ovri compare karate.results* --json
)",
                                        .details = R"(
Shows models of the same network side by side, in the order in which they are given:
estimates with their standard errors, log-likelihood, AIC and BIC, the best of each
marked. Where one model is nested in another (its effects are some of the other's), a
likelihood-ratio test says whether the larger one fits better: twice the difference of
the log-likelihoods against the chi-squared distribution, an approximation where ties
depend on each other. "mc error" is what comes from simulating: differences that are
not larger say nothing.

Models that did not converge or have no log-likelihood are shown, and left out of the
tests. Networks are the same when their files, actors, ties and direction are, and
when effects that models share count the same.
)",
                                        .statuses = R"(
Exit status: 0 done; 1 a folder is no results folder or is incomplete, or the data
differ; 2 the command line was not understood; 3 standard output could not be written.
)",
                                        .declare = declare_compare};
