#include "effects/digraph_triads.h"

#include "effects/digraph_walk.h"

namespace {

// The four bit rows at the dyad (i, j), with the arc i to j absent. The only bits of i and j that
// can stand in them belong to an arc back, so every intersection of two of them is over third
// actors alone.
struct Around {
    const std::uint64_t* from_i;
    const std::uint64_t* to_i;
    const std::uint64_t* from_j;
    const std::uint64_t* to_j;
    int words;
    bool back;
};

Around around(const Digraph& digraph, int i, int j) {
    return {
        digraph.adjacency[i],    digraph.adjacency_in[i],         digraph.adjacency[j],
        digraph.adjacency_in[j], digraph.adjacency.words_per_row, digraph_has_arc(digraph, j, i)};
}

int both(const Around& near, const std::uint64_t* a, const std::uint64_t* b) {
    return row_and_count(a, b, near.words);
}
int all_three(const Around& near, const std::uint64_t* a, const std::uint64_t* b,
              const std::uint64_t* c) {
    return row_and_count(a, b, c, near.words);
}
int all_four(const Around& near) {
    int count = 0;
    for (int word = 0; word < near.words; ++word) {
        count +=
            bit_count(near.from_i[word] & near.to_i[word] & near.from_j[word] & near.to_j[word]);
    }
    return count;
}

template <class Term>
double arc_sum(const Digraph& digraph, Term term) {
    double sum = 0.0;
    for (int p = 0; p < digraph.vertices; ++p) {
        members_for_each(digraph.receivers, digraph.adjacency, p,
                         [&](int q) { sum += term(p, q); });
    }
    return sum;
}

// Sum over the ordered mutual pairs.
template <class Term>
double mutual_sum(const Digraph& digraph, Term term) {
    return arc_sum(digraph, [&](int p, int q) {
        return digraph_has_arc(digraph, q, p) ? static_cast<double>(term(p, q)) : 0.0;
    });
}

// Actors that two actors both have mutual dyads with.
int shared_partners(const Digraph& digraph, int p, int q) {
    int count = 0;
    for (int word = 0; word < digraph.adjacency.words_per_row; ++word) {
        count += bit_count(digraph.adjacency[p][word] & digraph.adjacency_in[p][word] &
                           digraph.adjacency[q][word] & digraph.adjacency_in[q][word]);
    }
    return count;
}

}  // namespace

// T1 (300): three mutual dyads.
double digraph_t1_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const Around near = around(digraph, i, j);
    return near.back ? all_four(near) : 0;
}
double digraph_t1_count(Digraph& digraph, const EffectData&) {
    return mutual_sum(digraph, [&](int p, int q) { return shared_partners(digraph, p, q); }) / 6.0;
}

// T2 (210): an actor with two mutual partners, and an arc between the partners.
double digraph_t2_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const Around near = around(digraph, i, j);
    const int partners = all_four(near);
    if (!near.back) {
        return partners;
    }
    return partners + all_three(near, near.to_i, near.from_j, near.from_i) +
           all_three(near, near.to_j, near.from_j, near.from_i) +
           all_three(near, near.to_i, near.to_j, near.from_i) +
           all_three(near, near.from_j, near.to_i, near.to_j);
}
double digraph_t2_count(Digraph& digraph, const EffectData&) {
    return arc_sum(
        digraph, [&](int p, int q) { return static_cast<double>(shared_partners(digraph, p, q)); });
}

// T3 (120C): a mutual dyad and a two-path from one of its actors to the other.
double digraph_t3_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const Around near = around(digraph, i, j);
    const int change = all_three(near, near.from_j, near.to_i, near.from_i) +
                       all_three(near, near.from_j, near.to_i, near.to_j);
    if (!near.back) {
        return change;
    }
    return change + both(near, near.from_j, near.to_i) + both(near, near.from_i, near.to_j);
}
double digraph_t3_count(Digraph& digraph, const EffectData&) {
    return mutual_sum(digraph, [&](int p, int q) { return digraph.two_paths[p][q]; });
}

// T4 (120D): a mutual dyad and an actor that sends to both.
double digraph_t4_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const Around near = around(digraph, i, j);
    const int change = all_three(near, near.to_j, near.from_i, near.from_j);
    return near.back ? change + both(near, near.to_j, near.to_i) : change;
}
double digraph_t4_count(Digraph& digraph, const EffectData&) {
    return mutual_sum(digraph, [&](int p, int q) { return digraph.shared_senders[p][q]; }) * 0.5;
}

// T5 (120U): a mutual dyad and an actor that receives from both.
double digraph_t5_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const Around near = around(digraph, i, j);
    const int change = all_three(near, near.to_j, near.to_i, near.from_i);
    return near.back ? change + both(near, near.from_j, near.from_i) : change;
}
double digraph_t5_count(Digraph& digraph, const EffectData&) {
    return mutual_sum(digraph, [&](int p, int q) { return digraph.shared_receivers[p][q]; }) * 0.5;
}

// T6 (201): an actor with two mutual partners.
double digraph_t6_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const Around near = around(digraph, i, j);
    return near.back ? both(near, near.from_j, near.to_j) + both(near, near.from_i, near.to_i) : 0;
}
double digraph_t6_count(Digraph& digraph, const EffectData&) {
    double sum = 0.0;
    for (const int partners : digraph.mutual_degree) {
        sum += partners * (partners - 1.0) / 2.0;
    }
    return sum;
}

// T7 (111D): a mutual dyad and a third actor that sends to one of its actors.
double digraph_t7_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const int partners = mutual_of(digraph, j);
    if (!digraph_has_arc(digraph, j, i)) {
        return partners;
    }
    return partners + in_of(digraph, i) - 1 + in_of(digraph, j);
}
double digraph_t7_count(Digraph& digraph, const EffectData&) {
    double sum = 0.0;
    for (int actor = 0; actor < digraph.vertices; ++actor) {
        sum += mutual_of(digraph, actor) * (in_of(digraph, actor) - 1.0);
    }
    return sum;
}

// T8 (111U): a mutual dyad and a third actor that one of its actors sends to.
double digraph_t8_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const int partners = mutual_of(digraph, i);
    if (!digraph_has_arc(digraph, j, i)) {
        return partners;
    }
    return partners + out_of(digraph, j) - 1 + out_of(digraph, i);
}
double digraph_t8_count(Digraph& digraph, const EffectData&) {
    double sum = 0.0;
    for (int actor = 0; actor < digraph.vertices; ++actor) {
        sum += mutual_of(digraph, actor) * (out_of(digraph, actor) - 1.0);
    }
    return sum;
}

// T9 (030T): a transitive triple.
double digraph_t9_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const Around near = around(digraph, i, j);
    return both(near, near.to_i, near.to_j) + both(near, near.from_i, near.to_j) +
           both(near, near.from_i, near.from_j);
}
double digraph_t9_count(Digraph& digraph, const EffectData&) {
    return arc_sum(digraph,
                   [&](int p, int q) { return static_cast<double>(digraph.two_paths[p][q]); });
}

// T10 (030C): a cycle of three arcs.
double digraph_t10_change(const Digraph& digraph, const EffectData&, int i, int j, int) {
    const Around near = around(digraph, i, j);
    return both(near, near.from_j, near.to_i);
}
double digraph_t10_count(Digraph& digraph, const EffectData&) {
    return arc_sum(digraph,
                   [&](int p, int q) { return static_cast<double>(digraph.two_paths[q][p]); }) /
           3.0;
}
