#include <algorithm>

#include "commands/bootstrap.h"
#include "commands/bootstrap_parts.h"
#include "commands/command_line.h"
#include "commands/commands.h"
#include "commands/estimate.h"
#include "commands/estimate_record.h"
#include "commands/model_options.h"
#include "commands/options.h"
#include "commands/results_folder.h"
#include "commands/run_log.h"
#include "commands/study_input.h"
#include "commands/verdict_line.h"
#include "commands/verdicts.h"
#include "parts/part_emit.h"
#include "parts/part_run.h"
#include "show/result_csv.h"
#include "show/result_json.h"
#include "show/result_table.h"
#include "study/study_estimate.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"
#include "terminal/watched.h"

namespace {

struct EstimateOptions {
    ModelOptions model;
    FolderOptions folder;
    // Settings in place of the model file's.
    std::string method;
    std::optional<std::uint32_t> attempts;
    std::optional<std::uint32_t> multiplication;
    std::optional<std::uint32_t> bootstrap;
    bool json = false;
    bool csv = false;
    bool quiet = false;
    bool silent = false;  // nothing on standard output either
    ColourChoice colour = ColourChoice::automatic;
    PartOptions parts;  // of the bootstrap
};

struct Performed {
    StudyEstimate estimate;
    std::optional<StudyBootstrap> bootstrap;  // of estimates that may be used, where asked for
};

int replicates_of(const StudyInput& input) {
    return input.files.study.settings.estimation.bootstrap;
}

bool shows_progress(const EstimateOptions& options) {
    return !options.quiet && is_terminal(stderr);
}

// The estimation; none when it was interrupted before there were estimates.
std::optional<Performed> perform(StudyInput& input, std::uint32_t seed,
                                 const EstimateOptions& options) {
    Performed performed;
    const Study& study = input.files.study;
    const int replicates = replicates_of(input);
    // Parts of the job: those of the search, the log-likelihood and the bootstrap.
    const bool approximates =
        study.settings.estimation.method == EstimationMethod::stochastic_approximation;
    const bool whole = watched(shows_progress(options), [&](RunProgress& progress) {
        progress.parts = (approximates ? 2 : 3) + (replicates > 0 ? 1 : 0);
        performed.estimate = study_estimate(study, input.resolved, seed, progress);
        if (replicates > 0 && performed.estimate.verdict == StudyVerdict::converged) {
            progress_part(progress);
            performed.bootstrap =
                study_bootstrap(study, input.resolved, performed.estimate, replicates, progress);
        }
    });
    if (!whole && performed.estimate.effects.empty()) {
        return std::nullopt;
    }
    performed.estimate.interrupted = performed.estimate.interrupted || !whole;
    return performed;
}

std::string sample_csv(const StudyEstimate& found) {
    std::vector<std::string> names;
    for (const EffectEstimate& each : found.effects) {
        names.push_back(each.name);
    }
    std::string text = sample_head(names);
    for (int row = 0; row < found.samples.rows; ++row) {
        const double* values = found.samples[row];
        const auto at = static_cast<std::size_t>(row);
        text += sample_row(found.sample_chain[at] + 1, found.sample_draw[at] + 1,
                           {values, values + found.samples.columns});
    }
    return text;
}

void show(const ResultRecord& result, const EstimateOptions& options, std::size_t runs,
          const ResultsFolder& folder) {
    if (options.silent) {
        return;
    }
    if (options.json) {
        print(stdout, "{}", result_json(result));
    } else if (options.csv) {
        print(stdout, "{}", estimates_csv(result));
    } else {
        print(stdout, "{}\n{}{}{}results: {}\n", estimates_table(result), likelihood_line(result),
              result.bootstrap ? "\n" + bootstrap_table(*result.bootstrap) + "\n" : "",
              verdict_line(result, runs, screen_on(stdout, options.colour)), folder.directory());
    }
}

// Where the folder could not take all, the estimates are shown and no more: a script takes what
// stands on standard output for the whole, a person reads that files are missing.
void show_estimates_alone(const ResultRecord& result, const EstimateOptions& options) {
    if (!options.silent && !options.json && !options.csv) {
        print(stdout, "{}\n", estimates_table(result));
    }
}

void write_results(const StudyEstimate& found, const ResultRecord& result, RunLog& log,
                   ResultsFolder& folder) {
    folder.write("estimates.csv", estimates_csv(result));
    folder.write("covariance.csv", covariance_csv(result));
    if (found.samples.rows > 0) {
        folder.write("sample.csv", sample_csv(found));
    }
    for (const EstimationAttempt& each : found.attempts) {
        log.line(
            fmt::format("run: multiplication {}, largest t-ratio {:.4f}, autocorrelation "
                        "{:.3f}{}",
                        each.multiplication, each.largest_t_ratio, each.autocorrelation,
                        each.used ? ", used" : ""));
    }
    log.line(fmt::format("verdict: {} after {:.2f} seconds", result.verdict, result.seconds));
    for (const std::string& reason : result.reasons) {
        log.line("warning: " + reason);
    }
    folder.write("run.log", log.text());
    folder.finish(result_json(result));
}

// The model with the options' settings.
ModelFile model_with_settings(const EstimateOptions& options) {
    ModelFile model = model_of(options.model);
    StudyEstimation& estimation = model.settings.estimation;
    estimation.attempts = static_cast<int>(options.attempts.value_or(estimation.attempts));
    estimation.multiplication =
        static_cast<int>(options.multiplication.value_or(estimation.multiplication));
    estimation.bootstrap = static_cast<int>(options.bootstrap.value_or(estimation.bootstrap));
    estimation.method = estimation_method_of(options.method).value_or(estimation.method);
    return model;
}

// Tells of options that the method has no use for.
void tell_unused_options(const EstimateOptions& options, const ModelFile& model) {
    const EstimationMethod method = model.settings.estimation.method;
    const char* option = options.attempts         ? "--attempts"
                         : options.multiplication ? "--multiplication"
                                                  : nullptr;
    if (option != nullptr && method != EstimationMethod::stochastic_approximation) {
        print(stderr,
              "ovri: `{}` serves stochastic approximation alone; the method is {}, which has no "
              "use for it\n",
              option, estimation_method_name(method));
    }
}

// How commands of the advice call the model. What came from standard input cannot be read again:
// the folder keeps it.
AdviceWords advice_words(const EstimateOptions& options, const ResultsFolder& folder) {
    if (options.model.model == "-" || options.model.network == "-") {
        return {shell_word(folder.path("model.toml")), ""};
    }
    return {model_words(options.model), options.method};
}

// What there is of an estimation that Ctrl-C has ended, marked.
int keep_interrupted(const std::optional<StudyEstimate>& found, RunLog& log,
                     ResultsFolder& folder) {
    std::string kept = "no estimates yet";
    if (found) {
        kept = "estimates.csv holds the best estimates so far, not to be used";
        std::vector<ResultEffect> effects;
        for (const EffectEstimate& each : found->effects) {
            effects.push_back(result_effect(each, false));
        }
        ResultRecord result;
        result.effects = std::move(effects);
        folder.write("estimates.csv", estimates_csv(result));
    }
    log.line(interrupted_line(kept));
    folder.write("run.log", log.text());
    return folder.failures().empty() ? tell_interrupted(folder, found ? "has the estimates so far"
                                                                      : "has no estimates yet")
                                     : tell_failures(folder);
}

// The files of the results, and what standard output takes.
int conclude(const Performed& performed, StudyInput& input, RunLog& log,
             const EstimateOptions& options, ResultsFolder& folder) {
    const StudyEstimate& found = performed.estimate;
    ResultRecord result = result_of(found, input, advice_words(options, folder));
    if (performed.bootstrap) {
        result.bootstrap = result_bootstrap(*performed.bootstrap);
        folder.write("bootstrap.csv", bootstrap_csv(*performed.bootstrap));
    } else if (replicates_of(input) > 0 && !options.quiet) {
        print(stderr, "ovri: no bootstrap: the estimates are not to be used\n");
    }
    write_results(found, result, log, folder);
    if (!folder.failures().empty()) {
        show_estimates_alone(result, options);
        return tell_failures(folder);
    }
    show(result, options, found.attempts.size(), folder);
    return lost_output(stdout) ? tell_failures(folder) : result.exit_status;
}

int run_study(StudyInput& input, const EstimateOptions& options, ResultsFolder& folder) {
    const std::uint32_t seed = settle_seed(input);
    RunLog log(options.silent ? "ovri estimate " + model_words(options.model) : command_text(),
               input);
    write_model(settled_model(input), input, folder);
    folder.write("run.log", log.text());
    const std::optional<Performed> performed = perform(input, seed, options);
    if (!performed || performed->estimate.interrupted) {
        return keep_interrupted(performed ? std::optional(performed->estimate) : std::nullopt, log,
                                folder);
    }
    return conclude(*performed, input, log, options, folder);
}

int run_divided(StudyInput& input, const EstimateOptions& options, ResultsFolder& folder) {
    settle_seed(input);
    RunLog log(command_text(), input);
    DividedBootstrap divided(input, replicates_of(input), shows_progress(options), folder);
    if (const auto status = divided.run({options.parts, options.folder.overwrite, options.quiet})) {
        return *status;
    }
    write_model(settled_model(input), input, folder);
    return conclude({divided.estimate(), divided.bootstrap()}, input, log, options, folder);
}

// What is wrong with the words; empty when nothing is.
std::string mistake_of(const EstimateOptions& options) {
    if (std::string mistake = model_mistake(options.model); !mistake.empty()) {
        return mistake;
    }
    if (options.bootstrap > static_cast<std::uint32_t>(kMostReplicates)) {
        return fmt::format("`--bootstrap` takes a number up to {}", kMostReplicates);
    }
    return part_mistake(options.parts);
}

// The same of the parts, once the model is read.
std::string part_mistake_of(const EstimateOptions& options, const StudyInput& input) {
    return options.parts.divided() && replicates_of(input) == 0
               ? "`--parts` divides the networks of a bootstrap: add --bootstrap N"
               : part_mistake(options.parts, replicates_of(input), input);
}

int estimate(const EstimateOptions& options) {
    if (const std::string mistake = mistake_of(options); !mistake.empty()) {
        return tell_misunderstood(mistake);
    }
    outlive_failed_writes();
    const Screen screen = screen_on(stderr, options.colour);
    ModelFile model = model_with_settings(options);
    if (model.ok() && !options.quiet) {
        tell_unused_options(options, model);
    }
    StudyInput input = read_study_to_estimate(std::move(model));
    const bool seed = input.files.study.settings.run.seed.has_value();
    if (const std::string mistake = part_mistake_of(options, input);
        input.ok() && !mistake.empty()) {
        return tell_misunderstood(mistake);
    }
    std::optional<ResultsFolder> folder =
        open_results(input, folder_of(options.folder, options.parts, seed),
                     model_name(options.model), options.quiet, screen);
    if (!folder) {
        return kErrorsFound;
    }
    if (!options.parts.engine.empty()) {
        return emit_model("estimate", replicates_of(input), input, options.parts, *folder);
    }
    return options.parts.divided() ? run_divided(input, options, *folder)
                                   : run_study(input, options, *folder);
}

std::function<int()> declare_estimate(CLI::App& app) {
    const auto options = std::make_shared<EstimateOptions>();
    add_model(app, options->model, "MODEL");
    add_folder(app, options->folder);
    add_method(app, options->method);
    add_number(app, "--attempts", options->attempts,
               "Of stochastic approximation: runs until one converges, at most.");
    add_number(app, "--multiplication", options->multiplication,
               "Of stochastic approximation: length of a step, in units of d (1 - d) n^2 proposals "
               "(d the observed density).");
    add_number(app, "--bootstrap", options->bootstrap,
               "Draw N networks of the model at the estimates, estimate each anew, and tell how "
               "the estimates scatter: 95% percentile intervals.");
    add_parts(app, options->parts, "networks of the bootstrap");
    add_forms(app, options->json, options->csv);
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return estimate(*options); };
}

}  // namespace

