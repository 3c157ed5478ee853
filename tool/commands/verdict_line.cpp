#include "commands/verdict_line.h"

#include <algorithm>

#include "commands/commands.h"
#include "terminal/print.h"

namespace {

// "stochastic approximation, 3 runs, seed 1".
std::string method_words(const ResultRecord& result, std::size_t runs) {
    if (result.verdict == "not_identified" && result.proposals == 0.0) {
        return "found before anything was simulated";
    }
    if (result.method == "exact") {
        return "exact: its dyads do not depend on each other, nothing was simulated";
    }
    if (result.method == "mple") {
        return "maximum pseudo-likelihood; its standard errors are too small where ties depend on "
               "each other";
    }
    if (result.method == "mcmle") {
        return fmt::format("Monte Carlo maximum likelihood, {}, seed {}",
                           counted(result.diagnosis ? result.diagnosis->chains : 0, "chain"),
                           result.seed);
    }
    return fmt::format("stochastic approximation, {}, seed {}",
                       counted(static_cast<int>(runs), "run"), result.seed);
}

}  // namespace

std::string verdict_line(const ResultRecord& result, std::size_t runs, const Screen& out) {
    const std::string how = method_words(result, runs);
    if (result.exit_status == kDone) {
        return result.method == "exact" || result.method == "mple"
                   ? fmt::format("converged ({})\n", how)
                   : fmt::format("converged: every t-ratio is below 0.1 in size ({})\n", how);
    }
    std::string name = result.verdict;
    std::replace(name.begin(), name.end(), '_', ' ');
    std::string text =
        fmt::format("{}: do not use these estimates ({})\n", painted(out, Colour::red, name), how);
    for (const std::string& reason : result.reasons) {
        text += "  " + reason + "\n";
    }
    text += "what to try next:\n";
    for (const std::string& command : result.advice) {
        text += "  " + command + "\n";
    }
    return text;
}
