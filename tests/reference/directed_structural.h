// The 44 structural effects of directed networks, each by the plain loop over the configurations
// it counts, and the triad census by looking at every triple.
#pragma once

#include "effect_table.h"
#include "plain_digraph.h"

#include <array>
#include <string_view>
#include <vector>

namespace reference {

// Effects without a lambda ignore it.
using DirectedEffect = Effect<DirectedState, PlainDigraph, float>;

// All 44 in the order in which the evaluator goes through them: "arc", "reciprocity", "in2star",
// "in-3-star", "4-in-star", "out2star", "out-3-star", "4-out-star", "path2", "T7", "T8", "T3",
// "T4", "T5", "T6", "T2", "Cyclic-Triad", "Transitive-Triad", "T1", "Sink", "Source", "isolates",
// "AinS", "AoutS", "AinS2", "AoutS2", "Ain1outS", "1inAoutS", "AinAoutS", "AT-T", "AT-C", "AT-D",
// "AT-U", "AT-TD", "AT-TU", "AT-DU", "AT-TDU", "A2P-T", "A2P-D", "A2P-U", "A2P-TD", "A2P-TU",
// "A2P-DU", "A2P-TDU".
const std::vector<DirectedEffect>& directed_effects();

// The row of that name; throws std::out_of_range when there is none.
const DirectedEffect& directed_effect(std::string_view name);

// Whether the value of an effect depends on its lambda.
bool has_lambda(const DirectedEffect& effect);

// The sixteen classes in the order of the census.
inline constexpr std::array<std::string_view, 16> triad_classes = {
    "300",  "210",  "120C", "120D", "120U", "201",  "111D", "111U",
    "030T", "030C", "102",  "021D", "021C", "021U", "012",  "003",
};

// Place of the triple's class in that order.
int triad_class(const PlainDigraph& digraph, int a, int b, int c);

// How many of all triples a < b < c are of each class.
std::array<double, 16> triad_census(const PlainDigraph& digraph);

}  // namespace reference
