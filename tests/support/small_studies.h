// Studies small enough to know what they must give.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "study/study.h"

// Adds the effects of a list such as "edge,AT(2)" to a model.
inline void add_effects_of(const std::string& list, StudyModel& model) {
    for (const EffectText& each : split_effects(list)) {
        model.effects.push_back({parse_effect(each.text).expression, {}, {}});
    }
}

// Every network that the free dyads allow, the other ties as observed; ties in ascending order.
inline std::vector<std::vector<ActorTie>> all_networks(const Study& study) {
    std::vector<ActorTie> free = study.dyads.free;
    const int n = static_cast<int>(study.network.actors.size());
    for (int i = 0; i < n && !study.dyads.restricted; ++i) {
        for (int j = study.network.directed ? 0 : i + 1; j < n; ++j) {
            if (i != j) {
                free.push_back({i, j});
            }
        }
    }
    std::vector<ActorTie> given;
    for (const ActorTie& tie : study.network.ties) {
        if (std::find(free.begin(), free.end(), tie) == free.end()) {
            given.push_back(tie);
        }
    }
    std::vector<std::vector<ActorTie>> all;
    for (std::uint32_t code = 0; code < (1U << free.size()); ++code) {
        std::vector<ActorTie> ties = given;
        for (std::size_t k = 0; k < free.size(); ++k) {
            if (((code >> k) & 1U) != 0) {
                ties.push_back(free[k]);
            }
        }
        std::sort(ties.begin(), ties.end());
        all.push_back(std::move(ties));
    }
    return all;
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
