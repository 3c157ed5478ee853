#include "batch/summary.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "base/native_path.h"
#include "batch/job_folder.h"
#include "batch/pooled_models.h"
#include "commands/commands.h"
#include "formats/csv.h"
#include "show/document_pieces.h"
#include "show/text_table.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "ovri-summary/1";
constexpr const char* kNotDone = "not_completed";

std::string name_of(const std::string& path) {
    const std::u8string name = native_path(path).filename().u8string();
    return {name.begin(), name.end()};
}

// Lines behind the first two blanks further in.
std::string indented(const std::string& text) {
    std::string shifted;
    for (const char each : text) {
        shifted += each == '\n' ? std::string("\n  ") : std::string(1, each);
    }
    return shifted;
}

// One job, as it stands in the summary.
struct Line {
    Job job;
    std::string verdict;
    std::string reason;  // of a job that was not completed
    const ResultRecord* result = nullptr;
    double seconds = std::nan("");
};

class SummaryWriter {
  public:
    SummaryWriter(const Plan& plan, bool with_times)
        : plan_(plan), with_times_(with_times), pooled_(plan.models.size()) {
        summary_.csv =
            "job,network,model,seed,verdict,effect,estimate,standard_error,t_ratio,seconds\n";
    }

    void add(const Job& job, const JobState& state) {
        Line line{job, kNotDone, state.reason, nullptr, std::nan("")};
        if (state.result) {
            line.result = &*state.result;
            line.verdict = state.result->verdict;
            line.seconds = with_times_ ? state.result->seconds : std::nan("");
            ++summary_.completed;
            summary_.converged += line.verdict == "converged" ? 1 : 0;
        }
        ++summary_.jobs;
        if (line.verdict != "converged") {
            troubled_[line.verdict].push_back(job_name(plan_, job.number));
        }
        add_rows(line);
        jobs_ += (jobs_.empty() ? "" : ",") + ("\n    " + job_json(line).dump());
        pooled_[job.model].add(job, line.verdict, line.result);
    }

    BatchSummary finish() {
        Json pooled = Json::array();
        for (std::size_t model = 0; model < pooled_.size(); ++model) {
            if (plan_.networks.size() > 1) {
                pooled.push_back(pooled_json(model));
                add_table(model);
            }
        }
        for (const auto& [verdict, jobs] : troubled_) {
            summary_.table += fmt::format("{}: {}\n", in_words(verdict), some_of(jobs));
        }
        const Json counts = {{"jobs", summary_.jobs},
                             {"converged", summary_.converged},
                             {"not_converged", summary_.completed - summary_.converged},
                             {"not_completed", summary_.jobs - summary_.completed}};
        // One line a job: a plan may have very many.
        summary_.json = fmt::format(
            "{{\n  \"format\": \"{}\",\n  \"ovri\": \"{}\",\n  \"plan\": {},\n  \"counts\": "
            "{},\n  \"jobs\": [{}\n  ],\n  \"pooled\": {}\n}}\n",
            kFormat, OVRI_VERSION, Json(name_of(plan_.path)).dump(), counts.dump(), jobs_,
            indented(pooled.dump(2)));
        return std::move(summary_);
    }

  private:
    // A job without a result has one row, in which its effects are left out.
    void add_rows(const Line& line) {
        const std::string begin = fmt::format(
            "{},{},{},{},{}", line.job.number, csv_field(plan_.networks[line.job.network].name),
            csv_field(plan_.models[line.job.model].name), line.job.seed, line.verdict);
        if (line.result == nullptr) {
            summary_.csv += begin + ",,,,,\n";
            return;
        }
        for (const ResultEffect& effect : line.result->effects) {
            summary_.csv +=
                fmt::format("{},{},{},{},{},{}\n", begin, csv_field(effect.name),
                            csv_number(effect.estimate), csv_number(effect.standard_error),
                            csv_number(effect.t_ratio), csv_number(line.seconds));
        }
    }

    Json job_json(const Line& line) const {
        Json json;
        json["job"] = line.job.number;
        json["network"] = plan_.networks[line.job.network].name;
        json["model"] = plan_.models[line.job.model].name;
        json["seed"] = line.job.seed;
        json["verdict"] = line.verdict;
        json["reasons"] = line.result != nullptr ? Json(line.result->reasons) : Json{line.reason};
        json["seconds"] = json_number(line.seconds);
        json["effects"] = Json::array();
        if (line.result == nullptr) {
            return json;
        }
        for (const ResultEffect& effect : line.result->effects) {
            json["effects"].push_back({{"name", effect.name},
                                       {"estimate", json_number(effect.estimate)},
                                       {"standard_error", json_number(effect.standard_error)},
                                       {"t_ratio", json_number(effect.t_ratio)}});
        }
        return json;
    }

