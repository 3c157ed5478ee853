#include "commands/bootstrap_parts.h"

#include <chrono>
#include <nlohmann/json.hpp>

#include "show/document_pieces.h"
#include "terminal/watched.h"

namespace {

using Json = nlohmann::ordered_json;

}  // namespace

std::optional<int> DividedBootstrap::run(const PartRun& run) {
    const PartFiles files(
        folder_.directory(),
        divided_run("bootstrap", replicates_, static_cast<int>(*run.options.parts), input_));
    const PartCalls calls = {
        .draw = [this](const WorkPart& part, Json& records) { return draw(part, records); },
        .take = [this](const Json& records) { return take(records); }};
    if (const auto status = run_parts(files, run, calls)) {
        return status;
    }
    if (!watched(with_progress_, [this](RunProgress& progress) { find_estimate(progress); })) {
        return tell_interrupted(folder_, "keeps its parts");
    }
    if (drawn_at() != taken_at_) {
        return tell_unlike(files, 1, "was drawn at other estimates than this machine finds");
    }
    return std::nullopt;
}

std::optional<StudyBootstrap> DividedBootstrap::bootstrap() const {
    if (estimate_->verdict != StudyVerdict::converged) {
        return std::nullopt;
    }
    StudyBootstrap bootstrap = bootstrap_summary(*estimate_, all_);
    bootstrap.seconds = seconds_;
    return bootstrap;
}

PartDrawn DividedBootstrap::draw(const WorkPart& part, Json& records) {
    using Clock = std::chrono::steady_clock;
    folder_.reopen();
    std::vector<BootstrapReplicate> drawn;
    double seconds = 0.0;
    const bool whole = watched(with_progress_, [&](RunProgress& progress) {
        find_estimate(progress);
        const Clock::time_point begin = Clock::now();
        if (estimate_->verdict == StudyVerdict::converged) {
            drawn = bootstrap_replicates(input_.files.study, input_.resolved, *estimate_, part,
                                         progress);
        }
        seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    });
    if (!whole) {
        return PartDrawn::interrupted;
    }
    records = Json();
    records["seconds"] = seconds;
    records["drawn_at"] = exact_numbers(drawn_at());
    records["replicates"] = Json::array();
    for (const BootstrapReplicate& each : drawn) {
        Json json;
        json["verdict"] = study_verdict_name(each.verdict);
        json["proposals"] = each.proposals;
        json["estimates"] = exact_numbers(each.estimates);
        json["standard_errors"] = exact_numbers(each.standard_errors);
        records["replicates"].push_back(std::move(json));
    }
    return PartDrawn::done;
}

// A machine whose arithmetic is another, or a limit of time, may give other estimates.
std::string DividedBootstrap::take(const Json& records) {
    const std::vector<double> taken_at = exact_numbers_at(records.at("drawn_at"));
    if (taken_at_ && *taken_at_ != taken_at) {
        return "was drawn at other estimates than the parts before it";
    }
    taken_at_ = taken_at;
    seconds_ += records.at("seconds").get<double>();
    for (const Json& json : records.at("replicates")) {
        const auto verdict = study_verdict_of(json.at("verdict").get<std::string>());
        if (!verdict) {
            return "is damaged";
        }
        all_.push_back({*verdict, exact_numbers_at(json.at("estimates")),
                        exact_numbers_at(json.at("standard_errors")),
                        json.at("proposals").get<double>()});
    }
    return "";
}

void DividedBootstrap::find_estimate(RunProgress& progress) {
    if (estimate_) {
        return;
    }
    StudyEstimate found = study_estimate(input_.files.study, input_.resolved,
                                         *input_.files.study.settings.run.seed, progress);
    if (found.interrupted) {
        throw RunStopped();
    }
    estimate_ = std::move(found);
}

std::vector<double> DividedBootstrap::drawn_at() const {
    return estimate_->verdict == StudyVerdict::converged ? estimates_of(*estimate_)
                                                         : std::vector<double>();
}
