// "ovri check" on settings and models that are legal to read but would not do what is meant.
#include <unistd.h>

#include <algorithm>

#include "support/tool_runner.h"

using ToolCheckSettings = ToolTest;

namespace {

constexpr const char* kFreeOne = "0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 1\n0 0 0 1 0\n";

// A directed model with the continuous rows of the given numbers on.
ToolSetup directed_continuous(const std::vector<int>& on) {
    ToolSetup setup{.kind = 2, .effects = {{"arc", "1 0.0"}}};
    setup.attributes = "Attributes 1\nBinary 0\nContinuous 1\n1\nFile wealth.txt\n";
    for (int row = 0; row < 13; ++row) {
        const bool selected = std::find(on.begin(), on.end(), row) != on.end();
        setup.attributes += "row " + std::string(selected ? "1" : "0") + " 0\n";
    }
    setup.attributes += "Categorical 0";
    return setup;
}

ToolSetup simulation() { return {.mode = 1, .effects = {{"edge", "1 -1.0"}}}; }

}  // namespace

TEST_F(ToolCheckSettings, FewerThanTwoActorsAreAnError) {
    check({.actors = "1"});
    expect_error("actor count", "2 or more actors");
}

TEST_F(ToolCheckSettings, VeryManyActorsAreSurprising) {
    ToolSetup setup = simulation();
    setup.actors = "20000";
    check(setup);
    expect_warning("actor count", "gigabytes");
}

TEST_F(ToolCheckSettings, ADensityAboveOneIsAnErrorAndOneBelowZeroSurprising) {
    ToolSetup setup = simulation();
    setup.density = "1.5";
    check(setup);
    expect_error("density", "a number from 0 to 1");
    setup.density = "nan";
    check(setup);
    expect_error("density", "a number from 0 to 1");
    setup.density = "-0.5";
    check(setup);
    expect_warning("density", "a number from 0 to 1");
}

TEST_F(ToolCheckSettings, LengthsThatGiveNoSamplesAreSurprising) {
    ToolSetup setup = simulation();
    setup.samples = "2000";
    check(setup);
    expect_warning("sample count", "no more samples than iterations");
    setup.samples = "0";
    check(setup);
    expect_warning("sample count", "1 or more samples");
    setup = simulation();
    setup.iterations = "0";
    check(setup);
    expect_warning("iterations", "it makes none");
    setup = simulation();
    setup.burn_in = "-1";
    check(setup);
    expect_warning("burn-in", "0 or more proposals");
}

TEST_F(ToolCheckSettings, ARunThatWouldNeverEndIsAnError) {
    ToolSetup setup = simulation();
    setup.iterations = "inf";
    check(setup);
    expect_error("iterations", "\"inf\"");
    setup = simulation();
    setup.burn_in = "1e999";
    check(setup);
    expect_error("burn-in", "\"1e999\"");
}

TEST_F(ToolCheckSettings, ABayesianFitWithoutProposalsIsSurprising) {
    scratch.write("covariance.txt", "1\n");
    check({.mode = 4, .effects = {{"edge", "1 -1.0"}}, .burn_in = "0"});
    expect_warning("burn-in", "every sample is the observed network");
}

TEST_F(ToolCheckSettings, EstimationSettingsThatEstimateNothingAreFound) {
    check({.multiplication_factor = "0"});
    expect_error("multiplication factor", "no step makes a single proposal");
    check({.sub_phases = "0"});
    expect_warning("number of sub-phases", "1 or more");
    check({.phase3_steps = "0"});
    expect_warning("steps of phase 3", "1 or more");
    check({.estimation_runs = "0"});
    expect_warning("number of estimation runs", "1 or more");
    check({.a_value = "0"});
    expect_warning("starting a-value", "a number above 0");
    check({.a_value = "nan"});
    expect_error("starting a-value", "a number above 0");
}

TEST_F(ToolCheckSettings, AnEstimationBeyondReasonIsSurprising) {
    check({.sub_phases = "200"});
    expect_warning("number of sub-phases", "2.5 times as long as the one before");
    check({.phase3_steps = "2000000000"});
    expect_warning("multiplication factor", "at a million proposals a second it takes");
    check({.actors = "-50000"});
    expect_error("actor count", "2 or more actors");
}

TEST_F(ToolCheckSettings, SamplesThatMemoryCannotHoldAreAnError) {
    const double memory = static_cast<double>(::sysconf(_SC_PHYS_PAGES)) *
                          static_cast<double>(::sysconf(_SC_PAGESIZE));
    // A fit keeps dozens of statistics of 8 bytes for each sample.
    if (memory > 4e11) {
        GTEST_SKIP() << "any number of samples fits into this memory";
    }
    check({.mode = 3, .iterations = "4e9", .samples = "2000000000"});
    expect_error("sample count", "goes into the statistics of the samples");
    check({.mode = 3, .samples = "100"});
    expect_nothing();
}

