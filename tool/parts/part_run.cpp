#include "parts/part_run.h"

#include <nlohmann/json.hpp>

#include "commands/commands.h"
#include "terminal/print.h"

namespace {

using Json = nlohmann::ordered_json;

// "part 3 of 8 (networks 26 to 37)".
std::string part_text(const PartFiles& files, int number) {
    const WorkPart part = files.part(number);
    return fmt::format("part {} of {} (networks {} to {})", number, files.count(), part.first + 1,
                       part.first + part.count);
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

// Tells of the parts that cannot be merged; true when there are any.
bool tell_missing(const PartFiles& files) {
    constexpr int kTold = 5;
    int count = 0;
    for (int number = 1; number <= files.count(); ++number) {
        const PartState state = files.state(number);
        count += state == PartState::done ? 0 : 1;
        if (state != PartState::done && count <= kTold) {
            print(stderr, "ovri: {} {}\n", part_text(files, number),
                  state == PartState::missing
                      ? "is missing"
                      : "was drawn from other inputs or settings, or by another version");
        }
    }
    if (count > kTold) {
        print(stderr, "ovri: and {} more\n", count - kTold);
    }
    if (count > 0) {
        print(stderr, "ovri: nothing is merged; carry out these parts by --part K first\n");
    }
    return count > 0;
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

}  // namespace

std::optional<int> run_parts(const PartFiles& files, const PartRun& run, const PartCalls& calls) {
    Json records;
    if (run.options.part) {
        const auto number = static_cast<int>(*run.options.part);
        return perform(files, number, run, calls, records).value_or(kDone);
    }
    if (run.options.collect && tell_missing(files)) {
        return kNotCompleted;
    }
    PartRun each = run;
    each.overwrite = run.overwrite && !run.options.collect;
    for (int number = 1; number <= files.count(); ++number) {
        if (const auto status = perform(files, number, each, calls, records)) {
            return status;
        }
        if (const auto status = take(files, number, calls, records)) {
            return status;
        }
    }
    files.remove_strays();
    return std::nullopt;
}

int tell_unlike(const PartFiles& files, int number, const std::string& mistake) {
    print(stderr, "ovri: {} {}; draw it again by --part {} --overwrite\n", files.path(number),
          mistake, number);
    return kNotCompleted;
}
