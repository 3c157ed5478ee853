#include "attributes.h"

#include <cmath>
#include <cstdint>

namespace reference {

namespace {

using Whole = std::int64_t;

double as_double(Whole value) { return static_cast<double>(value); }

Whole value_of(const Codes& a, int actor) { return item(a, actor); }

Whole tie(const EvaluationState& state, int a, int b) { return tied(state, a, b) ? 1 : 0; }

double pairs_of(int count) { return count < 2 ? 0.0 : count * (count - 1) / 2; }

bool triangle(const PlainGraph& graph, int a, int b, int c) {
    return tied(graph, a, b) && tied(graph, a, c) && tied(graph, b, c);
}

// Adds term(k) over the actors k other than i and j.
template <typename Term>
Whole over_others(const EvaluationState& state, int i, int j, Term term) {
    Whole sum = 0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k != i && k != j) {
            sum += term(k);
        }
    }
    return sum;
}

// Adds term(i, j, k) over the triangles i < j < k.
template <typename Term>
double over_triangles(const PlainGraph& graph, Term term) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            for (int k = j + 1; k < graph.n; ++k) {
                if (triangle(graph, i, j, k)) {
                    sum += as_double(term(i, j, k));
                }
            }
        }
    }
    return sum;
}

// Adds term(i, j) over the ties i < j, row by row.
template <typename Term>
double over_ties(const PlainGraph& graph, Term term) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            if (tied(graph, i, j)) {
                sum += term(i, j);
            }
        }
    }
    return sum;
}

// Triangles of three actors with the attribute.
double t3u_change(const EvaluationState& state, int i, int j, const Codes& a) {
    if (value_of(a, i) == 0 || value_of(a, j) == 0) {
        return 0.0;
    }
    return as_double(over_others(state, i, j, [&](int k) {
        return tie(state, i, k) * tie(state, j, k) * (value_of(a, k) != 0 ? 1 : 0);
    }));
}

double t3u_value(const PlainGraph& graph, const Codes& a) {
    return over_triangles(graph, [&](int i, int j, int k) -> Whole {
        return value_of(a, i) != 0 && value_of(a, j) != 0 && value_of(a, k) != 0 ? 1 : 0;
    });
}

// Triangles by their pairs of actors with the attribute.
Whole pair_products(const Codes& a, int i, int j, int k) {
    return value_of(a, k) * (value_of(a, i) + value_of(a, j)) + value_of(a, i) * value_of(a, j);
}

double t2u_change(const EvaluationState& state, int i, int j, const Codes& a) {
    return as_double(over_others(state, i, j, [&](int k) {
        return tie(state, i, k) * tie(state, j, k) * pair_products(a, i, j, k);
    }));
}

double t2u_value(const PlainGraph& graph, const Codes& a) {
    return over_triangles(graph, [&](int i, int j, int k) { return pair_products(a, i, j, k); });
}

// Triangles by their actors with the attribute.
double t1u_change(const EvaluationState& state, int i, int j, const Codes& a) {
    return as_double(over_others(state, i, j, [&](int k) {
        return tie(state, i, k) * tie(state, j, k) *
               (value_of(a, i) + value_of(a, j) + value_of(a, k));
    }));
}

double t1u_value(const PlainGraph& graph, const Codes& a) {
    return over_triangles(graph, [&](int i, int j, int k) {
        return value_of(a, i) + value_of(a, j) + value_of(a, k);
    });
}

// Neighbours of an actor whose value is exactly 1.
int neighbours_with(const PlainGraph& graph, const Codes& a, int actor) {
    int count = 0;
    for (int k = 0; k < graph.n; ++k) {
        if (tied(graph, actor, k) && value_of(a, k) == 1) {
            ++count;
        }
    }
    return count;
}

// 2-stars of three actors with the attribute. The whole value takes 1 alone for having it, the
// change anything but 0.
double o3u_change(const EvaluationState& state, int i, int j, const Codes& a) {
    if (value_of(a, i) == 0 || value_of(a, j) == 0) {
        return 0.0;
    }
    return as_double(over_others(state, i, j, [&](int k) {
        return value_of(a, k) != 0 ? tie(state, i, k) + tie(state, j, k) : 0;
    }));
}

