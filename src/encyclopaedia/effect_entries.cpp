#include "encyclopaedia/effect_entries.h"

#include <algorithm>
#include <sstream>

#include "study/names.h"

namespace {

const EffectPage* page_of(std::span<const EffectPage> pages, std::string_view row) {
    const auto page = std::find_if(pages.begin(), pages.end(),
                                   [&](const EffectPage& each) { return each.row == row; });
    return page != pages.end() ? &*page : nullptr;
}

// A second effect of one name stands behind the first in setup rows.
void add_structural(std::vector<EffectEntry>& entries, const Catalogue& catalogue) {
    const std::size_t begin = entries.size();
    for (const int id : catalogue.setup_order) {
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        const auto first =
            std::find_if(entries.begin() + static_cast<std::ptrdiff_t>(begin), entries.end(),
                         [&](const EffectEntry& each) {
                             return std::string_view(each.facts.name) == effect.facts.name;
                         });
        if (first != entries.end()) {
            first->second_row = effect.row;
            first->second_labels = effect.labels;
            continue;
        }
        entries.push_back({.kind = catalogue.kind,
                           .group = std::nullopt,
                           .row = effect.row,
                           .facts = effect.facts,
                           .alternating = effect.traits.alternating,
                           .labels = effect.labels,
                           .formats = effect.formats,
                           .page = page_of(structural_pages(catalogue.kind), effect.row)});
    }
}

void add_attributes(std::vector<EffectEntry>& entries, const Catalogue& catalogue) {
    for (const AttributeGroup group : kAllGroups) {
        const AttributeGroupCatalogue& rows = group_catalogue(catalogue, group);
        for (const int row : rows.setup_order) {
            const AttributeEffect& effect = rows.effects[static_cast<std::size_t>(row)];
            entries.push_back(
                {.kind = catalogue.kind,
                 .group = group,
                 .row = effect.update,
                 .facts = effect.facts,
                 .labels = effect.labels,
                 .formats = effect.formats,
                 .page = page_of(attribute_pages(catalogue.kind, group), effect.update)});
        }
    }
}

std::vector<EffectEntry> all_entries() {
    std::vector<EffectEntry> entries;
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        add_structural(entries, catalogue_of(kind));
        add_attributes(entries, catalogue_of(kind));
    }
    return entries;
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    const std::size_t place = text.find(from);
    return place == std::string::npos ? text : text.replace(place, from.size(), to);
}

std::string trimmed(std::string text) {
    text.erase(text.find_last_not_of(" \t") + 1);
    return text;
}

struct Place {
    Output output;
    const char* name;
};
constexpr std::array<Place, kOutputs> kPlaces = {{{Output::parameter, "values of a simulation"},
                                                  {Output::simulation, "sample table"},
                                                  {Output::syntax, "syntax file"},
                                                  {Output::result, "results of an estimation"},
                                                  {Output::fit_parameter, "values of a fit"},
                                                  {Output::fit, "fit"},
                                                  {Output::bayes_fit, "Bayesian fit"},
                                                  {Output::report, "statistics report"},
                                                  {Output::change, "change statistics"},
                                                  {Output::trace, "trace plots"}}};

// The directed change table names no effect.
bool is_shown(const EffectEntry& entry, Output output) {
    return !output_order(catalogue_of(entry.kind), output).empty();
}

void add_label(std::vector<HostLabel>& labels, const char* label, const std::string& place) {
    const std::string text = trimmed(replaced(replaced(label, "%s", "ATTRIBUTE"), "%.2f", "2.00"));
    const auto known = std::find_if(labels.begin(), labels.end(),
                                    [&](const HostLabel& each) { return each.label == text; });
    if (known != labels.end()) {
        known->places.push_back(place);
    } else {
        labels.push_back({text, {place}});
    }
}

// What a name may be compared with: a label without attribute and lambda.
std::string bare_label(const char* label) {
    return trimmed(replaced(replaced(label, "%s_", ""), "(%.2f)", ""));
}

std::vector<std::string> bare_labels(const EffectEntry& entry) {
    std::vector<std::string> labels = {bare_label(entry.row)};
    if (entry.second_row != nullptr) {
        labels.push_back(bare_label(entry.second_row));
    }
    for (const Place& place : kPlaces) {
        for (const Labels& of : {entry.labels, entry.second_labels}) {
            const char* label = output_text(of, entry.formats, place.output).label;
            if (label != nullptr && is_shown(entry, place.output)) {
                labels.push_back(bare_label(label));
            }
        }
    }
    return labels;
}

// The first word of a term, without what stands in parentheses.
std::string bare_term(const std::string& term) { return term.substr(0, term.find_first_of("( ")); }

