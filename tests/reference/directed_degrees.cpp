#include "directed_families.h"
#include "weights.h"

#include <cmath>

namespace reference {

namespace {

// Arcs: the new arc itself.
double arc_change(const DirectedState&, int, int, float) { return 1.0; }

double arc_value(const PlainDigraph& digraph, float) { return arc_count(digraph); }

// Mutual dyads: the arc back makes one.
int arc_back(const DirectedState& state, int i, int j) { return has_arc(state, j, i) ? 1 : 0; }

double reciprocity_change(const DirectedState& state, int i, int j, float) {
    return arc_back(state, i, j);
}

double reciprocity_value(const PlainDigraph& digraph, float) { return mutual_dyad_count(digraph); }

// Stars of k arcs into one actor, and out of one actor.
template <int k>
double in_star_change(const DirectedState& state, int, int j, float) {
    return choose(in_degree(state, j), k - 1);
}

template <int k>
double in_star_value(const PlainDigraph& digraph, float) {
    double sum = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        sum += choose(in_degree(digraph, v), k);
    }
    return sum;
}

template <int k>
double out_star_change(const DirectedState& state, int i, int, float) {
    return choose(out_degree(state, i), k - 1);
}

template <int k>
double out_star_value(const PlainDigraph& digraph, float) {
    double sum = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        sum += choose(out_degree(digraph, v), k);
    }
    return sum;
}

// Paths of two arcs over three different actors: into i and on to j, or over j and on from there.
double path2_change(const DirectedState& state, int i, int j, float) {
    return in_degree(state, i) - 2 * arc_back(state, i, j) + out_degree(state, j);
}

double path2_value(const PlainDigraph& digraph, float) {
    double sum = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        sum += in_degree(digraph, v) * out_degree(digraph, v) - mutual_degree(digraph, v);
    }
    return sum;
}

// Actors that receive and do not send: i may stop being one, an isolated j becomes one.
double sink_change(const DirectedState& state, int i, int j, float) {
    double change = 0.0;
    if (out_degree(state, i) == 0 && in_degree(state, i) > 0) {
        change -= 1.0;
    }
    if (out_degree(state, j) == 0 && in_degree(state, j) == 0) {
        change += 1.0;
    }
    return change;
}

double sink_value(const PlainDigraph& digraph, float) {
    double count = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        if (out_degree(digraph, v) == 0 && in_degree(digraph, v) > 0) {
            count += 1.0;
        }
    }
    return count;
}

// Actors that send and do not receive: an isolated i becomes one, j may stop being one.
double source_change(const DirectedState& state, int i, int j, float) {
    double change = 0.0;
    if (out_degree(state, i) == 0 && in_degree(state, i) == 0) {
        change += 1.0;
    }
    if (in_degree(state, j) == 0 && out_degree(state, j) > 0) {
        change -= 1.0;
    }
    return change;
}

double source_value(const PlainDigraph& digraph, float) {
    double count = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        if (in_degree(digraph, v) == 0 && out_degree(digraph, v) > 0) {
            count += 1.0;
        }
    }
    return count;
}

// Actors without any arc.
double isolates_change(const DirectedState& state, int i, int j, float) {
    double change = 0.0;
    for (const int x : {i, j}) {
        if (in_degree(state, x) == 0 && out_degree(state, x) == 0) {
            change -= 1.0;
        }
    }
    return change;
}

double isolates_value(const PlainDigraph& digraph, float) {
    double count = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        if (in_degree(digraph, v) == 0 && out_degree(digraph, v) == 0) {
            count += 1.0;
        }
    }
    return count;
}

// Alternating stars of the arcs into one actor, and out of one actor. At lambda 1 every arc after
// an actor's first counts one in the whole value, and in the change.
double one_alternating_star(int degree_before, float lambda) {
    if (lambda > 1.0F) {
        return lambda * (1 - geometric_weight(degree_before, lambda));
    }
    if (lambda == 1.0F) {
        return degree_before >= 1 ? 1.0 : 0.0;
    }
    return 0.0;
}

double alternating_stars(const std::vector<int>& degrees, int arcs, float lambda) {
    if (lambda > 1.0F) {
        double sum = 0.0;
        for (const int d : degrees) {
            const float linear = static_cast<float>(d) / lambda;
            sum += geometric_weight(d, lambda) - 1.0 + static_cast<double>(linear);
        }
        const float squared = lambda * lambda;
        return squared * sum;
    }
    if (lambda == 1.0F) {
        double without = 0.0;
        for (const int d : degrees) {
            if (d == 0) {
                without += 1.0;
            }
        }
        return arcs + without - static_cast<double>(degrees.size());
    }
    return 0.0;
}

double ain_change(const DirectedState& state, int, int j, float lambda) {
    return one_alternating_star(in_degree(state, j), lambda);
}

double ain_value(const PlainDigraph& digraph, float lambda) {
    std::vector<int> degrees;
    for (int v = 0; v < digraph.n; ++v) {
        degrees.push_back(in_degree(digraph, v));
    }
    return alternating_stars(degrees, arc_count(digraph), lambda);
}

double aout_change(const DirectedState& state, int i, int, float lambda) {
    return one_alternating_star(out_degree(state, i), lambda);
}

double aout_value(const PlainDigraph& digraph, float lambda) {
    std::vector<int> degrees;
    for (int v = 0; v < digraph.n; ++v) {
        degrees.push_back(out_degree(digraph, v));
    }
    return alternating_stars(degrees, arc_count(digraph), lambda);
}

