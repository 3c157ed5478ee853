#include "attributes.h"

namespace reference {

namespace {

// Adds term(i, j) over all arcs i to j, row by row.
template <typename Term>
double over_arcs(const PlainDigraph& digraph, Term term) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        for (int j = 0; j < digraph.n; ++j) {
            if (i != j && has_arc(digraph, i, j)) {
                sum += term(i, j);
            }
        }
    }
    return sum;
}

// Number of mutual dyads i < j for which `holds` is true.
template <typename Holds>
double mutual_dyads(const PlainDigraph& digraph, Holds holds) {
    double count = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        for (int j = i + 1; j < digraph.n; ++j) {
            if (mutual(digraph, i, j) && holds(i, j)) {
                count += 1.0;
            }
        }
    }
    return count;
}

double one_if(bool condition) { return condition ? 1.0 : 0.0; }

double pairs_of(int count) { return count < 2 ? 0.0 : count * (count - 1) / 2; }

// Arcs between two actors with the value 1.
double interaction_change(const DirectedState&, int i, int j, const Codes& a) {
    return one_if(item(a, i) == 1 && item(a, j) == 1);
}

double interaction_value(const PlainDigraph& digraph, const Codes& a) {
    return over_arcs(digraph,
                     [&](int i, int j) { return one_if(item(a, i) == 1 && item(a, j) == 1); });
}

// Arcs whose sender has the given value.
template <int value>
double sender_change(const DirectedState&, int i, int, const Codes& a) {
    return one_if(item(a, i) == value);
}

template <int value>
double sender_value(const PlainDigraph& digraph, const Codes& a) {
    return over_arcs(digraph, [&](int i, int) { return one_if(item(a, i) == value); });
}

// Arcs whose receiver has the given value.
template <int value>
double receiver_change(const DirectedState&, int, int j, const Codes& a) {
    return one_if(item(a, j) == value);
}

template <int value>
double receiver_value(const PlainDigraph& digraph, const Codes& a) {
    return over_arcs(digraph, [&](int, int j) { return one_if(item(a, j) == value); });
}

// Mutual dyads of two actors with the value 1.
double interaction_reciprocity_change(const DirectedState& state, int i, int j, const Codes& a) {
    return one_if(has_arc(state, j, i) && item(a, i) == 1 && item(a, j) == 1);
}

double interaction_reciprocity_value(const PlainDigraph& digraph, const Codes& a) {
    return mutual_dyads(digraph, [&](int i, int j) { return item(a, i) == 1 && item(a, j) == 1; });
}

// Mutual dyads with the value 1 on at least one side; both sides still make one.
double activity_reciprocity_change(const DirectedState& state, int i, int j, const Codes& a) {
    return one_if(has_arc(state, j, i) && (item(a, i) == 1 || item(a, j) == 1));
}

double activity_reciprocity_value(const PlainDigraph& digraph, const Codes& a) {
    return mutual_dyads(digraph, [&](int i, int j) { return item(a, i) == 1 || item(a, j) == 1; });
}

// Pairs of arcs into an actor with the attribute: 1 in the whole value, anything but 0 in the
// change.
double in2star_change(const DirectedState& state, int, int j, const Codes& a) {
    if (item(a, j) == 0) {
        return 0.0;
    }
    double count = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k != j && has_arc(state, k, j)) {
            count += 1.0;
        }
    }
    return count;
}

double in2star_value(const PlainDigraph& digraph, const Codes& a) {
    double sum = 0.0;
    for (int j = 0; j < digraph.n; ++j) {
        if (item(a, j) == 1) {
            sum += pairs_of(in_degree(digraph, j));
        }
    }
    return sum;
}

// Paths of two arcs over a middle actor with the value 1.
double path2_change(const DirectedState& state, int i, int j, const Codes& a) {
    double count = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        if (item(a, j) == 1 && has_arc(state, j, k)) {
            count += 1.0;
        }
        if (item(a, i) == 1 && has_arc(state, k, i)) {
            count += 1.0;
        }
    }
    return count;
}

double path2_value(const PlainDigraph& digraph, const Codes& a) {
    double count = 0.0;
    for (int m = 0; m < digraph.n; ++m) {
        if (item(a, m) != 1) {
            continue;
        }
        for (int p = 0; p < digraph.n; ++p) {
            for (int r = 0; r < digraph.n; ++r) {
                if (p != m && r != m && p != r && has_arc(digraph, p, m) &&
                    has_arc(digraph, m, r)) {
                    count += 1.0;
                }
            }
        }
    }
    return count;
}

// Pairs of arcs out of an actor with the attribute: 1 in the whole value, anything but 0 in the
// change.
double out2star_change(const DirectedState& state, int i, int, const Codes& a) {
    if (item(a, i) == 0) {
        return 0.0;
    }
    double count = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k != i && has_arc(state, i, k)) {
            count += 1.0;
        }
    }
    return count;
}