TEST_F(ToolCheckSettings, MoreProposalsThanADayHoldsAreSurprising) {
    ToolSetup setup = simulation();
    setup.iterations = "1e12";
    check(setup);
    expect_warning("iterations", "at a million proposals a second it takes 11.6 days");
    setup.iterations = "1e10";
    check(setup);
    expect_nothing();
    scratch.write("covariance.txt", "1\n");
    check({.mode = 4, .effects = {{"edge", "1 -1.0"}}, .burn_in = "1e9", .samples = "1000"});
    expect_warning("burn-in", "days");
}

TEST_F(ToolCheckSettings, AnUnknownProposalKindIsSurprising) {
    check({.proposal = "2"});
    expect_warning("proposal kind", "0 single toggle, 1 swap");
    check({.kind = 2, .proposal = "3", .effects = {{"arc", "1 0.0"}}});
    expect_warning("proposal kind", "2 sender swap");
}

TEST_F(ToolCheckSettings, ASwapNeedsTwoTiesAndAGap) {
    const ToolSetup setup{.proposal = "1", .effects = {{"Triangle", "1 0.0"}}};
    check(setup);
    expect_nothing();
    scratch.write("network.txt", "0 1 0 0 0\n1 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n");
    check(setup);
    expect_error("proposal kind", "a swap on a network with 1 tie");
    scratch.write("network.txt", "0 1 1 1 1\n1 0 1 1 1\n1 1 0 1 1\n1 1 1 0 1\n1 1 1 1 0\n");
    check(setup);
    expect_error("proposal kind", "no dyad is empty");
}

TEST_F(ToolCheckSettings, ASwapAmongFreeDyadsNeedsBothStatesThere) {
    scratch.write("free.txt", "0 1 1 0 0\n1 0 1 0 0\n1 1 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n");
    check({.proposal = "1", .effects = {{"Triangle", "1 0.0"}}, .free_dyads = "Free 1\nfree.txt"});
    expect_error("proposal kind", "no dyad among the free dyads is empty");
}

TEST_F(ToolCheckSettings, ASenderSwapNeedsASenderOfTwoArcs) {
    const ToolSetup setup{.kind = 2, .proposal = "2", .effects = {{"reciprocity", "1 0.0"}}};
    check(setup);
    expect_nothing();
    scratch.write("network.txt", "0 1 0 0 0\n1 0 0 0 0\n0 0 0 1 0\n0 0 0 0 0\n0 0 0 0 0\n");
    check(setup);
    expect_error("proposal kind", "no actor sends two arcs");
    scratch.write("network.txt", "0 1 1 1 1\n1 0 0 0 0\n0 0 0 1 0\n0 0 0 0 0\n0 0 0 0 0\n");
    check(setup);
    expect_error("proposal kind", "no sender of two arcs has both");
}

TEST_F(ToolCheckSettings, ASwapOfASimulationNeedsTiesAtTheStart) {
    ToolSetup setup = simulation();
    setup.proposal = "1";
    setup.density = "0.1";
    check(setup);
    expect_error("density", "a start network with 1 tie of 10");
    setup.density = "1";
    check(setup);
    expect_error("density", "a start network with 10 ties of 10");
    setup.density = "0.5";
    check(setup);
    expect_nothing();
}

TEST_F(ToolCheckSettings, ASenderSwapOfASparseSimulationIsSurprising) {
    check({.mode = 1,
           .kind = 2,
           .proposal = "2",
           .density = "0.2",
           .effects = {{"reciprocity", "1 0"}}});
    expect_warning("density", "actors that send two arcs");
}

TEST_F(ToolCheckSettings, FreeDyadsMustLeaveSomethingToChange) {
    scratch.write("free.txt", "0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n");
    check({.free_dyads = "Free 1\nfree.txt"});
    expect_error("free dyads file", "no free dyad");
    scratch.write("free.txt", kFreeOne);
    check({.mode = 3, .free_dyads = "Free 1\nfree.txt"});
    expect_nothing();
    check({.proposal = "1", .effects = {{"Triangle", "1 0"}}, .free_dyads = "Free 1\nfree.txt"});
    expect_error("free dyads file", "one free dyad, and a swap needs two");
}

TEST_F(ToolCheckSettings, AMissingFreeDyadsFileIsAnError) {
    check({.free_dyads = "Free 1\nnowhere.txt"});
    expect_error("free dyads file", "\"nowhere.txt\", which cannot be opened");
}

TEST_F(ToolCheckSettings, ACapThatDoesNotHoldIsSurprising) {
    check({.cap = "1\n2"});
    expect_warning("degree cap", "1 actor above it (the largest degree is 3)");
    check({.cap = "1\n-1"});
    expect_warning("degree cap", "nothing is capped");
    check({.proposal = "1", .cap = "1\n4", .effects = {{"Triangle", "1 0.0"}}});
    expect_warning("degree cap", "swaps do not look at degrees");
    check({.cap = "1\n3"});
    expect_nothing();
}

TEST_F(ToolCheckSettings, ACapOfZeroOnAnEmptyNetworkIsAnError) {
    scratch.write("network.txt", "0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n");
    check({.cap = "1\n0"});
    expect_error("degree cap", "could never change");
}

