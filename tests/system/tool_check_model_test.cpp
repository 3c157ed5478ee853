// "ovri check" on models that no estimation can fit: effects that drift, that are there twice, that
// follow from others, and observed statistics at an end of their range.
#include <algorithm>

#include "support/tool_runner.h"

namespace {

// Ten actors, of whom the last has no tie; triangles, a square and stars of several sizes.
constexpr const char* kTen =
    "0 1 1 1 0 0 0 0 0 0\n1 0 1 0 1 0 0 0 0 0\n1 1 0 1 0 0 0 0 0 0\n1 0 1 0 0 1 0 0 0 0\n"
    "0 1 0 0 0 1 1 0 0 0\n0 0 0 1 1 0 1 1 0 0\n0 0 0 0 1 1 0 0 1 0\n0 0 0 0 0 1 0 0 0 0\n"
    "0 0 0 0 0 0 1 0 0 0\n0 0 0 0 0 0 0 0 0 0\n";
// A star and a tie: no triangle, and no actor without ties.
constexpr const char* kStar = "0 1 1 0 0\n1 0 0 0 0\n1 0 0 0 0\n0 0 0 0 1\n0 0 0 1 0\n";
constexpr const char* kGroup =
    "Attributes 1\nBinary 0\nContinuous 0\nCategorical 1\n1\nFile group.txt\nsame 1 0\nother 1 0";

class ToolCheckModel : public ToolTest {
  protected:
    ToolCheckModel() {
        scratch.write("network.txt", kTen);
        scratch.write("group.txt", "group\n1\n1\n2\n1\n2\n2\n1\n3\n2\n3\n");
    }
    using Effects = std::map<std::string, std::string>;
    void check_effects(const Effects& effects, int mode = 2) {
        ToolSetup setup{.mode = mode, .actors = "10", .effects = effects};
        check(setup);
    }
};

}  // namespace

TEST_F(ToolCheckModel, EffectsThatDriftAreErrorsOfAnEstimationAlone) {
    for (const auto& [effect, numbers] :
         Effects{{"3Path", "1 0"}, {"0ET", "1 0"}, {"ETNT", "1 0"}, {"AEAT", "1 0 2"}}) {
        check_effects({{"edge", "1 0"}, {effect, numbers}});
        expect_error(effect + " flag", "drifts from the network's");
        for (const int mode : {1, 3}) {
            check_effects({{"edge", "1 -1"}, {effect, numbers}}, mode);
            expect_nothing();
        }
    }
    check_effects({{"edge", "1 0"}, {"AT", "1 0 1.0"}});
    expect_error("AT flag", "\"AT\" at lambda 1");
    check_effects({{"edge", "1 0"}, {"AT", "1 0 2.0"}});
    expect_nothing();
}

TEST_F(ToolCheckModel, ALambdaThatKillsASelectedEffectIsAnErrorOfAnEstimation) {
    check_effects({{"edge", "1 0"}, {"AT", "1 0 0.5"}});
    expect_error("AT lambda", "below 1 the effect is dead");
    check_effects({{"edge", "1 0"}, {"AT", "1 0 0.5"}}, 3);
    expect_warning("AT lambda", "below 1 the effect is dead");
}

TEST_F(ToolCheckModel, TheSameEffectTwiceIsAnErrorOfAnEstimation) {
    check_effects({{"edge", "1 0"}, {"AT", "1 0 2"}, {"AT2", "1 0 2"}});
    expect_error("AT2 flag", "\"AT\" and \"AT2\" of one lambda");
    check_effects({{"edge", "1 0"}, {"AT", "1 0 2"}, {"AT2", "1 0 3"}});
    expect_nothing();
    check_effects({{"edge", "1 0"}, {"AT", "1 0 2"}, {"AT2", "1 0 2"}}, 3);
    expect_nothing();
}

TEST_F(ToolCheckModel, EffectsThatFollowFromOthersAreNamed) {
    ToolSetup setup{.actors = "10", .attributes = kGroup};
    setup.effects = {{"edge", "1 0"}, {"Triangle", "1 0"}};
    check(setup);
    expect_error("categorical attribute 1: _Different_Category_edge flag",
                 "\"group_Different_Category_edge\" = 1 x \"edge\" + -1 x "
                 "\"group_Same_Category_edge\"");
    setup.attributes = with(kGroup, "other 1", "other 0");
    check(setup);
    expect_nothing();
    setup.mode = 3;
    setup.attributes = kGroup;
    check(setup);
    expect_nothing();
}

TEST_F(ToolCheckModel, EffectsThatOnlySeemToFollowFromOthersAreFine) {
    // No tie has two common neighbours, so both alternating triangles are triangles here.
    scratch.write("network.txt",
                  "0 1 1 0 0 0 0 0 0 0\n1 0 1 0 0 0 0 0 0 0\n1 1 0 1 0 0 0 0 0 0\n"
                  "0 0 1 0 1 0 0 0 0 0\n0 0 0 1 0 0 0 0 0 0\n0 0 0 0 0 0 0 0 0 0\n"
                  "0 0 0 0 0 0 0 0 0 0\n0 0 0 0 0 0 0 0 0 0\n0 0 0 0 0 0 0 0 0 0\n"
                  "0 0 0 0 0 0 0 0 0 0\n");
    check_effects({{"edge", "1 0"}, {"AT", "1 0 2"}, {"Triangle", "1 0"}});
    expect_nothing();
}

TEST_F(ToolCheckModel, AnObservedStatisticAtAnEndOfItsRangeIsAnErrorOfAnEstimation) {
    scratch.write("network.txt", kStar);
    for (const std::string effect : {"Triangle", "Isolates", "4-clique"}) {
        check({.effects = {{"edge", "1 0"}, {effect, "1 0"}}});
        expect_error(effect + " flag", "an observed statistic of 0 for \"" + effect +
                                           "\", the smallest that it can have");
        check({.mode = 3, .effects = {{"edge", "1 -1"}, {effect, "1 0"}}});
        expect_nothing();
    }
    check({.effects = {{"edge", "1 0"}, {"2-star", "1 0"}}});
    expect_nothing();
}

TEST_F(ToolCheckModel, TiesThatAnAttributeDecidesAreAtTheEndOfTheirRange) {
    scratch.write("network.txt", kStar);
    ToolSetup setup;
    setup.attributes = with(kGroup, "other 1", "other 0");
    scratch.write("group.txt", "group\n1\n2\n2\n3\n4\n");
    check(setup);
    expect_error("categorical attribute 1: _Same_Category_edge flag", "the smallest");
    scratch.write("group.txt", "group\n1\n2\n3\n4\n4\n");
    check(setup);
    expect_error("categorical attribute 1: _Same_Category_edge flag", "the largest");
    scratch.write("group.txt", "group\n1\n2\n3\n4\n5\n");
    check(setup);
    expect_error("categorical attribute 1: _Same_Category_edge flag", "no free dyad changes");
    scratch.write("group.txt", "group\n1\n1\n2\n1\n2\n");
    check(setup);
    expect_nothing();
}

TEST_F(ToolCheckModel, OnlyFreeDyadsCount) {
    // The free dyads are those of the first three actors, and all of them are tied.
    scratch.write("network.txt", "0 1 1 0 0\n1 0 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    scratch.write("free.txt", "0 1 1 0 0\n1 0 1 0 0\n1 1 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n");
    check({.free_dyads = "Free 1\nfree.txt"});
    expect_error("edge flag", "an observed statistic of 4 for \"edge\", the largest");
}
