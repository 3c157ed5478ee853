// Models to begin with: what a network shows, and the effects that suit it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "study/study.h"

// A network at a glance. Directions do not matter for neighbours and triangles.
struct NetworkLook {
    int mutual = 0;      // dyads tied in both directions; of a directed network alone
    int asymmetric = 0;  // dyads tied in one direction
    std::int64_t triangles = 0;
    int least_neighbours = 0;
    int most_neighbours = 0;
    double mean_neighbours = 0.0;
};

// O(sum of squared degrees).
NetworkLook look_at(const StudyNetwork& network);

struct FirstModel {
    std::string about;                 // "ties and closure"
    std::vector<std::string> effects;  // as they are written
};

// Three models at most, the one to begin with first: ties with what they plainly depend on, the
// same with the spread of degrees, and with the actors' attributes (without any: ties alone). Every
// one has a tie effect, each effect once, and none that cannot be estimated from these data. Empty
// when not even ties can: in a network without ties or with all of them. O(n^2) a model.
std::vector<FirstModel> first_models(const Study& study, const NetworkLook& look);