double o3u_value(const PlainGraph& graph, const Codes& a) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        if (value_of(a, i) == 1) {
            sum += pairs_of(neighbours_with(graph, a, i));
        }
    }
    return sum;
}

// Adds the values of both leaves over the 2-stars with a centre for which `centre` holds.
template <typename Centre>
double leaves_of_2_stars(const PlainGraph& graph, const Codes& a, Centre centre) {
    double sum = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = 0; q < graph.n; ++q) {
            for (int r = 0; r < graph.n; ++r) {
                if (p != q && q != r && p != r && centre(q) && tied(graph, p, q) &&
                    tied(graph, q, r)) {
                    sum += as_double(value_of(a, r) + value_of(a, p));
                }
            }
        }
    }
    return sum * 0.5;
}

// 2-stars with the attribute at the centre and a leaf. The whole value tests the centre, the
// change multiplies by its value.
double o2au_change(const EvaluationState& state, int i, int j, const Codes& a) {
    return as_double(over_others(state, i, j, [&](int k) {
        const Whole ik = tie(state, i, k);
        const Whole jk = tie(state, j, k);
        return ((jk + ik) * value_of(a, i) + jk * value_of(a, k)) * value_of(a, j) +
               ik * value_of(a, i) * value_of(a, k);
    }));
}

double o2au_value(const PlainGraph& graph, const Codes& a) {
    return leaves_of_2_stars(graph, a, [&](int q) { return value_of(a, q) != 0; });
}

// 2-stars with the attribute at both leaves. The whole value takes 1 alone for having it.
double o2bu_change(const EvaluationState& state, int i, int j, const Codes& a) {
    return as_double(over_others(state, i, j, [&](int k) {
        return (tie(state, j, k) * value_of(a, i) + tie(state, i, k) * value_of(a, j)) *
               value_of(a, k);
    }));
}

double o2bu_value(const PlainGraph& graph, const Codes& a) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        sum += pairs_of(neighbours_with(graph, a, i));
    }
    return sum;
}

// 2-stars with the attribute at the centre. The whole value takes 1 alone for having it.
double o1au_change(const EvaluationState& state, int i, int j, const Codes& a) {
    return as_double(over_others(state, i, j, [&](int k) {
        return tie(state, j, k) * value_of(a, j) + tie(state, i, k) * value_of(a, i);
    }));
}

double o1au_value(const PlainGraph& graph, const Codes& a) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        if (value_of(a, i) == 1) {
            sum += pairs_of(degree(graph, i));
        }
    }
    return sum;
}

// 2-stars by their leaves with the attribute.
double o1bu_change(const EvaluationState& state, int i, int j, const Codes& a) {
    return as_double(over_others(state, i, j, [&](int k) {
        const Whole ik = tie(state, i, k);
        const Whole jk = tie(state, j, k);
        return value_of(a, j) * ik + value_of(a, i) * jk + value_of(a, k) * ik +
               value_of(a, k) * jk;
    }));
}

double o1bu_value(const PlainGraph& graph, const Codes& a) {
    return leaves_of_2_stars(graph, a, [](int) { return true; });
}

// Ties between two actors with the attribute. The whole value counts ties, the change multiplies.
double interaction_change(const EvaluationState&, int i, int j, const Codes& a) {
    return as_double(value_of(a, i) * value_of(a, j));
}

double interaction_value(const PlainGraph& graph, const Codes& a) {
    return over_ties(graph, [&](int i, int j) {
        return value_of(a, i) != 0 && value_of(a, j) != 0 ? 1.0 : 0.0;
    });
}

// Ties by their ends with the attribute.
double activity_change(const EvaluationState&, int i, int j, const Codes& a) {
    return as_double(value_of(a, i) + value_of(a, j));
}

double activity_value(const PlainGraph& graph, const Codes& a) {
    return over_ties(graph,
                     [&](int i, int j) { return as_double(value_of(a, i) + value_of(a, j)); });
}

// Ties by the cell of one of the pair tables: sum, absolute difference or product of the values.
template <FloatTable ContinuousData::*table>
double pair_change(const EvaluationState&, int i, int j, const ContinuousData& z) {
    return static_cast<double>(cell(z.*table, i, j));
}

template <FloatTable ContinuousData::*table>
double pair_value(const PlainGraph& graph, const ContinuousData& z) {
    return over_ties(graph,
                     [&](int i, int j) { return static_cast<double>(cell(z.*table, i, j)); });
}

