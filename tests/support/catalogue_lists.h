// What a catalogue says, as text that a test can spell out in full.
#pragma once

#include <string>
#include <vector>

#include "effects/effect_selection.h"

// A model with every effect on: structural positions in setup order, lambdas 2.01, 2.02, ... in
// setup order, and each type of attribute with these names. With `slots`, also the effects that no
// setup row selects, behind the others.
EffectSelection full_selection(NetworkKind kind, const std::vector<std::string>& names,
                               bool slots = false);

// The rows of an output, one a line: "update label | label | number format".
std::string output_listing(const EffectSelection& selection, Output output);

// The labels of an output, each followed by `end`.
std::string output_labels(const EffectSelection& selection, Output output, const std::string& end);

// The text with each line that holds "%s" written once for every name, that name filled in.
std::string for_names(const std::string& text, const std::vector<std::string>& names);

// Update labels of a group's rows in some order, one a line.
std::string group_listing(const AttributeGroupCatalogue& group, std::span<const int> order);
