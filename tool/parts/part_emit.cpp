#include "parts/part_emit.h"

#include <fmt/core.h>

#include <algorithm>

#include "batch/emit.h"
#include "batch/plan_check.h"
#include "commands/commands.h"
#include "formats/model_writer.h"
#include "study/work_part.h"
#include "terminal/print.h"

namespace {

std::string part_name(int number) { return fmt::format("{:04}", number); }

std::string part_list(int pieces, int parts) {
    std::string text = "part\tfirst\tcount\n";
    for (int number = 1; number <= parts; ++number) {
        const WorkPart part = work_part(pieces, parts, number);
        text += fmt::format("{}\t{}\t{}\n", part_name(number), part.first + 1, part.count);
    }
    return text;
}

std::string joined(const std::string& words, const std::string& more) {
    return more.empty() ? words : words + " " + more;
}

}  // namespace

int emit_parts(const EmittedRun& run, const StudyInput& input, const PartOptions& options,
               const std::string& directory) {
    const auto parts = static_cast<int>(*options.parts);
    const std::string words = joined(fmt::format("{} --parts {}", run.words, parts), run.folder);
    EngineWork work;
    work.unit = "part";
    work.of = "a run";
    work.count = parts;
    work.name = part_name;
    work.list_file = "parts.tsv";
    work.list = part_list(run.pieces, parts);
    work.call = [words](const std::string& number) { return words + " --part " + number + " -q"; };
    work.collect = joined(words + " --collect", run.collect_words);
    work.threads = std::max(1, input.files.study.settings.run.threads);
    work.bytes = job_cost(input).bytes * work.threads;
    return write_engine(*engine_of(options.engine), work, directory);
}

int emit_model(const std::string& command, int pieces, StudyInput& input,
               const PartOptions& options, ResultsFolder& folder) {
    settle_seed(input);
    int& threads = input.files.study.settings.run.threads;
    threads = std::max(1, threads);
    folder.write(kEmittedModel, model_text(settled_model(input), folder.directory()));
    if (!folder.failures().empty()) {
        return tell_failures(folder);
    }
    return emit_parts({command + " " + kEmittedModel, "", "-o .", pieces}, input, options,
                      folder.directory());
}
