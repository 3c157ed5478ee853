#include "study/effect_expression.h"

#include <array>
#include <charconv>
#include <cmath>

#include "study/names.h"
#include "study/number_text.h"

namespace {

constexpr const char* kForms = "`name`, `name(lambda)` or `name(attribute)`";

bool is_space(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && is_space(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && is_space(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::optional<double> as_number(std::string_view text) {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

ParsedEffect wrong(std::string_view text, std::size_t at, std::string found, std::string mend) {
    ParsedEffect effect;
    effect.problems.push_back({.column = static_cast<int>(at) + 1,
                               .field = "effect " + shown_text(std::string(text)),
                               .found = std::move(found),
                               .expected = kForms,
                               .mend = std::move(mend)});
    return effect;
}

// What stands between the parentheses.
void read_argument(std::string_view inside, EffectExpression& expression) {
    if (inside.size() >= 2 && inside.front() == '"' && inside.back() == '"') {
        expression.argument = inside.substr(1, inside.size() - 2);
        return;
    }
    expression.lambda = as_number(inside);
    if (!expression.lambda) {
        expression.argument = inside;
    }
}

bool needs_quotes(const std::string& argument) {
    return as_number(argument).has_value() || trimmed(argument) != argument ||
           argument.find_first_of(",()") != std::string::npos;
}

}  // namespace

ParsedEffect parse_effect(std::string_view text) {
    const std::string_view whole = trimmed(text);
    const std::size_t lead =
        whole.empty() ? 0 : static_cast<std::size_t>(whole.data() - text.data());
    const std::size_t open = whole.find('(');
    ParsedEffect effect;
    effect.expression.name = trimmed(whole.substr(0, open));
    if (effect.expression.name.empty()) {
        return wrong(whole, lead, whole.empty() ? "nothing" : "no name before the parenthesis",
                     "write the name of an effect; `ovri effects` lists all");
    }
    if (open == std::string_view::npos) {
        const std::size_t close = whole.find(')');
        return close == std::string_view::npos
                   ? effect
                   : wrong(whole, lead + close, "a closing parenthesis without an opening one",
                           "delete it, or write `(` before the argument");
    }
    if (whole.back() != ')') {
        return wrong(whole, lead + whole.size(), "no closing parenthesis at the end",
                     "end the effect with `)`");
    }
    const std::string_view inside = trimmed(whole.substr(open + 1, whole.size() - open - 2));
    if (inside.empty()) {
        return wrong(whole, lead + open, "empty parentheses",
                     "write a lambda such as 2, or the name of an attribute, or leave `()` out");
    }
    if (is_decimal_comma(inside)) {
        const std::size_t comma = inside.find(',');
        return wrong(whole, static_cast<std::size_t>(inside.data() - text.data()) + comma,
                     "a decimal comma",
                     "write decimals with a point: `" + effect.expression.name + "(" +
                         std::string(inside.substr(0, comma)) + "." +
                         std::string(inside.substr(comma + 1)) + ")`");
    }
    read_argument(inside, effect.expression);
    return effect;
}

std::vector<EffectText> split_effects(std::string_view list) {
    std::vector<EffectText> parts;
    int depth = 0;
    bool quoted = false;
    std::size_t begin = 0;
    const auto add = [&](std::size_t end) {
        const std::string_view part = list.substr(begin, end - begin);
        const std::string_view text = trimmed(part);
        const std::size_t at =
            text.empty() ? begin : static_cast<std::size_t>(text.data() - list.data());
        parts.push_back({std::string(text), static_cast<int>(at) + 1});
        begin = end + 1;
    };
    for (std::size_t k = 0; k < list.size(); ++k) {
        const char character = list[k];
        quoted = quoted != (character == '"');
        if (quoted) {
            continue;
        }
        depth += character == '(' ? 1 : 0;
        depth -= character == ')' && depth > 0 ? 1 : 0;
        if (character == ',' && depth == 0) {
            add(k);
        }
    }
    add(list.size());
    return parts;
}

std::string number_text(double value) {
    std::array<char, 64> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() ? std::string(text.data(), end) : std::string();
}

std::string effect_text(const EffectExpression& expression) {
    if (expression.lambda) {
        return expression.name + "(" + number_text(*expression.lambda) + ")";
    }
    if (expression.argument.empty()) {
        return expression.name;
    }
    const char* quote = needs_quotes(expression.argument) ? "\"" : "";
    return expression.name + "(" + quote + expression.argument + quote + ")";
}

bool effects_match(const EffectExpression& a, const EffectExpression& b) {
    return names_match(a.name, b.name) && a.lambda == b.lambda &&
           names_match(a.argument, b.argument);
}
