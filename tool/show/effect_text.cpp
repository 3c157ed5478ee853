#include "show/effect_text.h"

#include <algorithm>

#include "encyclopaedia/effect_article.h"
#include "terminal/wrap.h"

namespace {

using Style = ArticleSection::Style;

constexpr std::size_t kNameColumn = 30;

std::string heading(const EffectEntry& entry) {
    const std::string title = section_title(entry);
    return !entry.group                               ? title
           : entry.group == AttributeGroup::covariate ? title + ": NAME(covariate)"
                                                      : title + ": NAME(attribute)";
}

std::string list_name(const EffectEntry& entry) {
    return entry.group ? entry.facts.name : written_name(entry);
}

std::string list_lines(const EffectEntry& entry, std::size_t width) {
    std::string name = "    " + list_name(entry) + "  ";
    name.resize(std::max(kNameColumn, name.size()), ' ');
    return wrapped(entry.facts.meaning, width, name);
}

// The entries of a kind in the order of their headings.
std::vector<const EffectEntry*> grouped(const std::vector<const EffectEntry*>& entries,
                                        NetworkKind kind) {
    std::vector<const EffectEntry*> ordered;
    for (const EffectEntry* entry : entries) {
        if (entry->kind == kind) {
            ordered.push_back(entry);
        }
    }
    const auto place = [](const EffectEntry* entry) {
        return entry->group ? kFamilies + static_cast<int>(*entry->group)
                            : static_cast<int>(entry->page->family);
    };
    std::stable_sort(ordered.begin(), ordered.end(),
                     [&](const auto* one, const auto* other) { return place(one) < place(other); });
    return ordered;
}

std::string section_text(const ArticleSection& section, std::size_t width) {
    std::string text = section.title.empty() ? "" : section.title + "\n";
    for (const std::string& line : section.lines) {
        text += section.style == Style::drawing ? "    " + line + "\n"
                : section.style == Style::list  ? wrapped(line, width, "  - ")
                                                : wrapped(line, width, "    ");
    }
    return text + "\n";
}

std::string article(const EffectEntry& entry, std::size_t width) {
    std::string text = written_name(entry) + " - " + kind_name(entry.kind) + " networks, " +
                       section_title(entry) + "\n\n" + wrapped(entry.facts.meaning, width, "    ") +
                       "\n";
    for (const ArticleSection& section : article_sections(entry)) {
        text += section_text(section, width);
    }
    text.pop_back();
    return text;
}

}  // namespace

std::string effect_list(const std::vector<const EffectEntry*>& entries, std::size_t width) {
    std::string text;
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        std::string last;
        for (const EffectEntry* entry : grouped(entries, kind)) {
            if (last.empty()) {
                text += text.empty() ? "" : "\n";
                text += kind == NetworkKind::undirected ? "Undirected networks\n"
                                                        : "Directed networks\n";
            }
            if (heading(*entry) != last) {
                last = heading(*entry);
                text += "\n  " + last + "\n";
            }
            text += list_lines(*entry, width);
        }
    }
    return text;
}

std::string effect_articles(const std::vector<const EffectEntry*>& entries, std::size_t width) {
    std::string text;
    for (const EffectEntry* entry : entries) {
        text += text.empty() ? "" : "\n" + std::string(width, '-') + "\n\n";
        text += article(*entry, width);
    }
    return text;
}