// Ties within a category, and between two.
double same_category_change(const EvaluationState&, int i, int j, const Codes& c) {
    return item(c, i) == item(c, j) ? 1.0 : 0.0;
}

double same_category_value(const PlainGraph& graph, const Codes& c) {
    return over_ties(graph, [&](int i, int j) { return item(c, i) == item(c, j) ? 1.0 : 0.0; });
}

double other_category_change(const EvaluationState&, int i, int j, const Codes& c) {
    return item(c, i) == item(c, j) ? 0.0 : 1.0;
}

double other_category_value(const PlainGraph& graph, const Codes& c) {
    return over_ties(graph, [&](int i, int j) { return item(c, i) == item(c, j) ? 0.0 : 1.0; });
}

// A single-precision term on its way into a sum of doubles.
double widen(float term) { return static_cast<double>(term); }

// Ties by their covariate.
double covariate_edge_change(const EvaluationState&, int i, int j, const FloatTable& c) {
    return widen(cell(c, i, j));
}

double covariate_edge_value(const PlainGraph& graph, const FloatTable& c) {
    return over_ties(graph, [&](int i, int j) { return widen(cell(c, i, j)); });
}

// 2-stars by the sum of the covariate over their two ties.
double s21_change(const EvaluationState& state, int i, int j, const FloatTable& c) {
    double sum = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        if (tied(state, i, k)) {
            sum += widen(cell(c, k, i) + cell(c, i, j));
        }
        if (tied(state, j, k)) {
            sum += widen(cell(c, k, j) + cell(c, i, j));
        }
    }
    return sum;
}

double s21_value(const PlainGraph& graph, const FloatTable& c) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            if (!tied(graph, i, j)) {
                continue;
            }
            for (const int end : {j, i}) {
                const int d = degree(graph, end);
                if (d > 1) {
                    sum += widen(static_cast<float>(d - 1) * cell(c, i, j));
                }
            }
        }
    }
    return sum;
}

// 2-stars by the product of the covariate over their two ties. A new tie with a negative
// covariate adds nothing, although the whole value takes it in.
double s22_change(const EvaluationState& state, int i, int j, const FloatTable& c) {
    if (!(cell(c, i, j) > 0.0F)) {
        return 0.0;
    }
    double sum = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        if (tied(state, i, k)) {
            sum += widen(cell(c, k, i) * cell(c, i, j));
        }
        if (tied(state, j, k)) {
            sum += widen(cell(c, k, j) * cell(c, i, j));
        }
    }
    return sum;
}

double s22_value(const PlainGraph& graph, const FloatTable& c) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            if (!tied(graph, i, j) || cell(c, i, j) == 0.0F) {
                continue;
            }
            for (int k = 0; k < graph.n; ++k) {
                if (k == i || k == j) {
                    continue;
                }
                if (tied(graph, j, k)) {
                    sum += widen(cell(c, j, k) * cell(c, i, j));
                }
                if (tied(graph, i, k)) {
                    sum += widen(cell(c, i, k) * cell(c, i, j));
                }
            }
        }
    }
    return sum * 0.5;
}

// The first common neighbours of i and j, as many as the two-path table says there are.
std::vector<int> counted_neighbours(const EvaluationState& state, int i, int j) {
    std::vector<int> shared = shared_neighbours(state, i, j);
    const std::size_t counted = static_cast<std::size_t>(two_paths(state, i, j));
    if (shared.size() > counted) {
        shared.resize(counted);
    }
    return shared;
}

// Triangles by the sum of the covariate over their three ties.
double t1_change(const EvaluationState& state, int i, int j, const FloatTable& c) {
    const int shared = two_paths(state, i, j);
    if (shared < 1) {
        return 0.0;
    }
    double sum = widen(static_cast<float>(shared) * cell(c, i, j));
    for (const int k : counted_neighbours(state, i, j)) {
        sum += widen(cell(c, k, j) + cell(c, i, k));
    }
    return sum;
}

double t1_value(const PlainGraph& graph, const FloatTable& c) {
    return over_ties(graph, [&](int i, int j) {
        const int shared = common_neighbours(graph, i, j);
        return shared > 0 ? widen(static_cast<float>(shared) * cell(c, i, j)) : 0.0;
    });
}