int estimate_into(StudyInput& input, const std::string& model_path, ResultsFolder& folder) {
    EstimateOptions options;
    options.model.model = model_path;
    options.quiet = true;
    options.silent = true;
    return run_study(input, options, folder);
}

extern const Command kEstimateCommand = {
    .name = "estimate",
    .summary = "estimate a model; table and verdict on standard output",
    .examples = R"(
  ovri estimate karate.toml
  ovri estimate --network karate.csv --undirected --effects 'edge,AT(2)'
  ovri estimate karate.toml --effects 'edge,AS(2),AT(2)' --seed 1 --json
)",
    .details = R"(
Reads the network, the actors' attributes and the model, tells what it read, and
estimates the effects' parameters. Where dyads do not depend on each other the
estimates are computed (exact). Elsewhere chains simulate networks: Monte Carlo
maximum likelihood, until observed and simulated statistics agree and the Monte
Carlo error of every estimate is below `precision` standard errors. Results do not
depend on the number of threads, only on that of chains.

--method stochastic-approximation is the method of setup files, number for number;
runs that do not converge are followed by others from the last estimates, up to
`attempts`. --method mple does not simulate: quick, but its standard errors are too
small where ties depend on each other.

--bootstrap N estimates N networks drawn from the model at the estimates: intervals
that do not lean on large samples, and how often the intervals of single networks
hold the value they were drawn with (coverage). Networks whose model did not converge
are counted and left out. bootstrap.csv holds the estimates, one row a network. A model
file asks for it by `bootstrap = N` under [estimation]; --bootstrap 0 leaves it out.
--parts P divides the networks among P parts: --part K, on whatever machine, estimates,
takes its share and leaves parts/bootstrap-000K.json; --collect merges all parts to
the same bytes as one run, seconds aside. --emit ENGINE writes the model and what
make, GNU parallel or Slurm needs for all of it.

Standard output takes the table, the verdict and where the results are; warnings,
errors and progress go to standard error. The results folder is DIR, or
NAME.results, NAME.results.2 and so on in the current directory. It is complete
when it holds result.json. Its model.toml gives the same numbers again.

Options beside MODEL stand in place of what the model file says.
)",
    .statuses = R"(
Exit status: 0 converged; 1 the check found errors and nothing was written; 2 the
command line was not understood; 3 begun and not completed (disk full, memory); 4 not
converged; 5 not identified or degenerate; 130 interrupted by Ctrl-C.
)",
    .declare = declare_estimate};
