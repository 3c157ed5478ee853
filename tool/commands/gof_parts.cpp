#include "commands/gof_parts.h"

#include <nlohmann/json.hpp>

#include "show/document_pieces.h"
#include "terminal/watched.h"

namespace {

using Json = nlohmann::ordered_json;

Json measures_json(const GofMeasures& measures) {
    Json json;
    json["statistics"] = exact_numbers(measures.statistics);
    json["distributions"] = Json::array();
    for (const SparseCounts& counts : measures.distributions) {
        Json entries = Json::array();
        for (const auto& [entry, count] : counts) {
            entries.push_back(Json::array({entry, count}));
        }
        json["distributions"].push_back(std::move(entries));
    }
    return json;
}

GofMeasures measures_at(const Json& json) {
    GofMeasures measures;
    measures.statistics = exact_numbers_at(json.at("statistics"));
    for (const Json& entries : json.at("distributions")) {
        SparseCounts counts;
        for (const Json& each : entries) {
            counts.emplace_back(each.at(0).get<int>(), each.at(1).get<double>());
        }
        measures.distributions.push_back(std::move(counts));
    }
    return measures;
}

// What the networks are drawn with beside the model: they may come from a results folder.
std::vector<double> numbers_of(const Tested& tested, const GofSettings& settings) {
    std::vector<double> numbers = tested.parameters;
    numbers.insert(numbers.end(), settings.covariance.cells.begin(),
                   settings.covariance.cells.end());
    return numbers;
}

}  // namespace

std::optional<int> DividedGof::run(const std::string& directory, const PartRun& run,
                                   ResultsFolder* own) {
    const PartFiles files(
        directory, divided_run("gof", settings_.samples, static_cast<int>(*run.options.parts),
                               tested_.input, numbers_of(tested_, settings_)));
    const PartCalls calls = {.draw =
                                 [&](const WorkPart& part, Json& records) {
                                     if (own != nullptr) {
                                         own->reopen();
                                     }
                                     return draw(part, records);
                                 },
                             .take = [this](const Json& records) { return take(records); }};
    return run_parts(files, run, calls);
}

PartDrawn DividedGof::draw(const WorkPart& part, Json& records) {
    const Study& study = tested_.input.files.study;
    const StudySelection& resolved = tested_.input.resolved;
    GofDraws draws;
    const bool whole = watched(with_progress_, [&](RunProgress& progress) {
        if (!interval_) {
            interval_ = gof_interval(study, resolved, tested_.parameters, settings_, progress);
        }
        GofSettings settings = settings_;
        settings.interval = interval_->interval;
        draws = gof_draws(study, resolved, tested_.parameters, settings, part, progress);
    });
    if (!whole) {
        return PartDrawn::interrupted;
    }
    records = Json();
    records["interval"] = interval_->interval;
    records["pilots"] = interval_->proposals;
    records["proposals"] = draws.proposals;
    records["samples"] = Json::array();
    for (const GofMeasures& each : draws.samples) {
        records["samples"].push_back(measures_json(each));
    }
    return PartDrawn::done;
}

// A machine whose arithmetic is another may find another interval.
std::string DividedGof::take(const Json& records) {
    const auto interval = records.at("interval").get<std::int64_t>();
    if (!samples_.empty() && interval != taken_.interval) {
        return "has another interval than the parts before it";
    }
    taken_ = {interval, records.at("pilots").get<double>()};
    proposals_ += records.at("proposals").get<double>();
    for (const Json& each : records.at("samples")) {
        samples_.push_back(measures_at(each));
    }
    return "";
}

StudyGof DividedGof::comparison() const {
    StudyGof gof = gof_comparison(tested_.input.files.study, tested_.input.resolved, samples_);
    gof.seed = settings_.seed;
    gof.interval = taken_.interval;
    gof.proposals = taken_.proposals + proposals_;
    return gof;
}
