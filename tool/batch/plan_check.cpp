#include "batch/plan_check.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>

#include "study/study_simulate.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr double kProgramBytes = 64e6;
constexpr std::int64_t kTrialProposals = 20000;

StudyInput read_pair(const Plan& plan, const Job& job) {
    return read_study_to_estimate(job_model(plan, job));
}

// Steps of the sub-phases, of which each is 2.52 times as long as the one before, and the samples
// behind them, each `multiplication` times d (1 - d) n^2 proposals long.
double proposals_of(const StudyInput& input) {
    const StudyEstimation& settings = input.files.study.settings.estimation;
    const ResultNetwork network = result_network(input);
    const double n = network.actors;
    const double parameters = static_cast<double>(input.resolved.names.size());
    double steps = settings.samples + 7.0 + 3.0 * parameters;
    for (int k = 1; k <= settings.subphases; ++k) {
        steps += std::pow(2.52, k) * (7.0 + parameters);
    }
    const double density = std::isfinite(network.density) ? network.density : 0.0;
    return steps * settings.multiplication * density * (1.0 - density) * n * n;
}

// Problems by their text, in the order in which they were first found.
class ProblemList {
  public:
    void add(const Problem& problem, const PlanNetwork& network) {
        const auto [place, is_new] = places_.try_emplace(problem_text(problem), problems_.size());
        if (!is_new) {
            ++further_[place->second];
            return;
        }
        problems_.push_back(problem);
        further_.push_back(0);
        // What stands in the network's own files says so itself.
        names_.push_back(
            problem.file == network.file || problem.file == network.nodes ? "" : network.name);
    }

    Problems told() const {
        Problems told = problems_;
        for (std::size_t k = 0; k < told.size(); ++k) {
            if (!names_[k].empty()) {
                told[k].found +=
                    " (network `" + names_[k] + "`" +
                    (further_[k] > 0 ? " and " + std::to_string(further_[k]) + " more" : "") + ")";
            }
        }
        return told;
    }

  private:
    std::map<std::string, std::size_t> places_;
    Problems problems_;
    std::vector<int> further_;
    std::vector<std::string> names_;
};

void check_pair(const Plan& plan, const Job& job, ProblemList& problems, PlanCheck& check) {
    const StudyInput input = read_pair(plan, job);
    for (const Problem& each : input.problems) {
        problems.add(each, plan.networks[job.network]);
    }
    if (input.ok()) {
        check.costs[static_cast<std::size_t>(pair_of(plan, job))] = job_cost(input);
    }
}

int dearest_pair(const PlanCheck& check) {
    const auto place = std::max_element(
        check.costs.begin(), check.costs.end(),
        [](const JobCost& one, const JobCost& other) { return one.work < other.work; });
    return static_cast<int>(place - check.costs.begin());
}

}  // namespace

JobCost job_cost(const StudyInput& input) {
    JobCost cost;
    const double n = result_network(input).actors;
    const auto effects = static_cast<double>(input.resolved.names.size());
    const auto covariates = static_cast<double>(input.files.study.covariates.size());
    cost.proposals = proposals_of(input);
    cost.work = cost.proposals * (1.0 + effects);
    cost.bytes = kProgramBytes + n * n * (16.0 + 8.0 * covariates) +
                 16.0 * effects * input.files.study.settings.estimation.samples;
    return cost;
}

PlanCheck check_plan(const Plan& plan) {
    PlanCheck check;
    ProblemList problems;
    check.costs.resize(static_cast<std::size_t>(pair_count(plan)));
    const int seeds = static_cast<int>(plan.seeds.size());
    for (int pair = 0; pair < pair_count(plan); ++pair) {
        check_pair(plan, job_at(plan, pair * seeds + 1), problems, check);
    }
    check.problems = problems.told();
    return check;
}

PlanCheck check_job(const Plan& plan, const Job& job) {
    PlanCheck check;
    ProblemList problems;
    check.costs.resize(static_cast<std::size_t>(pair_count(plan)));
    check_pair(plan, job, problems, check);
    check.problems = problems.told();
    return check;
}

double seconds_per_proposal(const Plan& plan, const PlanCheck& check) {
    const int seeds = static_cast<int>(plan.seeds.size());
    StudyInput input = read_pair(plan, job_at(plan, dearest_pair(check) * seeds + 1));
    if (!input.ok()) {
        return 0.0;
    }
    const std::vector<double> parameters(input.resolved.names.size(), 0.0);
    RunProgress progress;
    const auto begin = Clock::now();
    study_simulate(input.files.study, input.resolved, parameters,
                   {.samples = 1, .burn_in = kTrialProposals, .interval = 1}, 1, progress,
                   [](const StudySample&) {});
    return std::chrono::duration<double>(Clock::now() - begin).count() /
           static_cast<double>(kTrialProposals);
}
