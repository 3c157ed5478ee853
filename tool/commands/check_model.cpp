#include "commands/check_model.h"

#include <array>

#include "base/open_file.h"
#include "formats/text_file.h"
#include "study/estimability.h"

namespace {

void add_problems(const Problems& problems, Findings& findings) {
    for (const Problem& each : problems) {
        add_error(findings, {each.file, each.line, each.field, each.column}, each.found,
                  each.expected, each.mend);
    }
}

}  // namespace

ModelCheck check_model(ModelFile model) {
    ModelCheck check;
    check.input = read_study_to_estimate(std::move(model));
    StudyInput& input = check.input;
    check.read = input.files.ok();
    if (input.ok()) {
        const Estimability found = study_estimability(input.files.study, input.resolved);
        input.problems = placed_problems(input.model, found.problems, found.faulty_effects);
    }
    add_problems(input.problems, check.findings);
    return check;
}

bool is_model_file(const std::string& path) {
    if (path_extension(path) == "toml") {
        return true;
    }
    constexpr std::size_t kHead = 4096;
    std::array<char, kHead> head{};
    const FileHandle file = open_file(path, "rb");
    const std::size_t size = file ? std::fread(head.data(), 1, head.size(), file.get()) : 0;
    std::string_view text(head.data(), size);
    if (looks_like_data(path, text)) {
        return true;
    }
    // Behind comments stands a section; a setup file begins with the label of its first item.
    for (text = without_space(text); !text.empty() && text.front() == '#';) {
        const std::size_t end = text.find('\n');
        text = without_space(end == std::string_view::npos ? "" : text.substr(end));
    }
    return !text.empty() && text.front() == '[';
}
