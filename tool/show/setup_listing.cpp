#include "show/setup_listing.h"

#include <algorithm>
#include <map>

#include "terminal/print.h"

namespace {

// Lines longer than this push no other line's comment to the right.
constexpr std::size_t kWidest = 44;

const EffectFacts& facts_of(const SetupKey& key, const Catalogue& catalogue) {
    const auto row = static_cast<std::size_t>(key.row);
    return setup_item(key.id).part == SetupPart::structural_row
               ? catalogue.effects[row].facts
               : group_catalogue(catalogue, key.group).effects[row].facts;
}

// "AT(lambda)", "sender(continuous attribute 1)".
std::string effect_of(const SetupKey& key, const Catalogue& catalogue) {
    const std::string name = facts_of(key, catalogue).name;
    if (setup_item(key.id).part == SetupPart::block_row) {
        return name + "(" + attribute_of(key) + ")";
    }
    const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(key.row)];
    return effect.traits.alternating ? name + "(lambda)" : name;
}

bool is_flag(SetupId id) { return id == SetupId::structural_flag || id == SetupId::group_flag; }

// What an item is, in words; empty where the flag of its row has said it already.
std::string item_text(const SetupView& view, const ReadItem& item, bool behind_flag) {
    const SetupItem& facts = setup_item(item.key.id);
    const bool row = facts.part == SetupPart::structural_row || facts.part == SetupPart::block_row;
    if (!item.read) {
        return "NOT READ: " + name_of(view, item.key);
    }
    if (row && is_flag(item.key.id)) {
        const Catalogue& catalogue = *view.trace.catalogue;
        const bool on = integer_word(word_at(view, item.value_offset)).value == 1.0;
        return fmt::format("{}: {}; {}", effect_of(item.key, catalogue),
                           facts_of(item.key, catalogue).meaning,
                           on ? "in the model" : "not in the model");
    }
    if (row && behind_flag) {
        return "";
    }
    return fmt::format("{}: {}{}", name_of(view, item.key), facts.meaning,
                       facts.range != nullptr ? fmt::format(" ({})", facts.range) : "");
}

// The comment of each line that items stand on.
std::map<int, std::string> line_comments(const SetupView& view) {
    std::map<int, std::string> comments;
    int flag_line = 0;
    for (const ReadItem& item : view.trace.items) {
        const int line = line_at(view, item.value_offset);
        const std::string text = item_text(view, item, line == flag_line);
        flag_line = is_flag(item.key.id) ? line : flag_line;
        if (!text.empty()) {
            std::string& comment = comments[line];
            comment += (comment.empty() ? "" : "; ") + text;
        }
    }
    return comments;
}

// The text with its tabs as blanks, without what stands at its end.
std::string plain_line(const SetupView& view, int line) {
    std::string text = line_text(view, line);
    std::replace(text.begin(), text.end(), '\t', ' ');
    const std::size_t last = text.find_last_not_of(" \r");
    text.resize(last == std::string::npos ? 0 : last + 1);
    return text;
}

}  // namespace

std::string setup_listing(const SetupView& view, const Findings& findings) {
    const std::map<int, std::string> comments = line_comments(view);
    const int lines = static_cast<int>(view.line_starts.size());
    std::size_t width = 0;
    for (int line = 1; line <= lines; ++line) {
        const std::size_t size = plain_line(view, line).size();
        width = size <= kWidest ? std::max(width, size) : width;
    }
    std::string listing;
    for (int line = 1; line <= lines; ++line) {
        std::string text = plain_line(view, line);
        const auto comment = comments.find(line);
        if (comment != comments.end()) {
            text.resize(std::max(text.size(), width), ' ');
            text += "  # " + comment->second;
        }
        if (line < lines || !text.empty()) {
            listing += text + "\n";
        }
    }
    for (const Finding& each : findings.list) {
        listing +=
            fmt::format("# {}{}: {}: found {}, expected {}\n",
                        each.severity == Severity::error ? "error" : "warning",
                        each.where.line > 0 ? fmt::format(" on line {}", each.where.line) : "",
                        each.where.field, each.found, each.expected);
    }
    return listing;
}