// One arc into an actor with an alternating star out of it, the star's ends differing from the
// sender of that arc.
double one_in_aout_change(const DirectedState& state, int i, int j, float lambda) {
    if (!(lambda > 1.0F)) {
        return 0.0;
    }
    const auto w = [lambda](int count) { return geometric_weight(count, lambda); };
    const int b = arc_back(state, i, j);
    const int ri = mutual_degree(state, i);
    const int rj = mutual_degree(state, j);
    const int p = in_degree(state, i) - ri - b;
    const int q = out_degree(state, i) - ri;
    const int s = out_degree(state, j) - rj - b;
    return lambda + w(ri + q) * p + w(ri + q - 1) * ri - lambda * w(rj + s);
}

double one_in_aout_value(const PlainDigraph& digraph, float lambda) {
    if (!(lambda > 1.0F)) {
        return 0.0;
    }
    double sum = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        const int in = in_degree(digraph, v);
        const int out = out_degree(digraph, v);
        const int r = mutual_degree(digraph, v);
        double term = (in - r) * (1 - geometric_weight(out, lambda));
        if (r > 0) {
            term += r * (1 - geometric_weight(out - 1, lambda));
        }
        sum += term;
    }
    return lambda * sum;
}

// One arc out of an actor with an alternating star into it, the star's ends differing from the
// receiver of that arc.
double ain_one_out_change(const DirectedState& state, int i, int j, float lambda) {
    if (!(lambda > 1.0F)) {
        return 0.0;
    }
    const auto w = [lambda](int count) { return geometric_weight(count, lambda); };
    const int b = arc_back(state, i, j);
    const int rj = mutual_degree(state, j);
    const int in_j = in_degree(state, j);
    return lambda + w(in_j) * (out_degree(state, j) - rj - b) + w(in_j - 1) * rj -
           lambda * w(in_degree(state, i) - b);
}

double ain_one_out_value(const PlainDigraph& digraph, float lambda) {
    if (!(lambda > 1.0F)) {
        return 0.0;
    }
    double sum = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        const int in = in_degree(digraph, v);
        const int out = out_degree(digraph, v);
        const int r = mutual_degree(digraph, v);
        double term = (out - r) * (1 - geometric_weight(in, lambda));
        if (r > 0) {
            term += r * (1 - geometric_weight(in - 1, lambda));
        }
        sum += term;
    }
    return lambda * sum;
}

// Alternating stars into an actor and out of it at once, mutual dyads weighted apart.
double power(double base, int exponent) { return std::pow(base, static_cast<double>(exponent)); }

double ain_aout_change(const DirectedState& state, int i, int j, float lambda) {
    if (!(lambda > 1.0F)) {
        return 0.0;
    }
    const double p = static_cast<double>(1.0F - 1.0F / lambda);
    const double q = static_cast<double>(1.0F - 1.0F / (lambda - 1.0F));
    const int b = arc_back(state, i, j);
    const int ri = mutual_degree(state, i);
    const int rj = mutual_degree(state, j);
    const double at_receiver = lambda * power(p, in_degree(state, j) - rj) *
                               (power(p, rj) - power(p, out_degree(state, j) - b) * power(q, rj));
    const double at_sender = lambda * power(p, out_degree(state, i)) *
                             (1 - power(p, in_degree(state, i) - ri - b) * power(q, ri));
    return at_receiver + at_sender;
}

double ain_aout_value(const PlainDigraph& digraph, float lambda) {
    if (!(lambda > 1.0F)) {
        return 0.0;
    }
    const double p = 1.0 - 1.0 / static_cast<double>(lambda);
    const double q = static_cast<double>(1.0F - 1.0F / (lambda - 1.0F));
    double sum = 0.0;
    for (int v = 0; v < digraph.n; ++v) {
        const int out = out_degree(digraph, v);
        const int r = mutual_degree(digraph, v);
        const int one_way_in = in_degree(digraph, v) - r;
        sum += ((power(q, r) - 1) * power(p, out) - (power(p, r) - 1)) * power(p, one_way_in) +
               (power(p, one_way_in) - 1) * (power(p, out) - 1);
    }
    const float squared = lambda * lambda;
    return squared * sum;
}

}  // namespace

std::vector<DirectedEffect> directed_degree_effects() {
    return {
        {"arc", arc_change, arc_value},
        {"reciprocity", reciprocity_change, reciprocity_value},
        {"in2star", in_star_change<2>, in_star_value<2>},
        {"in-3-star", in_star_change<3>, in_star_value<3>},
        {"4-in-star", in_star_change<4>, in_star_value<4>},
        {"out2star", out_star_change<2>, out_star_value<2>},
        {"out-3-star", out_star_change<3>, out_star_value<3>},
        {"4-out-star", out_star_change<4>, out_star_value<4>},
        {"path2", path2_change, path2_value},
        {"Sink", sink_change, sink_value},
        {"Source", source_change, source_value},
        {"isolates", isolates_change, isolates_value},
        {"AinS", ain_change, ain_value},
        {"AoutS", aout_change, aout_value},
        {"AinS2", ain_change, ain_value},
        {"AoutS2", aout_change, aout_value},
        {"Ain1outS", ain_one_out_change, ain_one_out_value},
        {"1inAoutS", one_in_aout_change, one_in_aout_value},
        {"AinAoutS", ain_aout_change, ain_aout_value},
    };
}

}  // namespace reference
