#include "commands/help_topics.h"

#include <algorithm>

#include "study/study.h"
#include "terminal/print.h"

namespace {

// The defaults are those of the records, so that the page cannot fall behind them.
std::string estimation_page() {
    const StudyEstimation estimation;
    return fmt::format(R"([estimation] of a model file, with the defaults:

  method         = "{}"  auto, mcmle, mple or stochastic-approximation
  attempts       = {}      runs of the stochastic approximation until one converges
  precision      = 0       largest Monte Carlo error of an estimate, in its standard
                           errors; 0 is by number of actors: 0.02 up to 100, 0.05 above
  time_limit     = {}       seconds; 0 for none
  chains         = {}       that simulate side by side; results depend on it, never on
                           the number of threads
  bootstrap      = {}       networks of the model that are estimated too, for intervals
                           that do not lean on large samples; 0 for none
  subphases      = {}       of the stochastic approximation
  gain           = {}     of its first sub-phase
  multiplication = {}      length of its steps, in units of d (1 - d) n^2 proposals
                           (d the observed density, n the actors)
  samples        = {}    of its third phase

Methods:
  auto   the exact maximum where the model's dyads do not depend on each other; else
         mcmle, with the stochastic approximation where that fails
  mcmle  Monte Carlo maximum likelihood, begun at the maximum pseudo-likelihood
  mple   maximum pseudo-likelihood: quick, and exact only where dyads do not depend
         on each other; its standard errors are too small elsewhere
  stochastic-approximation
         three phases, number for number those of a setup file's run at the seed

`ovri help estimate` tells the options that stand in place of these.
)",
                       estimation_method_name(estimation.method), estimation.attempts,
                       estimation.time_limit, estimation.chains, estimation.bootstrap,
                       estimation.subphases, estimation.gain, estimation.multiplication,
                       estimation.samples);
}

std::string model_page() {
    return R"page(A model file is TOML. `ovri new NETWORK` writes one. Paths are relative to it.

  [network]
  file      = "friends.csv"   edge list, matrix, Pajek, GraphML, GML or UCINET DL
  format    = "edge-list"     where the name does not tell
  directed  = false           may be left out where the file says it
  nodes     = "people.csv"    a row an actor, the first column the name
  threshold = 2               of a weighted list: ties of at least this weight
  head      = true            whether the first line holds names of columns

  [attributes]                only where the guess from the column is wrong
  team = "categorical"        binary, continuous or categorical
  age  = { type = "continuous", missing = "keep" }
                              two values are binary: 1 is the yes of yes and no (true,
                              ja, oui, ...), the larger number, or the text that sorts
                              behind; which one it is, is told

  [covariates]
  distance = "distance.csv"   matrix, or lines of from,to,value

  [model]
  effects = ["edge", "AT(2)", "same(team)", "covariate(distance)"]
  start   = { edge = -2.0 }   where the estimation begins
  fixed   = { "AT(2)" = 0.5 } held, not estimated

  [dyads]
  free       = "free.csv"     only these dyads may change
  max_degree = 6              no actor gets more ties

  [estimation]                `ovri help estimation` has the keys
  [gof]                       samples, burn_in, interval (0: found by a short run)
  [simulation]                samples, burn_in, interval, format
  [run]                       seed, threads

`ovri effects` lists the effects.
)page";
}

std::string results_page() {
    return R"(A results folder is complete when it holds result.json, which is written last.

  result.json     everything: verdict, estimates, covariance, likelihood, diagnosis
  estimates.csv   a row an effect
  covariance.csv  of the estimates
  sample.csv      statistics of simulated networks, a row a sample
  bootstrap.csv   estimates of a bootstrap's networks, where one was asked for
  gof.json        of `ovri gof`, with gof.csv
  networks/       of `ovri simulate`, with nodes.csv where it is needed
  report.html     of `ovri report`, with figures/
  model.toml      the model as it was run: running it gives the same numbers
  run.log         version, command, times, what was read, every warning

Without -o the folder is NAME.results, NAME.results.2 and so on: nothing is ever
overwritten without --overwrite.

Verdicts of an estimation, with their exit statuses:

  converged       0  every t-ratio below 0.1 in size, and nothing of the below
  not_converged   4  do not use the estimates; the effects are named
  not_identified  5  effects depend on each other, or an estimate would be infinite
  degenerate      5  networks of the model fall apart, or a statistic never moved

Other statuses: 1 errors were found and nothing was written; 2 the command line was
not understood; 3 begun and not completed (disk full, memory); 130 interrupted.
)";
}

}  // namespace

const std::vector<HelpTopic>& help_topics() {
    static const std::vector<HelpTopic> kTopics = {
        {"model", "what a model file holds", model_page},
        {"estimation", "methods of estimation, their settings and defaults", estimation_page},
        {"results", "what a results folder holds; verdicts and exit statuses", results_page}};
    return kTopics;
}

const HelpTopic* find_help_topic(const std::string& name) {
    const std::vector<HelpTopic>& topics = help_topics();
    const auto place = std::find_if(topics.begin(), topics.end(),
                                    [&](const HelpTopic& each) { return each.name == name; });
    return place != topics.end() ? &*place : nullptr;
}