// Triangles by the products of the covariate over their pairs of ties. The products with a
// negative covariate of the new tie are left out of the change.
double t2_change(const EvaluationState& state, int i, int j, const FloatTable& c) {
    if (two_paths(state, i, j) < 1) {
        return 0.0;
    }
    double sum = 0.0;
    for (const int k : counted_neighbours(state, i, j)) {
        sum += widen(cell(c, k, j) * cell(c, i, k));
        if (cell(c, i, j) > 0.0F) {
            const float both = cell(c, j, k) + cell(c, i, k);
            sum += widen(both * cell(c, i, j));
        }
    }
    return sum;
}

double t2_value(const PlainGraph& graph, const FloatTable& c) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            if (!tied(graph, i, j)) {
                continue;
            }
            for (int k = 0; k < graph.n; ++k) {
                if (tied(graph, i, k) && tied(graph, j, k)) {
                    sum += widen(cell(c, i, k) * cell(c, j, k));
                }
            }
        }
    }
    return sum;
}

// Triangles by the product of the covariate over their three ties.
double t3_change(const EvaluationState& state, int i, int j, const FloatTable& c) {
    if (two_paths(state, i, j) < 1) {
        return 0.0;
    }
    double sum = 0.0;
    for (const int k : counted_neighbours(state, i, j)) {
        const float two = cell(c, j, k) * cell(c, i, k);
        sum += widen(two * cell(c, i, j));
    }
    return sum;
}

double t3_value(const PlainGraph& graph, const FloatTable& c) {
    double sum = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            for (int k = j + 1; k < graph.n; ++k) {
                if (triangle(graph, i, j, k)) {
                    const float two = cell(c, i, k) * cell(c, i, j);
                    sum += widen(two * cell(c, j, k));
                }
            }
        }
    }
    return sum;
}

}  // namespace

ContinuousData continuous_data(const std::vector<float>& values) {
    const int n = static_cast<int>(values.size());
    ContinuousData data{values, square_table(n, 0.0F), square_table(n, 0.0F),
                        square_table(n, 0.0F)};
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            const float zi = item(values, i);
            const float zj = item(values, j);
            if (zi == missing_real || zj == missing_real) {
                continue;
            }
            cell(data.sum, i, j) = zi + zj;
            cell(data.difference, i, j) = std::fabs(zi - zj);
            cell(data.product, i, j) = zi * zj;
        }
    }
    return data;
}

const std::vector<BinaryEffect>& binary_effects() {
    static const std::vector<BinaryEffect> effects = {
        {"t3u", t3u_change, t3u_value},
        {"t2u", t2u_change, t2u_value},
        {"t1u", t1u_change, t1u_value},
        {"o3u", o3u_change, o3u_value},
        {"o2au", o2au_change, o2au_value},
        {"o2bu", o2bu_change, o2bu_value},
        {"o1au", o1au_change, o1au_value},
        {"o1bu", o1bu_change, o1bu_value},
        {"interaction", interaction_change, interaction_value},
        {"activity", activity_change, activity_value},
    };
    return effects;
}

const std::vector<ContinuousEffect>& continuous_effects() {
    static const std::vector<ContinuousEffect> effects = {
        {"sum", pair_change<&ContinuousData::sum>, pair_value<&ContinuousData::sum>},
        {"diff", pair_change<&ContinuousData::difference>, pair_value<&ContinuousData::difference>},
        {"prod", pair_change<&ContinuousData::product>, pair_value<&ContinuousData::product>},
    };
    return effects;
}

const std::vector<CategoricalEffect>& categorical_effects() {
    static const std::vector<CategoricalEffect> effects = {
        {"same_Category", same_category_change, same_category_value},
        {"diff_Category", other_category_change, other_category_value},
    };
    return effects;
}

const std::vector<CovariateEffect>& covariate_effects() {
    static const std::vector<CovariateEffect> effects = {
        {"edge", covariate_edge_change, covariate_edge_value},
        {"S21", s21_change, s21_value},
        {"S22", s22_change, s22_value},
        {"t1", t1_change, t1_value},
        {"t2", t2_change, t2_value},
        {"t3", t3_change, t3_value},
    };
    return effects;
}

}  // namespace reference
