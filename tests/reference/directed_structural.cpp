#include "directed_structural.h"

#include "directed_families.h"

#include <algorithm>
#include <stdexcept>

namespace reference {

namespace {

constexpr std::array<std::string_view, 44> evaluation_order = {
    "arc",        "reciprocity", "in2star",  "in-3-star", "4-in-star",    "out2star",
    "out-3-star", "4-out-star",  "path2",    "T7",        "T8",           "T3",
    "T4",         "T5",          "T6",       "T2",        "Cyclic-Triad", "Transitive-Triad",
    "T1",         "Sink",        "Source",   "isolates",  "AinS",         "AoutS",
    "AinS2",      "AoutS2",      "Ain1outS", "1inAoutS",  "AinAoutS",     "AT-T",
    "AT-C",       "AT-D",        "AT-U",     "AT-TD",     "AT-TU",        "AT-DU",
    "AT-TDU",     "A2P-T",       "A2P-D",    "A2P-U",     "A2P-TD",       "A2P-TU",
    "A2P-DU",     "A2P-TDU",
};

std::vector<DirectedEffect> in_evaluation_order() {
    std::vector<DirectedEffect> known;
    for (const auto& family :
         {directed_degree_effects(), directed_triad_effects(), directed_alternating_effects()}) {
        known.insert(known.end(), family.begin(), family.end());
    }
    std::vector<DirectedEffect> ordered;
    for (const std::string_view name : evaluation_order) {
        ordered.push_back(find_effect(known, name));
    }
    return ordered;
}

int place_of(std::string_view name) {
    const auto* const found = std::find(triad_classes.begin(), triad_classes.end(), name);
    return static_cast<int>(found - triad_classes.begin());
}

// One triple, with what its arcs say about each of its actors.
struct Triple {
    std::array<int, 3> actors;
    std::array<int, 3> in = {0, 0, 0};
    std::array<int, 3> out = {0, 0, 0};
    int mutual_dyads = 0;
    int one_way_dyads = 0;
    int null_dyads = 0;
};

Triple look_at(const PlainDigraph& digraph, int a, int b, int c) {
    Triple triple{{a, b, c}};
    for (std::size_t x = 0; x < 3; ++x) {
        for (std::size_t y = 0; y < 3; ++y) {
            if (x != y && has_arc(digraph, triple.actors[x], triple.actors[y])) {
                ++triple.out[x];
                ++triple.in[y];
            }
        }
    }
    for (std::size_t x = 0; x < 3; ++x) {
        const std::size_t y = (x + 1) % 3;
        const bool there = has_arc(digraph, triple.actors[x], triple.actors[y]);
        const bool back = has_arc(digraph, triple.actors[y], triple.actors[x]);
        if (there && back) {
            ++triple.mutual_dyads;
        } else if (there || back) {
            ++triple.one_way_dyads;
        } else {
            ++triple.null_dyads;
        }
    }
    return triple;
}

bool some_actor(const Triple& triple, int in, int out) {
    for (std::size_t x = 0; x < 3; ++x) {
        if (triple.in[x] == in && triple.out[x] == out) {
            return true;
        }
    }
    return false;
}

// Names the class from the numbers of mutual, one-way and null dyads and, where these leave a
// choice, from the one actor that tells the variants apart.
std::string_view class_name(const Triple& triple) {
    const int code = 100 * triple.mutual_dyads + 10 * triple.one_way_dyads + triple.null_dyads;
    switch (code) {
        case 300:
            return "300";
        case 210:
            return "210";
        case 201:
            return "201";
        case 120:
            // The actor outside the mutual dyad sends to both, receives from both, or one of each.
            if (some_actor(triple, 0, 2)) {
                return "120D";
            }
            return some_actor(triple, 2, 0) ? "120U" : "120C";
        case 111:
            // The actor outside the mutual dyad sends to it or receives from it.
            return some_actor(triple, 0, 1) ? "111D" : "111U";
        case 102:
            return "102";
        case 30:
            return some_actor(triple, 0, 2) ? "030T" : "030C";
        case 21:
            if (some_actor(triple, 0, 2)) {
                return "021D";
            }
            return some_actor(triple, 2, 0) ? "021U" : "021C";
        case 12:
            return "012";
        case 3:
            return "003";
        default:
            throw std::logic_error("three actors have three dyads");
    }
}

}  // namespace

const std::vector<DirectedEffect>& directed_effects() {
    static const std::vector<DirectedEffect> effects = in_evaluation_order();
    return effects;
}

const DirectedEffect& directed_effect(std::string_view name) {
    return find_effect(directed_effects(), name);
}

bool has_lambda(const DirectedEffect& effect) {
    return effect.name.starts_with("A") || effect.name == "1inAoutS";
}

int triad_class(const PlainDigraph& digraph, int a, int b, int c) {
    return place_of(class_name(look_at(digraph, a, b, c)));
}

std::array<double, 16> triad_census(const PlainDigraph& digraph) {
    std::array<double, 16> census{};
    for (int a = 0; a < digraph.n; ++a) {
        for (int b = a + 1; b < digraph.n; ++b) {
            for (int c = b + 1; c < digraph.n; ++c) {
                census[static_cast<std::size_t>(triad_class(digraph, a, b, c))] += 1.0;
            }
        }
    }
    return census;
}

}  // namespace reference
