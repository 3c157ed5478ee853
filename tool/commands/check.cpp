
#include "check/checks.h"
#include "check/overview.h"
#include "commands/commands.h"
#include "commands/options.h"
#include "commands/setup_source.h"
#include "terminal/print.h"

namespace {

struct CheckOptions {
    std::string setup;
    // Stands for the setup file's output directory when not empty.
    std::string output;
    ColourChoice colour = ColourChoice::automatic;
};

int check(const CheckOptions& options) {
    const SetupSource source(options.setup);
    SetupView view = read_view(source.path(), options.output, source.name());
    const Findings findings = check_view(view);
    if (const std::string text = describe_setup(view); !text.empty()) {
        print(stdout, "{}: {}\n", view.path, text);
    }
    print_findings(findings, true, screen_on(stdout, options.colour));
    print(stdout, "{}: {}\n", view.path,
          findings.list.empty() ? "no errors, no warnings" : findings_summary(findings));
    return count_findings(findings, Severity::error) > 0 ? kErrorsFound : kDone;
}

std::function<int()> declare_check(CLI::App& app) {
    const auto options = std::make_shared<CheckOptions>();
    add_setup(app, options->setup);
    add_output(app, options->output,
               "Check DIR as the output directory, as `ovri run --output DIR` would use it.");
    add_colour(app, options->colour);
    return [options] { return check(*options); };
}

}  // namespace

extern const Command kCheckCommand = {
    .name = "check",
    .summary = "explain what is wrong or surprising in a setup file",
    .examples = R"(
  ovri check examples/florentine/florentine.setup
  ovri check examples/florentine/florentine.setup --output /tmp
  sed s/results/elsewhere/ examples/florentine/florentine.setup | ovri check -
)",
    .details = R"(
Reads the setup file and every file it names just as a run reads them, and writes
nothing. A setup file is read by position: each value stands behind a label of
one word, and the label is for people only. So a label with a blank in it, a
number too few or a row too many moves everything behind it to the wrong place,
and the run itself would not notice.

Each finding tells file, line and item, then what was found, what is expected and
how to mend it:

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
