// Paths of three ties and cycles of four in the undirected network.
#pragma once

#include "effects/effect.h"

double path3_change(const Graph&, const EffectData&, int i, int j, int adding);
double path3_count(Graph&, const EffectData&);
double cycle4_change(const Graph&, const EffectData&, int i, int j, int adding);
double cycle4_count(Graph&, const EffectData&);
