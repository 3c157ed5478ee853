#include "study/known_networks.h"

#include <span>

#include "study/effect_expression.h"

namespace {

constexpr ActorTie kMarriages[] = {{0, 8},  {1, 5},  {1, 6},  {1, 8},   {2, 4},   {2, 8},  {3, 6},
                                   {3, 10}, {3, 14}, {4, 10}, {4, 14},  {6, 7},   {6, 15}, {8, 12},
                                   {8, 13}, {8, 15}, {9, 13}, {10, 14}, {12, 14}, {12, 15}};

// In alphabetical order of the families, Acciaiuoli to Tornabuoni.
const std::vector<double> kWealth = {10,  36, 55, 44, 20, 32, 8,   42,
                                     103, 48, 49, 3,  27, 10, 146, 48};

constexpr ActorTie kKarate[] = {
    {0, 1},   {0, 2},   {0, 3},   {0, 4},   {0, 5},   {0, 6},   {0, 7},   {0, 8},   {0, 10},
    {0, 11},  {0, 12},  {0, 13},  {0, 17},  {0, 19},  {0, 21},  {0, 31},  {1, 2},   {1, 3},
    {1, 7},   {1, 13},  {1, 17},  {1, 19},  {1, 21},  {1, 30},  {2, 3},   {2, 7},   {2, 8},
    {2, 9},   {2, 13},  {2, 27},  {2, 28},  {2, 32},  {3, 7},   {3, 12},  {3, 13},  {4, 6},
    {4, 10},  {5, 6},   {5, 10},  {5, 16},  {6, 16},  {8, 30},  {8, 32},  {8, 33},  {9, 33},
    {13, 33}, {14, 32}, {14, 33}, {15, 32}, {15, 33}, {18, 32}, {18, 33}, {19, 33}, {20, 32},
    {20, 33}, {22, 32}, {22, 33}, {23, 25}, {23, 27}, {23, 29}, {23, 32}, {23, 33}, {24, 25},
    {24, 27}, {24, 31}, {25, 31}, {26, 29}, {26, 33}, {27, 33}, {28, 31}, {28, 33}, {29, 32},
    {29, 33}, {30, 32}, {30, 33}, {31, 32}, {31, 33}, {32, 33}};

constexpr ActorTie kSix[] = {{0, 1}, {0, 2}, {0, 5}, {1, 2}, {1, 3}, {2, 3}, {3, 4}, {4, 5}};

constexpr ActorTie kFour[] = {{0, 1}, {0, 2}, {1, 0}, {1, 2}, {2, 3}, {3, 0}};

Study study_of(int actors, bool directed, std::span<const ActorTie> ties,
               const std::string& effects) {
    Study study;
    study.network.directed = directed;
    study.network.ties.assign(ties.begin(), ties.end());
    for (int i = 0; i < actors; ++i) {
        study.network.actors.push_back(std::to_string(i + 1));
    }
    for (const EffectText& each : split_effects(effects)) {
        study.model.effects.push_back({parse_effect(each.text).expression, {}, {}});
    }
    study.settings.run.seed = 1;
    return study;
}

}  // namespace

Study florentine_families(const std::string& effects) {
    Study study = study_of(16, false, kMarriages, effects);
    study.attributes = {{"wealth", AttributeType::continuous, kWealth, {}}};
    return study;
}

Study karate_club(const std::string& effects) { return study_of(34, false, kKarate, effects); }

Study six_actors(const std::string& effects) { return study_of(6, false, kSix, effects); }

Study four_directed_actors(const std::string& effects) { return study_of(4, true, kFour, effects); }
