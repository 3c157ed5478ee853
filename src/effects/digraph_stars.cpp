#include "effects/digraph_stars.h"

#include "effects/digraph_walk.h"

namespace {

// C(d, k) in double precision; 0.0 when k exceeds d.
double choose(int d, int k) {
    if (k > d) {
        return 0.0;
    }
    double product = 1.0;
    double factorial = 1.0;
    for (int step = 0; step < k; ++step) {
        product *= static_cast<double>(d - step);
        factorial *= static_cast<double>(step + 1);
    }
    return product / factorial;
}

double star_sum(const std::vector<int>& degrees, int k) {
    double sum = 0.0;
    for (const int degree : degrees) {
        sum += choose(degree, k);
    }
    return sum;
}

template <class Holds>
double count_actors(const Digraph& digraph, Holds holds) {
    double count = 0.0;
    for (int actor = 0; actor < digraph.vertices; ++actor) {
        count += holds(in_of(digraph, actor), out_of(digraph, actor)) ? 1.0 : 0.0;
    }
    return count;
}

}  // namespace

// An arc, and a mutual dyad.
double digraph_arc_change(const Digraph&, const EffectData&, int, int, int) { return 1.0; }
double digraph_arc_count(Digraph& digraph, const EffectData&) { return digraph.arcs; }
double digraph_reciprocity_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    return digraph_has_arc(digraph, j, i) ? 1.0 : 0.0;
}
double digraph_reciprocity_count(Digraph& digraph, const EffectData&) {
    return digraph.mutual_dyads;
}

// k arcs into one actor, k arcs out of one. The counts are formed in double precision and do not
// wrap, unlike the undirected stars.
double digraph_in2star_change(const Digraph& digraph, const EffectData&, int, int j, int) {
    return choose(in_of(digraph, j), 1);
}
double digraph_in2star_count(Digraph& digraph, const EffectData&) {
    return star_sum(digraph.in_degree, 2);
}
double digraph_in3star_change(const Digraph& digraph, const EffectData&, int, int j, int) {
    return choose(in_of(digraph, j), 2);
}
double digraph_in3star_count(Digraph& digraph, const EffectData&) {
    return star_sum(digraph.in_degree, 3);
}
double digraph_in4star_change(const Digraph& digraph, const EffectData&, int, int j, int) {
    return choose(in_of(digraph, j), 3);
}
double digraph_in4star_count(Digraph& digraph, const EffectData&) {
    return star_sum(digraph.in_degree, 4);
}
double digraph_out2star_change(const Digraph& digraph, const EffectData&, int i, int, int) {
    return choose(out_of(digraph, i), 1);
}
double digraph_out2star_count(Digraph& digraph, const EffectData&) {
    return star_sum(digraph.out_degree, 2);
}
double digraph_out3star_change(const Digraph& digraph, const EffectData&, int i, int, int) {
    return choose(out_of(digraph, i), 2);
}
double digraph_out3star_count(Digraph& digraph, const EffectData&) {
    return star_sum(digraph.out_degree, 3);
}
double digraph_out4star_change(const Digraph& digraph, const EffectData&, int i, int, int) {
    return choose(out_of(digraph, i), 3);
}
double digraph_out4star_count(Digraph& digraph, const EffectData&) {
    return star_sum(digraph.out_degree, 4);
}

// An arc into an actor and an arc out of it, to a third.
double digraph_path2_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const int back = digraph_has_arc(digraph, j, i) ? 1 : 0;
    return in_of(digraph, i) - 2 * back + out_of(digraph, j);
}
double digraph_path2_count(Digraph& digraph, const EffectData&) {
    double sum = 0.0;
    for (int actor = 0; actor < digraph.vertices; ++actor) {
        sum += static_cast<double>(in_of(digraph, actor)) * out_of(digraph, actor) -
               mutual_of(digraph, actor);
    }
    return sum;
}

// Actors that only receive, only send, or do neither.
double digraph_sinks_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    double change = 0.0;
    if (out_of(digraph, i) == 0 && in_of(digraph, i) > 0) {
        change -= 1.0;
    }
    if (out_of(digraph, j) == 0 && in_of(digraph, j) == 0) {
        change += 1.0;
    }
    return change;
}
double digraph_sinks_count(Digraph& digraph, const EffectData&) {
    return count_actors(digraph, [](int in, int out) { return out == 0 && in > 0; });
}
double digraph_sources_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    double change = 0.0;
    if (out_of(digraph, i) == 0 && in_of(digraph, i) == 0) {
        change += 1.0;
    }
    if (in_of(digraph, j) == 0 && out_of(digraph, j) > 0) {
        change -= 1.0;
    }
    return change;
}
double digraph_sources_count(Digraph& digraph, const EffectData&) {
    return count_actors(digraph, [](int in, int out) { return in == 0 && out > 0; });
}
double digraph_isolates_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    double change = 0.0;
    for (const int end : {i, j}) {
        if (in_of(digraph, end) == 0 && out_of(digraph, end) == 0) {
            change -= 1.0;
        }
    }
    return change;
}
double digraph_isolates_count(Digraph& digraph, const EffectData&) {
    return count_actors(digraph, [](int in, int out) { return in == 0 && out == 0; });
}
