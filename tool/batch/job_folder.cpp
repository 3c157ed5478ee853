#include "batch/job_folder.h"

#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/native_path.h"
#include "commands/commands.h"
#include "commands/estimate.h"
#include "formats/model_writer.h"
#include "formats/text_file.h"
#include "show/result_json.h"
#include "terminal/print.h"

namespace fs = std::filesystem;

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kInputs = "inputs.json";
constexpr const char* kFormat = "ovri-inputs/1";

std::string inputs_json(const Plan& plan, const Job& job, const std::string& digest) {
    Json json;
    json["format"] = kFormat;
    json["digest"] = digest;
    json["job"] = job.number;
    json["network"] = plan.networks[job.network].name;
    json["model"] = plan.models[job.model].name;
    json["seed"] = job.seed;
    return json.dump(2) + "\n";
}

bool has_digest(const std::string& folder, const std::string& digest) {
    const TextFile file = read_text_file(folder + "/" + kInputs);
    const Json json = Json::parse(file.text, nullptr, false);
    return file.ok() && json.is_object() && json.value("format", "") == kFormat &&
           json.value("digest", "") == digest;
}

// Paths as seen from the plan's folder, so that results do not tell from where the command was
// called.
ModelFile seen_from(const std::string& folder, ModelFile model) {
    model.network.file = path_from(folder, model.network.file);
    model.network.nodes = path_from(folder, model.network.nodes);
    model.free_dyads = path_from(folder, model.free_dyads);
    for (CovariateSource& source : model.covariates) {
        source.file = path_from(folder, source.file);
    }
    return model;
}

// The process works in a folder while it lives.
class WorkingFolder {
  public:
    explicit WorkingFolder(const std::string& folder) : before_(fs::current_path()) {
        fs::current_path(native_path(folder));
    }
    ~WorkingFolder() {
        std::error_code problem;
        fs::current_path(before_, problem);
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

  private:
    fs::path before_;
};

}  // namespace

std::string job_folder(const std::string& directory, const Plan& plan, int number) {
    return directory + "/jobs/" + job_name(plan, number);
}

JobState job_state(const std::string& directory, const Plan& plan, const Job& job,
                   const std::string& digest) {
    const std::string folder = job_folder(directory, plan, job.number);
    std::error_code problem;
    if (!fs::exists(native_path(folder), problem)) {
        return {{}, "not begun"};
    }
    const TextFile file = read_text_file(folder + "/result.json");
    if (!file.ok()) {
        return {{}, "not completed"};
    }
    if (!has_digest(folder, digest)) {
        return {{}, "its inputs have changed"};
    }
    JobState state{read_result_json(file.text), ""};
    state.reason = state.result ? "" : "not completed";
    return state;
}

int perform_job(const std::string& directory, const Plan& plan, const Job& job,
                const std::string& digest) {
    const std::string name = job_name(plan, job.number);
    const std::u8string whole =
        fs::absolute(native_path(job_folder(directory, plan, job.number))).generic_u8string();
    const std::string home = path_beside(plan.path, ".");
    const ModelFile model = seen_from(home, job_model(plan, job));
    const WorkingFolder working(home);
    ResultsFolder folder({{whole.begin(), whole.end()}, true, {}, true}, name);
    if (!folder.mistake().empty()) {
        print(stderr, "ovri: job {}: {}\n", job.number, folder.mistake());
        return kNotCompleted;
    }
    StudyInput input = read_study_to_estimate(model);
    if (!input.ok()) {
        tell_problems(input.problems, {stderr, false});
        return kNotCompleted;
    }
    folder.write(kInputs, inputs_json(plan, job, digest));
    return estimate_into(input, "jobs/" + name + "/model.toml", folder);
}
