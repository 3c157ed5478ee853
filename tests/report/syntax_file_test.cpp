// The SPSS syntax file: whole for a small model, and its three plots that do not show their own.
#include "report/syntax_file.h"

#include <gtest/gtest.h>

#include "support/catalogue_lists.h"
#include "support/scratch_directory.h"

namespace {

std::string syntax_of(const EffectSelection& selection) {
    const ScratchDirectory scratch;
    write_syntax(selection, "D\\simulation_net.txt", (scratch.path() / "sim.sps").string());
    return scratch.read("sim.sps");
}

const std::string kTemplate =
    "GET DATA  /TYPE = TXT\n"
    "/FILE = 'D\\simulation_net.txt'\n"
    "/DELCASE = LINE\n"
    "/DELIMITERS = \"\\t\"\n"
    "/ARRANGEMENT = DELIMITED\n"
    "/FIRSTCASE = 2\n"
    "/IMPORTCASE = ALL\n"
    "/VARIABLES =\n"
    "id F5.0\n";

// The block of one variable, whose plot shows `traced`.
std::string block(const std::string& variable, const std::string& traced) {
    return "GRAPH\n/Histogram=" + variable + ".\nGRAPH\n/SCATTERPLOT(BIVAR)=id WITH " + traced +
           "\n/MISSING=LISTWISE.\n";
}

// The variable of each block in turn, and what its plot shows, as "variable:traced ".
std::string traces(const std::string& syntax) {
    const std::string histogram = "GRAPH\n/Histogram=";
    const std::string scatter = ".\nGRAPH\n/SCATTERPLOT(BIVAR)=id WITH ";
    const std::string end = "\n/MISSING=LISTWISE.\n";
    std::string text;
    std::size_t at = syntax.find(histogram);
    while (at < syntax.size()) {
        EXPECT_EQ(syntax.compare(at, histogram.size(), histogram), 0);
        const std::size_t name = at + histogram.size();
        const std::size_t middle = syntax.find(scatter, name);
        const std::size_t last = syntax.find(end, middle);
        if (middle == std::string::npos || last == std::string::npos) {
            ADD_FAILURE() << "a broken block after " << text;
            return text;
        }
        text += syntax.substr(name, middle - name) + ":" +
                syntax.substr(middle + scatter.size(), last - middle - scatter.size()) + "|";
        at = last + end.size();
    }
    return text;
}

void select(EffectSelection& selection, int id) {
    selection.structural[static_cast<std::size_t>(id)].position = selection.structural_count++;
}

TEST(SyntaxFile, OfTheEdgeEffectAlone) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    select(selection, graph_effect::kEdge);
    EXPECT_EQ(syntax_of(selection), kTemplate +
                                        "edge F8.0\n"
                                        ".\n"
                                        "CACHE.\n"
                                        "EXECUTE.\n"
                                        "\n"
                                        "GRAPH\n"
                                        "/Histogram=edge.\n"
                                        "GRAPH\n"
                                        "/SCATTERPLOT(BIVAR)=id WITH edge\n"
                                        "/MISSING=LISTWISE.\n");
}

TEST(SyntaxFile, OfADirectedModelHasTheSameShape) {
    EffectSelection selection = selection_create(NetworkKind::directed);
    select(selection, digraph_effect::kArc);
    select(selection, digraph_effect::kCyclicTriad);
    EXPECT_EQ(syntax_of(selection), kTemplate +
                                        "arc F8.0\n"
                                        "t10 F8.0\n"
                                        ".\nCACHE.\nEXECUTE.\n\n" +
                                        block("arc", "arc") + block("t10", "t10"));
}

TEST(SyntaxFile, ReplacesAnEarlierOne) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("sim.sps", std::string(5000, 'x'));
    EffectSelection selection = selection_create(NetworkKind::undirected);
    write_syntax(selection, "D\\simulation_net.txt", path);
    EXPECT_EQ(scratch.read("sim.sps"), kTemplate + ".\nCACHE.\nEXECUTE.\n\n");
}

TEST(SyntaxFile, ThePlotOfIsolatesShowsTriangles) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    select(selection, graph_effect::kIsolates);
    EXPECT_EQ(syntax_of(selection),
              kTemplate + "iso F8.4\n.\nCACHE.\nEXECUTE.\n\n" + block("iso", "triangle"));
}

