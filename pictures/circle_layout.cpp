#include <cmath>
#include <numbers>

#include "pictures/layout.h"

std::vector<Point> layout_of(const StudyNetwork& network) {
    std::vector<Point> places;
    const auto n = static_cast<double>(network.actors.size());
    for (std::size_t actor = 0; actor < network.actors.size(); ++actor) {
        const double angle = 2.0 * std::numbers::pi * static_cast<double>(actor) / n;
        places.push_back({std::sin(angle), -std::cos(angle)});
    }
    return places;
}