    Json pooled_json(std::size_t model) const {
        Json json;
        json["model"] = plan_.models[model].name;
        json["effects"] = Json::array();
        for (const PooledModel::Effect& each : pooled_[model].effects()) {
            const PooledEstimate& found = each.pooled;
            json["effects"].push_back({{"name", each.name},
                                       {"networks", found.groups},
                                       {"mean", json_number(found.mean)},
                                       {"standard_error", json_number(found.standard_error)},
                                       {"z", json_number(found.z)},
                                       {"p_value", json_number(found.p_value)},
                                       {"variance", json_number(found.variance)},
                                       {"q", json_number(found.q)},
                                       {"q_degrees", found.degrees},
                                       {"q_p_value", json_number(found.q_p_value)}});
        }
        json["left_out"] = Json::array();
        for (const LeftOut& each : pooled_[model].left_out()) {
            json["left_out"].push_back(
                {{"network", plan_.networks[each.network].name}, {"verdict", each.verdict}});
        }
        return json;
    }

    void add_table(std::size_t model) {
        std::vector<std::vector<std::string>> rows = {
            {"effect", "networks", "mean", "std. error", "p", "variance", "Q", "df", "p of Q"}};
        for (const PooledModel::Effect& each : pooled_[model].effects()) {
            const PooledEstimate& found = each.pooled;
            rows.push_back(
                {each.name, std::to_string(found.groups), decimals_or_dash(found.mean, 4),
                 decimals_or_dash(found.standard_error, 4), decimals_or_dash(found.p_value, 3),
                 decimals_or_dash(found.variance, 4), decimals_or_dash(found.q, 2),
                 std::to_string(found.degrees), decimals_or_dash(found.q_p_value, 3)});
        }
        summary_.table += "pooled over networks: " + plan_.models[model].name + "\n";
        summary_.table += rows.size() > 1 ? text_table(rows) : "no network converged\n";
        for (const LeftOut& each : pooled_[model].left_out()) {
            summary_.table +=
                fmt::format("left out: {} ({})\n", plan_.networks[each.network].name, each.verdict);
        }
        summary_.table += "\n";
    }

    const Plan& plan_;
    bool with_times_;
    std::map<std::string, std::vector<std::string>> troubled_;  // jobs by verdict
    std::vector<PooledModel> pooled_;
    std::string jobs_;  // of the document
    BatchSummary summary_;
};

}  // namespace

BatchSummary summarise(const std::string& directory, const Plan& plan, bool with_times) {
    SummaryWriter writer(plan, with_times);
    JobDigests digests(plan);
    for (int number = 1; number <= job_count(plan); ++number) {
        const Job job = job_at(plan, number);
        writer.add(job, job_state(directory, plan, job, digests.of(job)));
    }
    return writer.finish();
}

std::string some_of(const std::vector<std::string>& names) {
    constexpr std::size_t kMost = 10;
    std::string text;
    for (std::size_t k = 0; k < names.size() && k < kMost; ++k) {
        text += (text.empty() ? "" : ", ") + names[k];
    }
    return names.size() > kMost ? fmt::format("{} and {} more", text, names.size() - kMost) : text;
}

std::vector<std::string> stray_jobs(const std::string& directory, const Plan& plan) {
    std::set<std::string> known;
    for (int number = 1; number <= job_count(plan); ++number) {
        known.insert(job_name(plan, number));
    }
    std::vector<std::string> strays;
    std::error_code problem;
    for (const auto& entry :
         std::filesystem::directory_iterator(native_path(directory + "/jobs"), problem)) {
        const std::u8string bytes = entry.path().filename().u8string();
        const std::string name(bytes.begin(), bytes.end());
        if (entry.is_directory(problem) && known.count(name) == 0) {
            strays.push_back(name);
        }
    }
    std::sort(strays.begin(), strays.end());
    return strays;
}

std::string counts_text(const BatchSummary& summary) {
    return fmt::format("{} {}: {} converged, {} did not, {} not completed", summary.jobs,
                       summary.jobs == 1 ? "job" : "jobs", summary.converged,
                       summary.completed - summary.converged, summary.jobs - summary.completed);
}

int summary_status(const BatchSummary& summary) {
    return summary.completed < summary.jobs   ? kNotCompleted
           : summary.converged < summary.jobs ? kNotConverged
                                              : kDone;
}