TEST(SyntaxFile, PlotsOfTheFullUndirectedModel) {
    EXPECT_EQ(traces(syntax_of(full_selection(NetworkKind::undirected, {"a"}))),
              "edge:edge|star2:star2|star3:star3|star4:star4|star5:star5|triangle:triangle|"
              "clique4:clique4|clique5:clique5|clique6:clique6|clique7:clique7|iso:triangle|"
              "triangle2:triangle2|bow_tie:bow_tie|p3:p3|q10:q10|q20:q20|q30:q30|q31:q31|"
              "path3:path3|cycle4:cycle4|et1:et1|et2:et2|et0:et0|etnt:etnt|two3star:two3star|"
              "one2triangle:one2triangle|one2et:one2et|as:as|as2:as2|at:at|at2:at2|a2p:a2p|ac:ac|"
              "aet:aet|aeat:aeat|a_t3u:a_t3u|a_t2u:a_t2u|a_t1u:a_t1u|a_o3u:a_o3u|a_o2au:a_o2au|"
              "a_o2bu:a_o2bu|a_o1au:a_o1au|a_o1bu:a_o1bu|a_interaction:a_interaction|"
              "a_activity:a_activity |a_sum:a_sum|a_diff:a_diff|a_prod:a_prod|"
              "a_sameEC:a_sameEC|a_diffEC:a_diffEC|a_edge:a_edge|a_s21:a_s21|a_s22:a_s22|"
              "a_t1:a_t1|a_t2:a_t2|a_t3:a_t3|");
}

TEST(SyntaxFile, PlotsOfTheFullDirectedModel) {
    EXPECT_EQ(traces(syntax_of(full_selection(NetworkKind::directed, {"a"}))),
              "arc:arc|recip:recip|in2star:in2star|out2star:out2star|in3star:in3star|"
              "out3star:out3star|mix2star:mix2star|t7:t7|t8:t8|t6:t6|t10:t10|t3:t3|t2:t2|t5:t5|"
              "t4:t4|t9:t9|t1:t1|sink:sink|source:source|iso:iso|kinstar:kinstar|"
              "koutstar:koutstar|kinstar2:kinstar2|koutstar2:koutstar2|konestar:konestar|"
              "onelstar:onelstar|klstar:klstar|tktri:tktri|cktri:cktri|dktri:dktri|attd:attd|"
              "attu:attu|atdu:atdu|attdu:attdu|uktri:uktri|talt2p:talt2p|dalt2p:dalt2p|"
              "ualt2p:ualt2p|a2ptd:a2ptd|a2ptu:a2ptu|a2pdu:a2pdu|a2ptdu:a2ptdu|"
              "a_interaction:a_interaction|a_sender:a_sender|a_receiver:a_receiver|"
              "a_sender_missing:a_sender_missing|a_receiver_missing:a_receiver_missing|"
              "a_t2u11:a_t2u11|a_t1u11:a_t1u11|a_in2star:a_in2star|a_path2:a_path2|"
              "a_out2star:a_out2star|a_sender:a_sender|a_receiver:a_receiver|"
              "a_sender_missing:a_sender_missing|a_receiver_missing:a_receiver_missing|"
              "a_interaction_sum:a_interaction_diff|a_interaction_diff:a_interaction_diff|"
              "a_interaction_prod:a_interaction_prod|a_sum_reciprocity:a_sum_reciprocity|"
              "a_diff_reciprocity:a_diff_reciprocity|a_prod_reciprocity:a_prod_reciprocity|"
              "a_in2star:a_in2star|a_out2star:a_out2star|a_twomix:a_twomix|"
              "a_matching:a_matching|a_mismatch:a_mismatch|"
              "a_matching_reciprocity:a_matching_reciprocity|"
              "a_mismatch_reciprocity:a_mismatch_reciprocity|a_arc:a_arc|");
}

TEST(SyntaxFile, ThePlotOfASumShowsTheDifferenceOfTheSameAttribute) {
    const std::string text =
        traces(syntax_of(full_selection(NetworkKind::directed, {"age", "x_interaction_sum"})));
    EXPECT_NE(text.find("|age_interaction_sum:age_interaction_diff|"), std::string::npos);
    EXPECT_NE(text.find("|x_interaction_sum_interaction_sum:x_interaction_sum_interaction_diff|"),
              std::string::npos);
}

}  // namespace
