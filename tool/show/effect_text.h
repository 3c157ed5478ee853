// The encyclopaedia of effects as text for a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "encyclopaedia/effect_entries.h"

// Names and meanings by kind of network and by group, a line or two each.
std::string effect_list(const std::vector<const EffectEntry*>& entries, std::size_t width);

// One after the other, with a rule between them.
std::string effect_articles(const std::vector<const EffectEntry*>& entries, std::size_t width);
