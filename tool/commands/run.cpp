#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <stdexcept>
#include <vector>

#include "base/open_file.h"
#include "check/checks.h"
#include "check/memory.h"
#include "check/overview.h"
#include "commands/commands.h"
#include "commands/options.h"
#include "commands/outcome.h"
#include "commands/reseeding.h"
#include "commands/results.h"
#include "commands/setup_source.h"
#include "run/run.h"
#include "terminal/interrupt.h"
#include "terminal/machine.h"
#include "terminal/print.h"
#include "terminal/progress.h"
#include "terminal/terminal.h"

namespace {

#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif

struct RunOptions {
    std::string setup;
    // Stands for the setup file's output directory when not empty.
    std::string output;
    // At most one of the two is set.
    std::optional<std::uint32_t> clock;
    std::optional<std::uint32_t> seed;
    bool quiet = false;
    bool unchecked = false;
    // Runs in spite of errors.
    bool forced = false;
    ColourChoice colour = ColourChoice::automatic;
};

// False when errors forbid the run.
bool check_first(SetupView& view, const RunOptions& options) {
    const Findings findings = check_view(view);
    const bool fine = count_findings(findings, Severity::error) == 0;
    print_findings(findings, !options.quiet, screen_on(stderr, options.colour));
    if (!fine) {
        print(stderr, "{}: {}; {}\n", view.path, findings_summary(findings),
              options.forced ? "run all the same (--force)"
                             : "nothing was run and nothing was written");
    }
    return fine || options.forced;
}

// False when the setup file does not even name a run.
bool can_begin(const SetupView& view) {
    if (view.setup.selection.catalogue != nullptr) {
        return true;
    }
    print(stderr, "{}: the setup file cannot be read far enough to know what to run\n", view.path);
    return false;
}

// Where the run's own text waits while a progress line has the terminal; standard output when it
// need not wait.
FileHandle console_beside_progress(bool with_progress) {
    return FileHandle(with_progress && is_terminal(stdout) ? std::tmpfile() : nullptr);
}

void copy_to_output(std::FILE* console) {
    std::rewind(console);
    int character = std::getc(console);
    while (character != EOF) {
        std::putchar(character);
        character = std::getc(console);
    }
}

// Performs the run, with a progress line on a terminal.
Outcome perform(const std::string& setup, HostOptions options, bool with_progress) {
    Outcome outcome;
    RunProgress progress;
    options.progress = &progress;
    options.file_failures = &outcome.failures;
    const FileHandle waiting = console_beside_progress(with_progress);
    options.console = waiting != nullptr ? waiting.get() : stdout;
    outlive_failed_writes();
    {
        const InterruptScope interrupt(progress.stop);
        std::optional<ProgressDisplay> display;
        if (with_progress) {
            display.emplace(progress, stderr);
        }
        try {
            run_setup_file(setup, options);
            if (progress.stage.load() != RunStage::done && progress.stop.load()) {
                outcome.end = Outcome::End::interrupted;
            }
        } catch (const std::bad_alloc&) {
            outcome.end = Outcome::End::no_memory;
        } catch (const std::length_error&) {
            // A table of a size that no memory could hold.
            outcome.end = Outcome::End::no_memory;
        } catch (const std::exception& error) {
            outcome.end = Outcome::End::broken_off;
            outcome.reason = error.what();
        }
    }
    if (waiting != nullptr) {
        copy_to_output(waiting.get());
    }
    outcome.console_lost = lost_output(stdout);
    return outcome;
}

// False, and told, when the run would take more memory than there is.
bool has_memory(const SetupView& view) {
    const std::optional<MemoryShortage> shortage = memory_shortage(view.setup);
    if (shortage) {
        print(stderr, "{}: the run {}; {}; nothing was run and nothing was written\n", view.path,
              shortage_text(*shortage), largest_part_text(*shortage));
    }
    return !shortage;
}

void summarise(const SetupView& view, const Results& results, const Reseeding& reseeding,
               const std::vector<std::string>& written) {
    const std::string what = describe_setup(view);
    print(stderr, "Done{}{}\n", what.empty() ? "" : ": ", what);
    reseeding.summarise(stderr);
    print(stderr, "Results:\n");
    for (const std::string& path : written) {
        const char* earlier = results.earlier_file(path);
        print(stderr, "  {}{}\n", path, earlier == nullptr ? "" : fmt::format(" ({})", earlier));
    }
    if (!results.sample_prefix().empty()) {
        print(stderr, "  {}*.txt (one report for each sample)\n", results.sample_prefix());
    }
}

int run(const RunOptions& options) {
    const SetupSource source(options.setup);
    SetupView view = read_view(source.path(), options.output, source.name());
    if ((!options.unchecked && !check_first(view, options)) || !can_begin(view)) {
        return kErrorsFound;
    }
    if (!has_memory(view)) {
        return kErrorsFound;
    }
    Reseeding reseeding(options.clock, options.seed);
    HostOptions host;
    host.path_separator = kSeparator;
    host.output_directory = options.output;
    host.updates_beside_outputs = true;
    host.clock_seconds = reseeding.clock();
    reseeding.announce(stderr);
    const Results results(view, kSeparator);
    const Outcome outcome = perform(source.path(), host, !options.quiet && is_terminal(stderr));
    const std::vector<std::string> written = results.written();
    tell_outcome(outcome, view.path, written, stderr);
    if (written.empty()) {
        print(stderr, "{}: the run left no results in {}\n", view.path, output_directory(view));
    }
    if (exit_status(outcome) != kDone || written.empty()) {
        return outcome.end == Outcome::End::interrupted ? kInterrupted : kNotCompleted;
    }
    if (!options.quiet) {
        summarise(view, results, reseeding, written);
    }
    return kDone;
}

std::function<int()> declare_run(CLI::App& app) {
    const auto options = std::make_shared<RunOptions>();
    add_setup(app, options->setup);
    CLI::Option& seed = add_number(
        app, "--seed", options->seed,
        "Draw from seed N. A run reseeds its random numbers several times, each time with a number "
        "mixed of N and of how often it has done so: neither its parts nor runs of neighbouring "
        "seeds share anything. The seed is always shown.");
    exclude(add_number(app, "--clock", options->clock,
                       "Hold the clock at second N: every reseeding uses N."),
            seed);
    add_output(app, options->output,
               "Write into the directory DIR, which must exist, in place of the one the setup file "
               "names. Files that are read stay where they are.");
    add_flag(app, "-q,--quiet", options->quiet,
             "Show no warnings, no progress and no summary; errors and the seed are shown all "
             "the same.");
    add_flag(app, "--force", options->forced,
             "Show the errors of the check, and run all the same. What a run does then is what "
             "its files say, not what their writer may have meant.");
    add_flag(app, "--no-check", options->unchecked,
             "Run without the check. Values that cannot be read then keep their defaults, "
             "silently.");
    add_colour(app, options->colour);
    return [options] { return run(*options); };
}

}  // namespace

