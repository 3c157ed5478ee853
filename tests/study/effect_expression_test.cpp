// Effects as people write them.
#include "study/effect_expression.h"

#include <gtest/gtest.h>

namespace {

EffectExpression parsed(std::string_view text) {
    const ParsedEffect effect = parse_effect(text);
    EXPECT_TRUE(effect.ok()) << text << ": "
                             << (effect.ok() ? "" : problem_text(effect.problems[0]));
    return effect.expression;
}

Problem problem_of(std::string_view text) {
    const ParsedEffect effect = parse_effect(text);
    EXPECT_FALSE(effect.ok()) << text;
    return effect.ok() ? Problem() : effect.problems[0];
}

TEST(EffectExpression, HasANameALambdaOrAnArgument) {
    EXPECT_EQ(parsed("edge"), (EffectExpression{"edge", {}, ""}));
    EXPECT_EQ(parsed("AT(2)"), (EffectExpression{"AT", 2.0, ""}));
    EXPECT_EQ(parsed(" AT ( 1.5 ) "), (EffectExpression{"AT", 1.5, ""}));
    EXPECT_EQ(parsed("same(faction)"), (EffectExpression{"same", {}, "faction"}));
    EXPECT_EQ(parsed("same(year of birth)"), (EffectExpression{"same", {}, "year of birth"}));
    EXPECT_EQ(parsed("same(\"1990\")"), (EffectExpression{"same", {}, "1990"}));
    EXPECT_EQ(parsed("covariate(a(b))"), (EffectExpression{"covariate", {}, "a(b)"}));
}

TEST(EffectExpression, TellsWhereItWentWrong) {
    EXPECT_EQ(problem_of("").found, "nothing");
    EXPECT_EQ(problem_of("(2)").column, 1);
    EXPECT_EQ(problem_of("AT()").column, 3);
    EXPECT_EQ(problem_of("AT(2").column, 5);
    EXPECT_EQ(problem_of("  AT(2").column, 7);
    EXPECT_EQ(problem_of("AT2)").column, 4);
    EXPECT_EQ(problem_of("AT(2)x").found, "no closing parenthesis at the end");
}

TEST(EffectExpression, IsPrintedWithoutTrailingZeros) {
    EXPECT_EQ(effect_text({"AT", 2.0, ""}), "AT(2)");
    EXPECT_EQ(effect_text({"AT", 1.50, ""}), "AT(1.5)");
    EXPECT_EQ(effect_text({"AT", 0.1, ""}), "AT(0.1)");
    EXPECT_EQ(effect_text({"edge", {}, ""}), "edge");
}

TEST(EffectExpression, ReadsBackWhatItPrints) {
    for (const EffectExpression& effect :
         {EffectExpression{"AT-TDU", 1.0 / 3.0, ""}, EffectExpression{"same", {}, "1990"},
          EffectExpression{"sum", {}, "age, in years"}, EffectExpression{"edge", {}, ""}}) {
        EXPECT_EQ(parsed(effect_text(effect)), effect);
    }
}

TEST(EffectExpression, ListsAreSplitOutsideParenthesesAndQuotes) {
    const auto parts = split_effects("edge, AT(2) ,same(a,b),sum(\"x),y\")");
    ASSERT_EQ(parts.size(), 4U);
    EXPECT_EQ(parts[0].text, "edge");
    EXPECT_EQ(parts[1].text, "AT(2)");
    EXPECT_EQ(parts[1].column, 7);
    EXPECT_EQ(parts[2].text, "same(a,b)");
    EXPECT_EQ(parts[3].text, "sum(\"x),y\")");
    EXPECT_EQ(split_effects("edge,,AT(2)")[1].text, "");
    EXPECT_EQ(split_effects("").size(), 1U);
}

TEST(EffectExpression, MatchesRegardlessOfSpelling) {
    EXPECT_TRUE(effects_match(parsed("at-t(2)"), parsed("AT_T(2.0)")));
    EXPECT_FALSE(effects_match(parsed("AT(2)"), parsed("AT(3)")));
    EXPECT_FALSE(effects_match(parsed("same(a)"), parsed("same(b)")));
}

TEST(ProblemText, NamesThePlaceAndTheMend) {
    const Problem problem{.file = "a.csv",
                          .line = 3,
                          .column = 5,
                          .field = "actor `Ann`",
                          .found = "\"x\"",
                          .expected = "a number",
                          .mend = "mend it"};
    EXPECT_EQ(problem_text(problem),
              "a.csv:3:5: actor `Ann`: found \"x\", expected a number\n    mend it");
    EXPECT_EQ(shown_text("a\tb\x01"), "\"a\\tb\\x01\"");
    EXPECT_LT(shown_text(std::string(1000, 'x')).size(), 80U);
}

TEST(EffectExpression, ADecimalCommaIsToldAsOne) {
    const Problem problem = problem_of("AT(2,5)");
    EXPECT_EQ(problem.found, "a decimal comma");
    EXPECT_EQ(problem.column, 5);
    EXPECT_NE(problem.mend.find("`AT(2.5)`"), std::string::npos) << problem.mend;
    EXPECT_EQ(parsed("same(\"2,5\")"), (EffectExpression{"same", {}, "2,5"}));
}

}  // namespace