double out2star_value(const PlainDigraph& digraph, const Codes& a) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        if (item(a, i) == 1) {
            sum += pairs_of(out_degree(digraph, i));
        }
    }
    return sum;
}

// An integer times a value, rounded to single precision before it is widened.
double single_product(int count, float z) {
    const float product = static_cast<float>(count) * z;
    return static_cast<double>(product);
}

// Arcs by the value of their sender, missing values left out.
double value_of_sender_change(const DirectedState&, int i, int, const ContinuousData& z) {
    const float value = item(z.values, i);
    return value == missing_real ? 0.0 : static_cast<double>(value);
}

double value_of_sender_value(const PlainDigraph& digraph, const ContinuousData& z) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        if (item(z.values, i) != missing_real) {
            sum += single_product(out_degree(digraph, i), item(z.values, i));
        }
    }
    return sum;
}

// Arcs by the value of their receiver, missing values left out.
double value_of_receiver_change(const DirectedState&, int, int j, const ContinuousData& z) {
    const float value = item(z.values, j);
    return value == missing_real ? 0.0 : static_cast<double>(value);
}

double value_of_receiver_value(const PlainDigraph& digraph, const ContinuousData& z) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        if (item(z.values, i) != missing_real) {
            sum += single_product(in_degree(digraph, i), item(z.values, i));
        }
    }
    return sum;
}

// Arcs whose sender has no value.
double sender_without_change(const DirectedState&, int i, int, const ContinuousData& z) {
    return one_if(item(z.values, i) == missing_real);
}

double sender_without_value(const PlainDigraph& digraph, const ContinuousData& z) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        if (item(z.values, i) == missing_real) {
            sum += out_degree(digraph, i);
        }
    }
    return sum;
}

// Arcs whose receiver has no value.
double receiver_without_change(const DirectedState&, int, int j, const ContinuousData& z) {
    return one_if(item(z.values, j) == missing_real);
}

double receiver_without_value(const PlainDigraph& digraph, const ContinuousData& z) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        if (item(z.values, i) == missing_real) {
            sum += in_degree(digraph, i);
        }
    }
    return sum;
}

// Arcs by the cell of one of the pair tables.
template <FloatTable ContinuousData::*table>
double pair_change(const DirectedState&, int i, int j, const ContinuousData& z) {
    return static_cast<double>(cell(z.*table, i, j));
}

template <FloatTable ContinuousData::*table>
double pair_value(const PlainDigraph& digraph, const ContinuousData& z) {
    return over_arcs(digraph,
                     [&](int i, int j) { return static_cast<double>(cell(z.*table, i, j)); });
}

// Mutual dyads by the cell of one of the pair tables. The whole value takes every arc from the
// lower to the higher actor, answered or not, so it is not the sum of the changes.
template <FloatTable ContinuousData::*table>
double mutual_pair_change(const DirectedState& state, int i, int j, const ContinuousData& z) {
    return has_arc(state, j, i) ? static_cast<double>(cell(z.*table, i, j)) : 0.0;
}

template <FloatTable ContinuousData::*table>
double mutual_pair_value(const PlainDigraph& digraph, const ContinuousData& z) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        for (int j = i + 1; j < digraph.n; ++j) {
            if (has_arc(digraph, i, j)) {
                sum += static_cast<double>(cell(z.*table, i, j));
            }
        }
    }
    return sum;
}

// d (d - 1) z rounded to single precision after each product, then halved as a double.
double single_pairs(int d, float z) {
    const float once = static_cast<float>(d) * z;
    const float twice = once * static_cast<float>(d - 1);
    return static_cast<double>(twice) * 0.5;
}

// Pairs of arcs into an actor by its value, a missing value being the number that marks it.
double value_in2star_change(const DirectedState& state, int, int j, const ContinuousData& z) {
    return single_product(in_degree(state, j), item(z.values, j));
}

double value_in2star_value(const PlainDigraph& digraph, const ContinuousData& z) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        sum += single_pairs(in_degree(digraph, i), item(z.values, i));
    }
    return sum;
}

// Pairs of arcs out of an actor by its value, likewise.
double value_out2star_change(const DirectedState& state, int i, int, const ContinuousData& z) {
    return single_product(out_degree(state, i), item(z.values, i));
}

double value_out2star_value(const PlainDigraph& digraph, const ContinuousData& z) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        sum += single_pairs(out_degree(digraph, i), item(z.values, i));
    }
    return sum;
}

// Paths of two arcs over three different actors by the value of the middle one, likewise.
double value_path2_change(const DirectedState& state, int i, int j, const ContinuousData& z) {
    const int back = has_arc(state, j, i) ? 1 : 0;
    return single_product(in_degree(state, i) - back, item(z.values, i)) +
           single_product(out_degree(state, j) - back, item(z.values, j));
}

