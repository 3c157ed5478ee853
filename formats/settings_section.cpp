#include "formats/settings_section.h"

#include "study/names.h"
#include "study/study_bootstrap.h"

std::vector<std::string> estimation_keys() {
    return {"method",    "attempts",  "precision", "time_limit",     "chains",
            "bootstrap", "subphases", "gain",      "multiplication", "samples"};
}

void read_estimation_keys(SectionReader& reader, StudyEstimation& estimation) {
    std::string method;
    reader.text("method", method);
    if (!method.empty()) {
        const std::vector<std::string> methods = {"auto", "stochastic-approximation", "mple",
                                                  "mcmle"};
        const auto known = estimation_method_of(method);
        estimation.method = known.value_or(estimation.method);
        const std::string nearest = nearest_name(method, methods);
        if (!known) {
            reader.wrong_value("method", *reader.find("method"), "one of " + listed_names(methods),
                               nearest.empty() ? "" : "a similar one is `" + nearest + "`");
        }
    }
    reader.whole("attempts", estimation.attempts, {1, 1000});
    reader.number("precision", estimation.precision, {0, 1});
    reader.number("time_limit", estimation.time_limit, {0, 1e9});
    reader.whole("chains", estimation.chains, {1, 1000});
    reader.whole("bootstrap", estimation.bootstrap, {0, kMostReplicates});
    reader.whole("subphases", estimation.subphases, {1, 20});
    reader.number("gain", estimation.gain, {1e-6, 10});
    reader.whole("multiplication", estimation.multiplication, {1, 1000000});
    reader.whole("samples", estimation.samples, {2, 10000000});
}

std::vector<std::string> run_keys() { return {"seed", "threads"}; }

void read_run_keys(SectionReader& reader, StudyRun& run) {
    if (const auto seed = reader.whole("seed", {0, 4294967295.0})) {
        run.seed = static_cast<std::uint32_t>(*seed);
    }
    reader.whole("threads", run.threads, {0, 1024});
}
