// Places of a network's actors on the plane.
#pragma once

#include <vector>

#include "pictures/figures.h"

// The same network has the same places. By igraph's layouts where there is igraph (Kamada and Kawai
// 1989 up to 300 actors, Fruchterman and Reingold 1991 beyond), else on a circle.
std::vector<Point> layout_of(const StudyNetwork& network);
