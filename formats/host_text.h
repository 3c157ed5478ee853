// What the two ways between studies and hosts' files share.
#pragma once

#include <string>

#include "effects/effect_selection.h"

// The path without its extension, for the names of the files beside it.
std::string path_stem(const std::string& path);

// The last part of a path without its extension.
std::string name_stem(const std::string& path);

// The decimal number that people write for a single-precision one.
double decimal_of(float value);

// How a row of a setup file is called: by its effect, with the attribute's name.
std::string row_label(const EffectSelection& selection, AttributeGroup group, int row,
                      int attribute);

// The lambda that stands in the row of an effect that is off: 2, or 1 where the effect of that name
// has a first row before.
double customary_lambda(const Catalogue& catalogue, int id);
