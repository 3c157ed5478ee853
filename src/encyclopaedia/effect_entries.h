// The entries of the encyclopaedia: a row of the catalogue and the page that goes with it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "encyclopaedia/effect_pages.h"

struct EffectEntry {
    NetworkKind kind;
    // Of an attribute effect.
    std::optional<AttributeGroup> group;
    // Label in update files.
    const char* row;
    EffectFacts facts;
    bool alternating = false;
    Labels labels;
    NumberFormats formats;
    // Label in update files and labels of the second effect of this name; null and empty for most.
    const char* second_row = nullptr;
    Labels second_labels = {};
    // Null when it has none.
    const EffectPage* page = nullptr;
};

// Every effect that a setup row can select: undirected ones first, structural before attribute
// effects, in the order of setup rows. A second effect of one name is part of the first one's.
const std::vector<EffectEntry>& effect_entries();

// "undirected", "directed".
const char* kind_name(NetworkKind kind);
// "binary attributes", "covariates".
const char* group_title(AttributeGroup group);
// The head under which the entry stands in a list: its family's or its group's.
std::string section_title(const EffectEntry& entry);

// As it stands in a model: "AT(lambda)", "same(attribute)", "covariate(name)", "edge".
std::string written_name(const EffectEntry& entry);

// A label and the kinds of text in hosts' files where it stands.
struct HostLabel {
    std::string label;
    std::vector<std::string> places;
};
// In the order of first use. An attribute's name stands as ATTRIBUTE, a lambda as 2.00.
std::vector<HostLabel> host_labels(const EffectEntry& entry);

// The entries that bear the name: as their canonical name, else in a host's file, else in the
// manual of another package. What stands in parentheses behind it does not matter where nothing
// bears it with them. Without a kind those of both. Empty when there is none.
std::vector<const EffectEntry*> find_entries(std::string_view name,
                                             std::optional<NetworkKind> kind);

// The entries whose names, meaning or keywords hold every one of the words, case aside.
std::vector<const EffectEntry*> search_entries(std::string_view words,
                                               std::optional<NetworkKind> kind);

// Every canonical name of a kind or of both, each once.
std::vector<std::string> entry_names(std::optional<NetworkKind> kind);

// The terms of other packages' manuals.
std::vector<std::string> other_terms(const EffectEntry& entry);
