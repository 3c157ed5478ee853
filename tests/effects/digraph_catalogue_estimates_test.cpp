// The names that a directed effect bears in an estimation log and in a fit, spelled out in full.
// Each line is the effect's label in the update files, its label in the output, and the format of
// its number.
#include <gtest/gtest.h>

#include "support/catalogue_lists.h"

namespace {

// Result table and fit reports name the effects alike, but for the transitive and the cyclic triad;
// they differ in their formats, of which an alternating effect and a continuous attribute's sum,
// diff and prod have their own.
std::string rows(const std::string& transitive, const std::string& cyclic, const std::string& whole,
                 const std::string& real) {
    std::string text;
    const auto add = [&text](const std::string& lines, const std::string& format) {
        for (const char character : lines) {
            text += character == '\n' ? " | " + format + "\n" : std::string(1, character);
        }
    };
    add(R"(arc | arc
reciprocity | reciprocity
in2star | 2-in-star
out2star | 2-out-star
in-3-star | 3-in-star
out-3-star | 3-out-star
4-in-star | 4-in-star
4-out-star | 4-out-star
path2 | path2
T7 | T7
T8 | 111U
T6 | 201
T3 | 120C
T2 | 210
T5 | 120U
T4 | 120D
Transitive-Triad | )" +
            transitive + "\nCyclic-Triad | " + cyclic + R"(
T1 | 300
Sink | sink
Source | source
isolates | isolates
)",
        whole);
    add(R"(AinS | AinS(2.01)
AoutS | AoutS(2.02)
AinS2 | AinS(2.03)
AoutS2 | AoutS(2.04)
Ain1outS | Ain1out-star(2.06)
1inAoutS | 1inAout-star(2.07)
AinAoutS | AinAout-star(2.05)
AT-T | AT-T(2.08)
AT-C | AT-C(2.09)
AT-D | AT-D(2.10)
AT-U | AT-U(2.11)
AT-TD | AT-TD(2.12)
AT-TU | AT-TU(2.13)
AT-DU | AT-DU(2.14)
AT-TDU | AT-TDU(2.15)
A2P-T | A2P-T(2.16)
A2P-D | A2P-D(2.17)
A2P-U | A2P-U(2.18)
A2P-TD | A2P-TD(2.19)
A2P-TU | A2P-TU(2.20)
A2P-DU | A2P-DU(2.21)
A2P-TDU | A2P-TDU(2.22)
)",
        real);
    add(R"(%s_interaction | %s_interaction
%s_sender | %s_sender
%s_receiver | %s_receiver
%s_sender_missing | %s_sender_missing
%s_receiver_missing | %s_receiver_missing
%s_interaction_reciprocity | %s_interaction_reciprocity
%s_activity_reciprocity | %s_activity_reciprocity
%s_in2star | %s_in2star
%s_path2 | %s_path2
%s_out2star | %s_out2star
%s_sender | %s_sender
%s_receiver | %s_receiver
%s_sender_missing | %s_sender_missing
%s_receiver_missing | %s_receiver_missing
)",
        whole);
    add(R"(%s_sum | %s_sum
%s_diff | %s_diff
%s_prod | %s_prod
)",
        real);
    add(R"(%s_sum_reciprocity | %s_sum_reciprocity
%s_diff_reciprocity | %s_diff_reciprocity
%s_prod_reciprocity | %s_prod_reciprocity
%s_in2star | %s_in2star
%s_out2star | %s_out2star
%s_path2 | %s_path2
%s_same_Category | %s_matching
%s_diff_Category | %s_mismatch
%s_same_Category_reciprocity | %s_matching_reciprocity
%s_diff_Category_reciprocity | %s_mismatch_reciprocity
%s_arc | %s_arc
)",
        whole);
    return text;
}

void expect_listing(Output output, const std::string& expected) {
    for (const std::vector<std::string>& names :
         {std::vector<std::string>{"a"}, std::vector<std::string>{"a", "b"}}) {
        EXPECT_EQ(output_listing(full_selection(NetworkKind::directed, names, true), output),
                  for_names(expected, names));
    }
}

TEST(DigraphCatalogueEstimates, RowsOfTheResultTable) {
    const std::string format = "%f\t%.5f\t%.5f";
    expect_listing(Output::result, rows("030T", "030C", format, format));
}

TEST(DigraphCatalogueEstimates, ParametersOfAFit) {
    expect_listing(Output::fit_parameter, rows("T9(030T)", "T10(030C)", "%.5f", "%.5f"));
}

TEST(DigraphCatalogueEstimates, RowsOfAFitReport) {
    expect_listing(Output::fit, rows("T9(030T)", "T10(030C)", "%.0f", "%.3f"));
}

TEST(DigraphCatalogueEstimates, RowsOfABayesianFitReport) {
    expect_listing(Output::bayes_fit, rows("T9(030T)", "T10(030C)", "%.0f", "%.3f"));
}

}  // namespace
