// The tables behind effect_pages.h, one file of pages each.
#pragma once

#include "encyclopaedia/effect_pages.h"

std::span<const EffectPage> graph_pages();
std::span<const EffectPage> digraph_pages();
std::span<const EffectPage> graph_attribute_pages(AttributeGroup group);
std::span<const EffectPage> digraph_attribute_pages(AttributeGroup group);
