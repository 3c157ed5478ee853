#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <stdexcept>
#include <vector>

#include "base/open_file.h"
#include "check/checks.h"
#include "check/overview.h"
#include "commands/commands.h"
#include "commands/outcome.h"
#include "commands/reseeding.h"
#include "commands/results.h"
#include "run/run.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"
#include "terminal/terminal.h"

namespace {

#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif

// False when errors forbid the run.
bool check_first(SetupView& view, const Arguments& arguments) {
    const Findings findings = check_view(view);
    const bool fine = count_findings(findings, Severity::error) == 0;
    print_findings(findings, !arguments.quiet, stderr);
    if (!fine) {
        std::fprintf(stderr, "%s: %s; nothing was run and nothing was written\n", view.path.c_str(),
                     findings_summary(findings).c_str());
    }
    return fine;
}

// False when the setup file does not even name a run.
bool can_begin(const SetupView& view) {
    if (view.setup.selection.catalogue != nullptr) {
        return true;
    }
    std::fprintf(stderr, "%s: the setup file cannot be read far enough to know what to run\n",
                 view.path.c_str());
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
Outcome perform(const Arguments& arguments, HostOptions options, bool with_progress) {
    Outcome outcome;
    RunProgress progress;
    options.progress = &progress;
    options.write_failures = &outcome.failures;
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
            run_setup_file(arguments.setup, options);
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

void summarise(const SetupView& view, const Results& results, const Reseeding& reseeding,
               const std::vector<std::string>& written) {
    const std::string what = describe_setup(view);
    std::fprintf(stderr, "Done%s%s\n", what.empty() ? "" : ": ", what.c_str());
    reseeding.summarise(stderr);
    std::fprintf(stderr, "Results:\n");
    for (const std::string& path : written) {
        const char* earlier = results.earlier_file(path);
        std::fprintf(stderr, earlier == nullptr ? "  %s\n" : "  %s (%s)\n", path.c_str(), earlier);
    }
    if (!results.sample_prefix().empty()) {
        std::fprintf(stderr, "  %s*.txt (one report for each sample)\n",
                     results.sample_prefix().c_str());
    }
}

}  // namespace

int run_command(const Arguments& arguments) {
    SetupView view = read_view(arguments.setup, arguments.output);
    if ((arguments.check_first && !check_first(view, arguments)) || !can_begin(view)) {
        return kErrorsFound;
    }
    Reseeding reseeding(arguments);
    HostOptions options;
    options.path_separator = kSeparator;
    options.output_directory = arguments.output;
    options.updates_beside_outputs = true;
    options.clock_seconds = reseeding.clock();
    reseeding.announce(stderr);
    const Results results(view, kSeparator);
    const Outcome outcome = perform(arguments, options, !arguments.quiet && is_terminal(stderr));
    const std::vector<std::string> written = results.written();
    tell_outcome(outcome, view.path, written, stderr);
    if (written.empty()) {
        std::fprintf(stderr, "%s: the run left no results in %s\n", view.path.c_str(),
                     output_directory(view).c_str());
    }
    if (exit_status(outcome) != kDone || written.empty()) {
        return outcome.end == Outcome::End::interrupted ? kInterrupted : kNotCompleted;
    }
    if (!arguments.quiet) {
        summarise(view, results, reseeding, written);
    }
    return kDone;
}
