// Studies small enough to know what they must give.
#pragma once

#include <cstddef>
#include <fstream>
#include <string>

#include "study/study.h"

// Adds the effects of a list such as "edge,AT(2)" to a model.
inline void add_effects_of(const std::string& list, StudyModel& model) {
    for (const EffectText& each : split_effects(list)) {
        model.effects.push_back({parse_effect(each.text).expression, {}, {}});
    }
}

// n actors, each tied to the next and the last to the first.
inline Study ring_study(int n, bool directed, const std::string& effects) {
    Study study;
    study.network.directed = directed;
    for (int i = 0; i < n; ++i) {
        study.network.actors.push_back(std::to_string(i + 1));
        const int next = (i + 1) % n;
        study.network.ties.push_back(directed || i < next ? ActorTie{i, next} : ActorTie{next, i});
    }
    add_effects_of(effects, study.model);
    return study;
}

// The karate network of the examples: 34 members, 78 ties.
inline Study karate_study(const std::string& effects) {
    Study study;
    std::ifstream matrix(std::string(OVRI_SOURCE_DIRECTORY "/examples/karate/karate.txt"));
    for (int i = 0; i < 34; ++i) {
        study.network.actors.push_back(std::to_string(i + 1));
        for (int j = 0; j < 34; ++j) {
            int cell = 0;
            matrix >> cell;
            if (cell == 1 && i < j) {
                study.network.ties.push_back({i, j});
            }
        }
    }
    add_effects_of(effects, study.model);
    return study;
}
