// The encyclopaedia of effects as a JSON document.
#pragma once

#include <string>
#include <vector>

#include "encyclopaedia/effect_entries.h"

// {"format": "ovri-effects/1", "effects": [...]}, ended by a line feed. What an effect does not
// have is null or an empty list.
std::string effect_document(const std::vector<const EffectEntry*>& entries);

// A table of the effects with a head line: name, kind, data (structural, or the kind of attribute),
// written (as it stands in a model) and meaning.
std::string effect_csv(const std::vector<const EffectEntry*>& entries);