extern const Command kRunCommand = {.name = "run",
                                    .summary = "perform the run that a setup file describes",
                                    .examples = R"(
  ovri run examples/florentine/florentine.setup
  ovri run examples/florentine/florentine.setup --seed 1 --output /tmp
  ovri run examples/karate/karate_fit.setup --quiet > console.txt
)",
                                    .details = R"(
The setup file and every file it names are checked first (see `ovri help check`).
Errors stop the run before anything is written, unless --force is given; warnings
are shown and stop nothing. Then the run writes its results into the output
directory, and the files with the estimates (update files) beside them. Some
results are added to the end of a file that an earlier run has left; the summary
names every file.

N is a whole number from 0 to 4294967295. With neither --seed nor --clock the
seed is taken from the system's entropy. The same setup, data and --seed (or
--clock) give the same results.

The run's own text goes to standard output, and nothing else does. Warnings,
errors, progress and the summary go to standard error; progress is shown only
when that is a terminal. With the run's text on a terminal too, it comes at the
end.
)",
                                    .statuses = R"(
Exit status: 0 the run is done; 1 the check found errors; 2 the command line was
not understood; 3 the run could not be completed (memory ran out, or not
everything could be written); 130 it was interrupted by Ctrl-C.
)",
                                    .declare = declare_run};