double value_path2_value(const PlainDigraph& digraph, const ContinuousData& z) {
    double sum = 0.0;
    for (int i = 0; i < digraph.n; ++i) {
        const int paths =
            in_degree(digraph, i) * out_degree(digraph, i) - mutual_degree(digraph, i);
        sum += single_product(paths, item(z.values, i));
    }
    return sum;
}

// Arcs within a category, and between two.
double matching_change(const DirectedState&, int i, int j, const Codes& c) {
    return one_if(item(c, i) == item(c, j));
}

double matching_value(const PlainDigraph& digraph, const Codes& c) {
    return over_arcs(digraph, [&](int i, int j) { return one_if(item(c, i) == item(c, j)); });
}

double mismatch_change(const DirectedState&, int i, int j, const Codes& c) {
    return one_if(item(c, i) != item(c, j));
}

double mismatch_value(const PlainDigraph& digraph, const Codes& c) {
    return over_arcs(digraph, [&](int i, int j) { return one_if(item(c, i) != item(c, j)); });
}

// Mutual dyads within a category, and between two.
double matching_reciprocity_change(const DirectedState& state, int i, int j, const Codes& c) {
    return one_if(has_arc(state, j, i) && item(c, i) == item(c, j));
}

double matching_reciprocity_value(const PlainDigraph& digraph, const Codes& c) {
    return mutual_dyads(digraph, [&](int i, int j) { return item(c, i) == item(c, j); });
}

double mismatch_reciprocity_change(const DirectedState& state, int i, int j, const Codes& c) {
    return one_if(has_arc(state, j, i) && item(c, i) != item(c, j));
}

double mismatch_reciprocity_value(const PlainDigraph& digraph, const Codes& c) {
    return mutual_dyads(digraph, [&](int i, int j) { return item(c, i) != item(c, j); });
}

// Arcs by their covariate.
double covariate_arc_change(const DirectedState&, int i, int j, const FloatTable& c) {
    return static_cast<double>(cell(c, i, j));
}

double covariate_arc_value(const PlainDigraph& digraph, const FloatTable& c) {
    return over_arcs(digraph, [&](int i, int j) { return static_cast<double>(cell(c, i, j)); });
}

}  // namespace

const std::vector<DirectedBinaryEffect>& directed_binary_effects() {
    static const std::vector<DirectedBinaryEffect> effects = {
        {"interaction", interaction_change, interaction_value},
        {"sender", sender_change<1>, sender_value<1>},
        {"receiver", receiver_change<1>, receiver_value<1>},
        {"sender_missing", sender_change<missing_integer>, sender_value<missing_integer>},
        {"receiver_missing", receiver_change<missing_integer>, receiver_value<missing_integer>},
        {"interaction_reciprocity", interaction_reciprocity_change, interaction_reciprocity_value},
        {"activity_reciprocity", activity_reciprocity_change, activity_reciprocity_value},
        {"in2star", in2star_change, in2star_value},
        {"path2", path2_change, path2_value},
        {"out2star", out2star_change, out2star_value},
    };
    return effects;
}

const std::vector<DirectedContinuousEffect>& directed_continuous_effects() {
    using Data = ContinuousData;
    static const std::vector<DirectedContinuousEffect> effects = {
        {"sender", value_of_sender_change, value_of_sender_value},
        {"Receiver", value_of_receiver_change, value_of_receiver_value},
        {"Sender_missing", sender_without_change, sender_without_value},
        {"Receiver_missing", receiver_without_change, receiver_without_value},
        {"sum", pair_change<&Data::sum>, pair_value<&Data::sum>},
        {"diff", pair_change<&Data::difference>, pair_value<&Data::difference>},
        {"prod", pair_change<&Data::product>, pair_value<&Data::product>},
        {"sum_reciprocity", mutual_pair_change<&Data::sum>, mutual_pair_value<&Data::sum>},
        {"diff_reciprocity", mutual_pair_change<&Data::difference>,
         mutual_pair_value<&Data::difference>},
        {"prod_reciprocity", mutual_pair_change<&Data::product>, mutual_pair_value<&Data::product>},
        {"2-in-star", value_in2star_change, value_in2star_value},
        {"2-out-star", value_out2star_change, value_out2star_value},
        {"path2", value_path2_change, value_path2_value},
    };
    return effects;
}

const std::vector<DirectedCategoricalEffect>& directed_categorical_effects() {
    static const std::vector<DirectedCategoricalEffect> effects = {
        {"matching", matching_change, matching_value},
        {"mismatch", mismatch_change, mismatch_value},
        {"matching_reciprocity", matching_reciprocity_change, matching_reciprocity_value},
        {"mismatch_reciprocity", mismatch_reciprocity_change, mismatch_reciprocity_value},
    };
    return effects;
}

const std::vector<DirectedCovariateEffect>& directed_covariate_effects() {
    static const std::vector<DirectedCovariateEffect> effects = {
        {"arc", covariate_arc_change, covariate_arc_value},
    };
    return effects;
}

}  // namespace reference
