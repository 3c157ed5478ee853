// The names that a directed effect bears in an estimation log, spelled out in full. Each line is
// the effect's label in the update files, its label in the output, and the format of its number.
#include <gtest/gtest.h>

#include "support/catalogue_lists.h"

namespace {

TEST(DigraphCatalogueEstimates, RowsOfTheResultTable) {
    const std::string expected = R"(arc | arc | %f	%.5f	%.5f
reciprocity | reciprocity | %f	%.5f	%.5f
in2star | 2-in-star | %f	%.5f	%.5f
out2star | 2-out-star | %f	%.5f	%.5f
in-3-star | 3-in-star | %f	%.5f	%.5f
out-3-star | 3-out-star | %f	%.5f	%.5f
path2 | path2 | %f	%.5f	%.5f
T7 | T7 | %f	%.5f	%.5f
T8 | 111U | %f	%.5f	%.5f
T6 | 201 | %f	%.5f	%.5f
T3 | 120C | %f	%.5f	%.5f
T2 | 210 | %f	%.5f	%.5f
T5 | 120U | %f	%.5f	%.5f
T4 | 120D | %f	%.5f	%.5f
Transitive-Triad | 030T | %f	%.5f	%.5f
Cyclic-Triad | 030C | %f	%.5f	%.5f
T1 | 300 | %f	%.5f	%.5f
Sink | sink | %f	%.5f	%.5f
Source | source | %f	%.5f	%.5f
isolates | isolates | %f	%.5f	%.5f
AinS | AinS(2.01) | %f	%.5f	%.5f
AoutS | AoutS(2.02) | %f	%.5f	%.5f
AinS2 | AinS(2.03) | %f	%.5f	%.5f
AoutS2 | AoutS(2.04) | %f	%.5f	%.5f
Ain1outS | Ain1out-star(2.06) | %f	%.5f	%.5f
1inAoutS | 1inAout-star(2.07) | %f	%.5f	%.5f
AinAoutS | AinAout-star(2.05) | %f	%.5f	%.5f
AT-T | AT-T(2.08) | %f	%.5f	%.5f
AT-C | AT-C(2.09) | %f	%.5f	%.5f
AT-D | AT-D(2.10) | %f	%.5f	%.5f
AT-U | AT-U(2.11) | %f	%.5f	%.5f
AT-TD | AT-TD(2.12) | %f	%.5f	%.5f
AT-TU | AT-TU(2.13) | %f	%.5f	%.5f
AT-DU | AT-DU(2.14) | %f	%.5f	%.5f
AT-TDU | AT-TDU(2.15) | %f	%.5f	%.5f
A2P-T | A2P-T(2.16) | %f	%.5f	%.5f
A2P-D | A2P-D(2.17) | %f	%.5f	%.5f
A2P-U | A2P-U(2.18) | %f	%.5f	%.5f
A2P-TD | A2P-TD(2.19) | %f	%.5f	%.5f
A2P-TU | A2P-TU(2.20) | %f	%.5f	%.5f
A2P-DU | A2P-DU(2.21) | %f	%.5f	%.5f
A2P-TDU | A2P-TDU(2.22) | %f	%.5f	%.5f
%s_interaction | %s_interaction | %f	%.5f	%.5f
%s_sender | %s_sender | %f	%.5f	%.5f
%s_receiver | %s_receiver | %f	%.5f	%.5f
%s_sender_missing | %s_sender_missing | %f	%.5f	%.5f
%s_receiver_missing | %s_receiver_missing | %f	%.5f	%.5f
%s_interaction_reciprocity | %s_interaction_reciprocity | %f	%.5f	%.5f
%s_activity_reciprocity | %s_activity_reciprocity | %f	%.5f	%.5f
%s_in2star | %s_in2star | %f	%.5f	%.5f
%s_path2 | %s_path2 | %f	%.5f	%.5f
%s_out2star | %s_out2star | %f	%.5f	%.5f
%s_sender | %s_sender | %f	%.5f	%.5f
%s_receiver | %s_receiver | %f	%.5f	%.5f
%s_sender_missing | %s_sender_missing | %f	%.5f	%.5f
%s_receiver_missing | %s_receiver_missing | %f	%.5f	%.5f
%s_sum | %s_sum | %f	%.5f	%.5f
%s_diff | %s_diff | %f	%.5f	%.5f
%s_prod | %s_prod | %f	%.5f	%.5f
%s_sum_reciprocity | %s_sum_reciprocity | %f	%.5f	%.5f
%s_diff_reciprocity | %s_diff_reciprocity | %f	%.5f	%.5f
%s_prod_reciprocity | %s_prod_reciprocity | %f	%.5f	%.5f
%s_in2star | %s_in2star | %f	%.5f	%.5f
%s_out2star | %s_out2star | %f	%.5f	%.5f
%s_path2 | %s_path2 | %f	%.5f	%.5f
%s_same_Category | %s_matching | %f	%.5f	%.5f
%s_diff_Category | %s_mismatch | %f	%.5f	%.5f
%s_same_Category_reciprocity | %s_matching_reciprocity | %f	%.5f	%.5f
%s_diff_Category_reciprocity | %s_mismatch_reciprocity | %f	%.5f	%.5f
%s_arc | %s_arc | %f	%.5f	%.5f
)";
    for (const std::vector<std::string>& names :
         {std::vector<std::string>{"a"}, std::vector<std::string>{"a", "b"}}) {
        EXPECT_EQ(output_listing(full_selection(NetworkKind::directed, names), Output::result),
                  for_names(expected, names));
    }
}

}  // namespace
