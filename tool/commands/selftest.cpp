#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>

#include "commands/commands.h"
#include "commands/options.h"
#include "show/known_answer_table.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"
#include "terminal/progress.h"

namespace {

struct SelftestOptions {
    bool json = false;
    bool quiet = false;
    std::optional<std::uint32_t> threads;
    ColourChoice colour = ColourChoice::automatic;
};

std::optional<std::vector<KnownAnswer>> perform(const SelftestOptions& options) {
    RunProgress progress;
    const InterruptScope interrupt(progress.stop);
    std::optional<ProgressDisplay> display;
    if (!options.quiet && is_terminal(stderr)) {
        display.emplace(progress, stderr);
    }
    try {
        return known_answers(static_cast<int>(options.threads.value_or(0)), progress);
    } catch (const RunStopped&) {
        return std::nullopt;
    }
}

int selftest(const SelftestOptions& options) {
    outlive_failed_writes();
    const auto begin = std::chrono::steady_clock::now();
    const std::optional<std::vector<KnownAnswer>> answers = perform(options);
    if (!answers) {
        print(stderr, "ovri: interrupted\n");
        return kInterrupted;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    const auto wrong = std::count_if(answers->begin(), answers->end(),
                                     [](const KnownAnswer& each) { return !is_as_expected(each); });
    if (options.json) {
        print(stdout, "{}", known_answer_json(*answers, seconds.count()));
    } else {
        const Screen screen = screen_on(stdout, options.colour);
        const std::string differ = fmt::format("{} of {} differ", wrong, answers->size());
        print(stdout, "{}\n{} ({:.1f} seconds)\n", known_answer_table(*answers),
              wrong == 0 ? fmt::format("all {} as expected", answers->size())
                         : painted(screen, Colour::red, differ),
              seconds.count());
    }
    if (lost_output(stdout)) {
        print(stderr, "ovri: standard output could not be written\n");
        return kNotCompleted;
    }
    return wrong == 0 ? kDone : kNotCompleted;
}

std::function<int()> declare_selftest(CLI::App& app) {
    const auto options = std::make_shared<SelftestOptions>();
    add_flag(app, "--json", options->json, "Print a JSON document instead.");
    add_threads(app, options->threads);
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return selftest(*options); };
}

}  // namespace

extern const Command kSelftestCommand = {.name = "selftest",
                                         .summary = "known answers, computed here and now",
                                         .examples = R"(
  ovri selftest
  ovri selftest --json
)",
                                         .details = R"(
Estimates models whose answers are known and compares: closed forms, a logistic
regression, models of six and of four actors whose every network is gone through,
published networks whose estimates are known from long runs, and a run of the three
phases of setup files, number for number. No file is read or written. Seeds are fixed.

"difference" counts standard errors of the estimate; of a standard error, shares of
itself; of a log-likelihood, its own units. Computed answers may differ by rounding
(1e-9), simulated estimates and log-likelihoods by 0.1, standard errors by 0.05.
)",
                                         .statuses = R"(
Exit status: 0 every answer is as expected; 2 the command line was not understood; 3
some differ, or standard output could not be written; 130 interrupted by Ctrl-C.
)",
                                         .declare = declare_selftest};
