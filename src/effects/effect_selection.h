// The model of one run: which effects are selected, their values, lambdas and places.
//
// Every selected effect has one place in the vectors of the run (statistics, changes, parameters):
// structural effects first, then binary, continuous, categorical and covariate ones, grouped by
// kind and within a kind by attribute. The selection is filled from the setup file, may once be
// replaced by the full model for a fit, and is read-only while a chain runs.
#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "effects/attribute_table.h"
#include "effects/catalogue.h"

struct StructuralChoice {
    int position = -1;  // -1 when the effect is off
    double value = 0.0;
    float lambda = 0.0F;
    std::vector<float> weights;
    PowerTable powers_a;
    PowerTable powers_b;
};

struct AttributeChoice {
    int flag = 0;  // 1 when selected
    double value = 0.0;
};

struct AttributeSelection {
    int flag = 0;        // the section's switch
    int attributes = 0;  // how many attributes (covariates) there are
    int selected = 0;    // how many (effect, attribute) pairs are on
    std::string path;
    // [row of the catalogue][attribute]
    std::vector<std::vector<AttributeChoice>> choices;
};

struct EffectSelection {
    const Catalogue* catalogue = nullptr;
    int structural_flag = 0;
    // Places that structural effects take; attribute effects begin behind them.
    int structural_count = 0;
    int actors = 0;
    // Indexed by the catalogue's ids.
    std::vector<StructuralChoice> structural;
    std::array<AttributeSelection, kAttributeGroups> groups;
    AttributeTable table;
    // Table of the default lambda, for measures outside the model.
    std::vector<float> default_weights;
};

// A selection with every effect off. Undirected lambdas start at 0.0, directed ones at 2.0.
EffectSelection selection_create(NetworkKind kind);

inline AttributeSelection& group_of(EffectSelection& selection, AttributeGroup group) {
    return selection.groups[static_cast<std::size_t>(group)];
}
inline const AttributeSelection& group_of(const EffectSelection& selection, AttributeGroup group) {
    return selection.groups[static_cast<std::size_t>(group)];
}

// The names of a group's attributes, or of the covariates.
std::vector<std::string>& names_of(AttributeTable& table, AttributeGroup group);

// Makes room for the choices of a group's attributes, all off.
void selection_resize_group(EffectSelection& selection, AttributeGroup group, int attributes);

const std::vector<std::string>& attribute_names(const EffectSelection& selection,
                                                AttributeGroup group);

// The length p of the run's vectors.
int selection_size(const EffectSelection& selection);

bool is_selected(const EffectSelection& selection, int id);

// Length of a Graph's clique tables: 8 with "AC", else the size of the largest clique effect that
// is on, else 0.
int clique_depth(const EffectSelection& selection);

// Each selected effect's value at its place, and the weight tables of the selected alternating
// effects.
std::vector<double> assemble_parameters(EffectSelection& selection);

// The reverse: each selected effect's value from its place.
void store_parameters(EffectSelection& selection, const std::vector<double>& parameters);

// Turns on every effect of the full model: the structural ones in setup order from position 0,
// every attribute and covariate effect. Effects outside the full model keep the position they had.
// Lambdas that are exactly 0.0 get the full model's.
void assign_full_model(EffectSelection& selection);

// One selected effect as an output shows it.
struct OutputRow {
    std::string label;     // name or lambda filled in
    const char* format;    // of its number
    int position;          // its place in the vectors
    int id;                // structural id, or -1
    AttributeGroup group;  // for attribute effects
    int row = -1;          // row of the group's catalogue, or -1
};

// The selected effects in an output's order: structural ones in their order, then the attribute
// effects by a running place behind them.
std::vector<OutputRow> output_rows(const EffectSelection& selection, Output output);

// Calls visit(group, row, attribute, position) for each selected attribute effect in the order of
// the statistics.
template <class Visit>
void for_each_attribute_effect(const EffectSelection& selection, Visit visit) {
    int position = selection.structural_count;
    for (const AttributeGroup group : kAllGroups) {
        const AttributeSelection& chosen = group_of(selection, group);
        for (std::size_t row = 0; row < chosen.choices.size(); ++row) {
            for (std::size_t attribute = 0; attribute < chosen.choices[row].size(); ++attribute) {
                if (chosen.choices[row][attribute].flag == 1) {
                    visit(group, static_cast<int>(row), static_cast<int>(attribute), position);
                    ++position;
                }
            }
        }
    }
}
