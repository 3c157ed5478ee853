
#include "check/checks.h"
#include "check/overview.h"
#include "commands/check_model.h"
#include "commands/commands.h"
#include "commands/model_options.h"
#include "commands/options.h"
#include "commands/setup_source.h"
#include "show/check_document.h"
#include "terminal/print.h"

namespace {

struct CheckOptions {
    // A setup file or a model file; or the options that stand for the latter.
    ModelOptions model;
    // Stands for the setup file's output directory when not empty.
    std::string output;
    bool json = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
};

int status_of(const Findings& findings) {
    return count_findings(findings, Severity::error) > 0 ? kErrorsFound : kDone;
}

// Findings and their sum, or the document; the exit status.
int tell(const CheckRecord& record, const CheckOptions& options) {
    if (options.json) {
        print(stdout, "{}", check_document(record));
        return status_of(record.findings);
    }
    print_findings(record.findings, true, screen_on(stdout, options.colour));
    if (options.quiet) {
        return status_of(record.findings);
    }
    print(stdout, "{}: {}\n", record.file,
          record.findings.list.empty() ? "no errors, no warnings"
                                       : findings_summary(record.findings));
    return status_of(record.findings);
}

int tell_model(const CheckOptions& options, ModelFile model, const std::string& name) {
    const ModelCheck check = check_model(std::move(model));
    CheckRecord record{OVRI_VERSION, name, check.findings, {}, {}, {}};
    if (check.read) {
        record.network = result_network(check.input);
        record.effects = check.input.resolved.names;
        record.notes = check.input.files.notes;
    }
    if (check.read && !options.json && !options.quiet) {
        tell_notes(check.input, screen_on(stdout, options.colour));
    }
    return tell(record, options);
}

// The model file itself may have come from standard input.
ModelFile model_at(const std::string& path, const std::string& name, const ModelOptions& options) {
    TextFile file = read_text_file(path);
    file.path = name;
    for (Problem& problem : file.problems) {
        problem.file = name;
    }
    return with_options(read_model_file(file), options);
}

int tell_setup(const CheckOptions& options, const SetupSource& source) {
    SetupView view = read_view(source.path(), options.output, source.name());
    CheckRecord record{OVRI_VERSION, view.path, check_view(view), {}, {}, {}};
    const std::string text = describe_setup(view);
    if (!text.empty() && !options.json && !options.quiet) {
        print(stdout, "{}: {}\n", view.path, text);
    }
    return tell(record, options);
}

int check(const CheckOptions& options) {
    const std::string& path = options.model.model;
    const bool by_options = !options.model.network.empty() || !options.model.effects.empty();
    if (path.empty()) {
        if (const std::string mistake = model_mistake(options.model); !mistake.empty()) {
            print(stderr, "ovri: {}\n",
                  by_options ? mistake : "FILE is missing: name a model file or a setup file");
            return kNotUnderstood;
        }
        return tell_model(options, model_of(options.model), options.model.network);
    }
    const SetupSource source(path);
    if (by_options || is_model_file(source.path())) {
        return tell_model(options, model_at(source.path(), source.name(), options.model),
                          source.name());
    }
    return tell_setup(options, source);
}

std::function<int()> declare_check(CLI::App& app) {
    const auto options = std::make_shared<CheckOptions>();
    add_word(app, "FILE", options->model.model,
             "The model file or setup file; - stands for standard input.");
    add_data(app, options->model);
    add_output(app, options->output,
               "Check DIR as the output directory of a setup file, as `ovri run --output DIR` "
               "would use it.");
    add_flag(app, "--json", options->json, "Print the findings as a JSON document.");
    add_flag(app, "-q,--quiet", options->quiet,
             "Findings alone: not what was read, nor their sum.");
    add_colour(app, options->colour);
    return [options] { return check(*options); };
}

}  // namespace

extern const Command kCheckCommand = {
    .name = "check",
    .summary = "explain what is wrong or surprising in a model file or a setup file",
    .examples = R"(
  ovri check karate.toml
  ovri check --network karate.csv --undirected --effects 'edge,AT(2)'
  ovri check karate.toml --json
  ovri check examples/florentine/florentine.setup
  ovri check examples/florentine/florentine.setup --output /tmp
  sed s/results/elsewhere/ examples/florentine/florentine.setup | ovri check -
)",
    .details = R"(
Reads the file and every file it names just as a run reads them, and writes
nothing.

Of a model (a file that ends in .toml or begins with a [section], or the same
things as options) it tells everything that `ovri estimate` would find out
before it begins: files, keys, values, names of effects and attributes, lambdas,
effects that drift, that depend on each other, or whose estimate would be
infinite.

A setup file is read by position: each value stands behind a label of
one word, and the label is for people only. So a label with a blank in it, a
number too few or a row too many moves everything behind it to the wrong place,
and the run itself would not notice.

Each finding tells file, line, column and item, then what was found, what is
expected and how to mend it:

  error      the run would not do what the file says, or cannot come to a sound
             end: files that are missing, values that cannot be read, counts
             that do not match, a matrix that is none, rows labelled as another
             row, an output directory that cannot be written, settings under
             which the network could never change, an estimation of effects that
             no data tell apart or of a statistic at an end of its range
  warning    legal but surprising: values that are ignored, a lambda that switches
             an effect off, settings that give no samples or take days

Findings go to standard output. `ovri run` makes the same check first.
)",
    .statuses = R"(
Exit status: 0 no errors (there may be warnings); 1 errors; 2 the command line
was not understood.
)",
    .declare = declare_check};