template <class Holds>
std::vector<const EffectEntry*> entries_with(std::optional<NetworkKind> kind, Holds holds) {
    std::vector<const EffectEntry*> found;
    for (const EffectEntry& entry : effect_entries()) {
        if ((!kind || entry.kind == *kind) && holds(entry)) {
            found.push_back(&entry);
        }
    }
    return found;
}

bool any_matches(const std::vector<std::string>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& each) { return names_match(each, name); });
}

std::string lower(std::string_view text) {
    std::string letters(text);
    std::transform(letters.begin(), letters.end(), letters.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return letters;
}

}  // namespace

const std::vector<EffectEntry>& effect_entries() {
    static const std::vector<EffectEntry> kEntries = all_entries();
    return kEntries;
}

const char* kind_name(NetworkKind kind) {
    return kind == NetworkKind::undirected ? "undirected" : "directed";
}

const char* group_title(AttributeGroup group) {
    switch (group) {
        case AttributeGroup::binary:
            return "binary attributes";
        case AttributeGroup::continuous:
            return "continuous attributes";
        case AttributeGroup::categorical:
            return "categorical attributes";
        case AttributeGroup::covariate:
            return "covariates";
    }
    return "";
}

std::string section_title(const EffectEntry& entry) {
    return entry.group ? group_title(*entry.group) : family_name(entry.page->family);
}

std::string written_name(const EffectEntry& entry) {
    const char* argument = entry.alternating                          ? "(lambda)"
                           : !entry.group                             ? ""
                           : entry.group == AttributeGroup::covariate ? "(name)"
                                                                      : "(attribute)";
    return std::string(entry.facts.name) + argument;
}

std::vector<HostLabel> host_labels(const EffectEntry& entry) {
    std::vector<HostLabel> labels;
    add_label(labels, entry.row, "setup and update files");
    for (const Place& place : kPlaces) {
        const char* label = output_text(entry.labels, entry.formats, place.output).label;
        if (label != nullptr && is_shown(entry, place.output)) {
            add_label(labels, label, place.name);
        }
    }
    return labels;
}

std::vector<std::string> other_terms(const EffectEntry& entry) {
    std::vector<std::string> terms;
    if (entry.page->terms != nullptr) {
        std::string rest = entry.page->terms;
        for (std::size_t comma = rest.find(", "); comma != std::string::npos;
             comma = rest.find(", ")) {
            terms.push_back(rest.substr(0, comma));
            rest.erase(0, comma + 2);
        }
        terms.push_back(rest);
    }
    return terms;
}

std::vector<const EffectEntry*> find_entries(std::string_view name,
                                             std::optional<NetworkKind> kind) {
    const std::string_view bare = name.substr(0, name.find('('));
    for (const std::string_view each : {name, bare}) {
        if (auto found = entries_with(
                kind,
                [&](const EffectEntry& entry) { return names_match(entry.facts.name, each); });
            !found.empty()) {
            return found;
        }
    }
    for (const std::string_view each : {name, bare}) {
        if (auto found = entries_with(
                kind,
                [&](const EffectEntry& entry) { return any_matches(bare_labels(entry), each); });
            !found.empty()) {
            return found;
        }
    }
    if (auto found = entries_with(
            kind, [&](const EffectEntry& entry) { return any_matches(other_terms(entry), name); });
        !found.empty()) {
        return found;
    }
    return entries_with(kind, [&](const EffectEntry& entry) {
        const std::vector<std::string> terms = other_terms(entry);
        return std::any_of(terms.begin(), terms.end(), [&](const std::string& term) {
            return names_match(bare_term(term), bare);
        });
    });
}

std::vector<const EffectEntry*> search_entries(std::string_view words,
                                               std::optional<NetworkKind> kind) {
    return entries_with(kind, [&](const EffectEntry& entry) {
        std::string text = written_name(entry) + " " + entry.facts.meaning + " " +
                           entry.page->keywords + " " + section_title(entry);
        for (const std::string& label : bare_labels(entry)) {
            text += " " + label;
        }
        if (entry.page->terms != nullptr) {
            text += std::string(" ") + entry.page->terms;
        }
        text = lower(text);
        std::istringstream sought{lower(words)};
        bool all = true;
        for (std::string word; sought >> word;) {
            all = all && text.find(word) != std::string::npos;
        }
        return all;
    });
}

std::vector<std::string> entry_names(std::optional<NetworkKind> kind) {
    std::vector<std::string> names;
    for (const EffectEntry* entry : entries_with(kind, [](const EffectEntry&) { return true; })) {
        if (std::find(names.begin(), names.end(), entry->facts.name) == names.end()) {
            names.emplace_back(entry->facts.name);
        }
    }
    return names;
}