TEST_F(ToolCheckSettings, ADirectedCapIsSaidToBeOnOutDegrees) {
    const ToolSetup setup{.kind = 2, .cap = "1\n4", .effects = {{"arc", "1 0.0"}}};
    check(setup);
    expect_warning("degree cap flag", "an in-degree cap cannot be set");
    check_text(with(setup.text(), "Cap 1", "Out_degree_cap 1"));
    expect_nothing();
}

TEST_F(ToolCheckSettings, ALambdaThatKillsASelectedEffectIsSurprising) {
    check({.mode = 3, .effects = {{"edge", "1 0.0"}, {"AT", "1 0.0 0.5"}}});
    expect_warning("AT lambda", "below 1 the effect is dead");
    check({.mode = 3, .effects = {{"edge", "1 0.0"}, {"AT", "1 0.0 0.0"}}});
    expect_warning("AT lambda", "below 1 the effect is dead");
    check({.effects = {{"edge", "1 0.0"}, {"AT", "1 0.0 nan"}}});
    expect_error("AT lambda", "\"nan\"");
    check({.effects = {{"edge", "1 0.0"}, {"AT", "0 0.0 0.5"}, {"AS", "1 0.0 1.0"}}});
    expect_nothing();
}

TEST_F(ToolCheckSettings, AStarOfInAndOutNeedsALambdaAboveOne) {
    ToolSetup setup{.kind = 2, .effects = {{"arc", "1 0.0"}, {"AinAoutS", "1 0.0 1.0"}}};
    check(setup);
    expect_error("AinAoutS lambda", "a number above 1");
    setup.mode = 3;
    check(setup);
    expect_warning("AinAoutS lambda", "a number above 1");
}

TEST_F(ToolCheckSettings, AValueThatIsNoNumberIsAnErrorOfASelectedEffect) {
    check({.effects = {{"edge", "1 nan"}}});
    expect_error("edge value", "a finite number");
    check({.effects = {{"edge", "1 0.0"}, {"Triangle", "0 nan"}}});
    expect_nothing();
}

TEST_F(ToolCheckSettings, AModelWithoutEffectsIsSurprising) {
    check({.effects = {}});
    expect_warning("model", "no effect selected");
}

TEST_F(ToolCheckSettings, AnEstimationOfWhatASwapKeepsIsSurprising) {
    check({.proposal = "1"});
    expect_warning("proposal kind", "a swap keeps the number of ties");
    check({.kind = 2, .proposal = "2", .effects = {{"reciprocity", "1 0"}, {"out2star", "1 0"}}});
    expect_warning("proposal kind", "a sender swap keeps every out-degree");
}

TEST_F(ToolCheckSettings, DirectedContinuousEffectsThatFallOutOfStepAreExplained) {
    scratch.write("wealth.txt", "wealth\n1\n2\n3\n4\n5\n");
    check(directed_continuous({0, 1, 5}));
    expect_nothing();
    check(directed_continuous({0, 4}));
    expect_warning("continuous attribute 1: _sum flag",
                   "parameters and statistics get out of step");
    check(directed_continuous({9}));
    expect_warning("continuous attribute 1: _prod_reciprocity flag",
                   "parameters and statistics get out of step");
    check(directed_continuous({5, 6}));
    expect_warning("continuous attributes", "exchange the two");
}

TEST_F(ToolCheckSettings, DirectedContinuousEffectsThatAFitWouldMoveAreExplained) {
    scratch.write("wealth.txt", "wealth\n1\n2\n3\n4\n5\n");
    ToolSetup setup = directed_continuous({7});
    setup.fit_after = "1";
    check(setup);
    expect_warning("continuous attribute 1: _sum_reciprocity flag", "another statistic");
}

TEST_F(ToolCheckSettings, AFitAfterTheEstimationOfADirectedSumIsSurprising) {
    scratch.write("wealth.txt", "wealth\n1\n2\n3\n4\n5\n");
    ToolSetup setup = directed_continuous({4});
    setup.fit_after = "1";
    check(setup);
    expect_warning("goodness of fit after estimation", "the fit runs at shifted parameters");
    setup = directed_continuous({5});
    setup.fit_after = "1";
    check(setup);
    EXPECT_EQ(find_finding(result.out, "warning", "goodness of fit after estimation", ""), "");
}

TEST_F(ToolCheckSettings, DrawsThatWouldGoToOtherEffectsAreSurprising) {
    scratch.write("covariance.txt", "1 0\n0 1\n");
    check({.mode = 4, .effects = {{"edge", "1 -1.0"}, {"Triangle", "1 0.0"}}});
    expect_warning("Triangle value", "the value 0 of a selected effect");
    check({.mode = 4, .effects = {{"edge", "1 -1.0"}, {"Triangle", "1 0.2"}, {"2-star", "0 0.3"}}});
    expect_warning("2-star value", "for an effect that is off");
}

TEST_F(ToolCheckSettings, ValuesThatTheFitAfterAnEstimationWouldUseAreSurprising) {
    check({.effects = {{"edge", "1 0.0"}, {"2-star", "0 0.3"}}, .fit_after = "1"});
    expect_warning("2-star value", "the fit after the estimation uses this value");
}
