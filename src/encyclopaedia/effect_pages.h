// What people want to know of an effect beyond its row of the catalogue: a drawing, the formula of
// its change, what its lambda does, how the literature and the manuals of other packages call it.
//
// One page per effect, keyed by the row's label in update files. It stands apart from the catalogue
// so that a library that a host loads carries none of its text.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "effects/catalogue.h"

enum class Family { ties, degrees, actors, paths, closure, cliques, triangle_pairs, triangle_ties };
constexpr int kFamilies = 8;

// "ties and reciprocity", "closure": the head of the family in a list.
const char* family_name(Family family);

// How the weight of the k-th tie, neighbour or clique goes with k, w = 1 - 1/lambda.
enum class WeightLaw {
    none,
    rising,      // lambda (1 - w^(k - 1)): from 0 up to lambda
    falling,     // w^(k - 1): from 1 down to 0, lambda in all
    alternating  // (-1/lambda)^(k - 4), from the 4-clique on
};

// The weight of the k-th, k >= 1 (of the k-clique for `alternating`, k >= 4); lambda > 1, or >= 1
// for `alternating`.
double lambda_weight(WeightLaw law, double lambda, int k);

struct LambdaWeights {
    WeightLaw law = WeightLaw::none;
    // What is counted by k: "tie of an actor".
    const char* counted = nullptr;
};

enum class Source : std::uint8_t {
    none,
    davis_leinhardt_1972,
    frank_strauss_1986,
    holland_leinhardt_1981,
    hunter_2007,
    hunter_handcock_2006,
    lusher_koskinen_robins_2013,
    morris_handcock_hunter_2008,
    pattison_robins_2002,
    robins_elliott_pattison_2001,
    robins_pattison_wang_2009,
    snijders_pattison_robins_handcock_2006,
    wasserman_pattison_1996
};
constexpr int kSources = 13;

// The entry of a list of references; empty for `none`.
const char* source_text(Source source);

struct EffectPage {
    // Label in update files.
    const char* row;
    // A structural effect's; attribute effects are listed by the type of the attribute.
    Family family;
    // In lines of at most 60 columns, the first one empty.
    const char* drawing;
    // What the tie (i, j) adds, in the notation of the catalogue with the letters of
    // `change_notation` and with all letters for the network without that tie; null where no short
    // form is known and the change is the count with the tie less the count without it.
    const char* change;
    // Words that people look for, beyond those of its names and its meaning.
    const char* keywords;
    // Names and use in the literature.
    const char* literature;
    // Terms in the manuals of other packages, separated by commas; null where none is known.
    const char* terms = nullptr;
    // What those terms are in this effect's measure, and how their parameters convert.
    const char* conversion = nullptr;
    // The count once more, put together from what the terms count; tested against the count.
    const char* identity = nullptr;
    LambdaWeights lambda = {};
    // What surprises beyond what the catalogue's row tells.
    const char* beware = nullptr;
    std::array<Source, 4> sources = {};
};

// Letters that stand only in formulas of changes.
const char* change_notation(NetworkKind kind);

std::span<const EffectPage> structural_pages(NetworkKind kind);
std::span<const EffectPage> attribute_pages(NetworkKind kind, AttributeGroup group);
