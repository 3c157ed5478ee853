#include "measures/triad_census.h"

#include "base/conversions.h"
#include "effects/digraph_alternating.h"
#include "effects/digraph_stars.h"
#include "effects/digraph_triads.h"

void refresh_triad_census(Digraph& digraph) {
    const EffectData none;
    const int n = digraph.vertices;
    const double out_stars = digraph_out2star_count(digraph, none);
    const double in_stars = digraph_in2star_count(digraph, none);
    const double mixed_stars = digraph_path2_count(digraph, none);
    const double with_mutual = wrapping_product(wrapping_sum(n, -2), digraph.mutual_dyads);
    const double with_arc = wrapping_product(wrapping_sum(n, -2), digraph.arcs);
    // Truncated towards zero, like every quotient of integers in the files.
    const int triples =
        wrapping_product(wrapping_product(n, wrapping_sum(n, -1)), wrapping_sum(n, -2)) / 6;
    const double all = triples;
    const double t300 = digraph_t1_count(digraph, none);
    const double t210 = digraph_t2_count(digraph, none) - 6.0 * t300;
    const double t120c = digraph_t3_count(digraph, none) - 2.0 * t210 - 6.0 * t300;
    const double t120d = digraph_t4_count(digraph, none) - t210 - 3.0 * t300;
    const double t120u = digraph_t5_count(digraph, none) - t210 - 3.0 * t300;
    const double t201 = digraph_t6_count(digraph, none) - t210 - 3.0 * t300;
    const double t111d = digraph_t7_count(digraph, none) -
                         (2.0 * t120d + t120c + 2.0 * t201 + 3.0 * t210 + 6.0 * t300);
    const double t111u = digraph_t8_count(digraph, none) -
                         (2.0 * t120u + t120c + 2.0 * t201 + 3.0 * t210 + 6.0 * t300);
    const double t030t = digraph_t9_count(digraph, none) -
                         (2.0 * t120d + t120c + 2.0 * t120u + 3.0 * t210 + 6.0 * t300);
    const double t030c = digraph_t10_count(digraph, none) - (t120c + t210 + 2.0 * t300);
    const double t102 = with_mutual - (t111u + t111d + t120c + t120d + t120u + 2.0 * t201 +
                                       2.0 * t210 + 3.0 * t300);
    const double t021d =
        out_stars - (t030t + t111u + t120c + t120d + 2.0 * t120u + t201 + 2.0 * t210 + 3.0 * t300);
    const double t021c =
        mixed_stars - (3.0 * t030c + t030t + t111u + t111d + 3.0 * t120c + 2.0 * t120d +
                       2.0 * t120u + 2.0 * t201 + 4.0 * t210 + 6.0 * t300);
    const double t021u =
        in_stars - (t030t + t111d + t120c + 2.0 * t120d + t120u + t201 + 2.0 * t210 + 3.0 * t300);
    const double t012 =
        with_arc - (2.0 * (t021u + t021c + t021d + t102) + 3.0 * (t030c + t030t + t111u + t111d) +
                    4.0 * (t201 + t120u + t120d + t120c) + 5.0 * t210 + 6.0 * t300);
    std::vector<double>& census = digraph.triad_census;
    census = {t300,  t210,  t120c, t120d, t120u, t201,  t111d, t111u,
              t030t, t030c, t102,  t021d, t021c, t021u, t012,  0.0};
    double others = 0.0;
    for (const double triads : census) {
        others += triads;
    }
    census.back() = all - others;
}
