// Effects as people write them: `edge`, `AT(2)`, `same(faction)`, `covariate(distance)`.
//
// Parsing knows the form only; which names there are, and which of them take a lambda or an
// attribute, is the catalogue's to say.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/problem.h"

struct EffectExpression {
    std::string name;
    // What stands in the parentheses: a lambda when it is a number, else the name of an attribute
    // or a covariate. An attribute whose name is a number is quoted: same("1990").
    std::optional<double> lambda;
    std::string argument;
    friend bool operator==(const EffectExpression&, const EffectExpression&) = default;
};

// An effect, or why it is none; `column` (from 1) is where in the text it went wrong.
struct ParsedEffect {
    EffectExpression expression;
    std::vector<Problem> problems;  // empty, or one
    bool ok() const { return problems.empty(); }
};
ParsedEffect parse_effect(std::string_view text);

// The parts of a list, separated by commas outside parentheses and quotation marks, without the
// white space around them. Empty parts stay, so that "edge,,AT(2)" can be told to be wrong.
struct EffectText {
    std::string text;
    int column = 1;  // of its first character, from 1
};
std::vector<EffectText> split_effects(std::string_view list);

// The shortest text that reads back as the same number: "2", "1.5".
std::string number_text(double value);

// "AT(2)", "same(faction)"; quotes where they are needed to read it back.
std::string effect_text(const EffectExpression& expression);

// The same effect: names and arguments match without regard to case, "-" and "_", lambdas are
// equal.
bool effects_match(const EffectExpression& a, const EffectExpression& b);
