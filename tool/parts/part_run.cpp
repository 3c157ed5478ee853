#include "parts/part_run.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "commands/commands.h"
#include "terminal/print.h"

namespace {

using Json = nlohmann::ordered_json;

// "part number 3 of 8 (networks 26 to 37)".
std::string part_text(const PartFiles& files, int number) {
    const WorkPart part = files.part(number);
    return fmt::format("part number {} of {} (networks {} to {})", number, files.count(),
                       part.first + 1, part.first + part.count);
}

// The records of a part, drawn where they are not there; a status where that has failed.
std::optional<int> perform(const PartFiles& files, int number, const PartRun& run,
                           const PartCalls& calls, Json& records) {
    if (!run.overwrite && files.read(number, records)) {
        if (run.options.part && !run.quiet) {
            print(stderr, "{}: done before\n", part_text(files, number));
        }
        return std::nullopt;
    }
    switch (calls.draw(files.part(number), records)) {
        case PartDrawn::failed:
            return kNotCompleted;
        case PartDrawn::interrupted:
            print(stderr,
                  "ovri: interrupted in {}; parts that were done are kept, the same command with "
                  "its seed goes on\n",
                  part_text(files, number));
            return kInterrupted;
        case PartDrawn::done:
            break;
    }
    if (!files.write(number, records)) {
        print(stderr, "ovri: {} could not be written\n", files.path(number));
        return kNotCompleted;
    }
    if (!run.quiet) {
        print(stderr, "{}: done\n", part_text(files, number));
    }
    return std::nullopt;
}

// Tells of the parts that cannot be merged; the exit status.
int tell_lacking(const PartFiles& files, const std::vector<int>& lacking) {
    constexpr std::size_t kTold = 5;
    for (std::size_t k = 0; k < std::min(lacking.size(), kTold); ++k) {
        print(stderr, "ovri: {} {}\n", part_text(files, lacking[k]),
              files.exists(lacking[k])
                  ? "was drawn from other inputs or settings, or by another version"
                  : "is missing");
    }
    if (lacking.size() > kTold) {
        print(stderr, "ovri: and {} more\n", lacking.size() - kTold);
    }
    print(stderr, "ovri: nothing is merged; carry out these parts by --part K first\n");
    return kNotCompleted;
}

std::optional<int> take(const PartFiles& files, int number, const PartCalls& calls,
                        const Json& records) {
    try {
        const std::string mistake = calls.take(records);
        return mistake.empty() ? std::nullopt : std::optional(tell_unlike(files, number, mistake));
    } catch (const Json::exception&) {
        return tell_unlike(files, number, "is damaged");
    }
}

// Takes every part as it is there; a status where one is not, or does not go with the others.
std::optional<int> collect(const PartFiles& files, const PartCalls& calls) {
    std::vector<int> lacking;
    Json records;
    for (int number = 1; number <= files.count(); ++number) {
        if (!files.read(number, records)) {
            lacking.push_back(number);
        } else if (lacking.empty()) {
            if (const auto status = take(files, number, calls, records)) {
                return status;
            }
        }
    }
    return lacking.empty() ? std::nullopt : std::optional(tell_lacking(files, lacking));
}

std::optional<int> perform_all(const PartFiles& files, const PartRun& run, const PartCalls& calls) {
    Json records;
    for (int number = 1; number <= files.count(); ++number) {
        if (const auto status = perform(files, number, run, calls, records)) {
            return status;
        }
        if (const auto status = take(files, number, calls, records)) {
            return status;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<int> run_parts(const PartFiles& files, const PartRun& run, const PartCalls& calls) {
    if (run.options.part) {
        Json records;
        const auto number = static_cast<int>(*run.options.part);
        return perform(files, number, run, calls, records).value_or(kDone);
    }
    const auto status =
        run.options.collect ? collect(files, calls) : perform_all(files, run, calls);
    if (!status) {
        files.remove_strays();
    }
    return status;
}

int tell_unlike(const PartFiles& files, int number, const std::string& mistake) {
    print(stderr, "ovri: {} {}; draw it again by --part={} --overwrite\n", files.path(number),
          mistake, number);
    return kNotCompleted;
}
