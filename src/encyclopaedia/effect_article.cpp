#include "encyclopaedia/effect_article.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace {

using Style = ArticleSection::Style;

bool is_letter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// Whether the sign stands in the formula, not as the end of a longer name.
bool uses(const std::string& formula, const std::string& sign) {
    for (std::size_t place = formula.find(sign); place != std::string::npos;
         place = formula.find(sign, place + 1)) {
        if (place == 0 || !is_letter(formula[place - 1])) {
            return true;
        }
    }
    return false;
}

// Whether the formula needs an explanation of the notation: its keys stand before the colon or the
// equals sign, separated by commas.
bool needs(const std::string& formula, const std::string& explanation) {
    if (explanation.starts_with("λ")) {
        return uses(formula, "λ") || uses(formula, "w^") || uses(formula, "v^");
    }
    if (explanation.starts_with("w =")) {
        return uses(formula, "w^") || uses(formula, "v^");
    }
    if (explanation.starts_with("i, j:")) {
        return true;
    }
    for (const char* start : {"v =", "C(", "[", "sum_{", "sum_k"}) {
        if (explanation.starts_with(start)) {
            const std::string sign = std::string(start) == "v ="     ? "v^"
                                     : std::string(start) == "sum_k" ? "sum_"
                                                                     : start;
            return uses(formula, sign);
        }
    }
    std::istringstream keys(explanation.substr(0, explanation.find_first_of(":=")));
    for (std::string key; keys >> key;) {
        const std::size_t line = key.find('_');
        if (line != std::string::npos && uses(formula, key.substr(0, line + 1))) {
            return true;
        }
    }
    return false;
}

void add_notation(std::vector<std::string>& lines, const std::string& notation,
                  const std::string& formula) {
    for (std::size_t begin = 0; begin < notation.size();) {
        const std::size_t end = std::min(notation.find("; ", begin), notation.size());
        const std::string explanation = notation.substr(begin, end - begin);
        if (needs(formula, explanation)) {
            lines.push_back(explanation);
        }
        begin = end + 2;
    }
}

std::string number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f", value);
    return text.data();
}

std::string plain_number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%g", value);
    return text.data();
}

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

std::string law_text(const LambdaWeights& lambda) {
    const std::string counted = lambda.counted;
    switch (lambda.law) {
        case WeightLaw::rising:
            return "The k-th " + counted +
                   " adds λ (1 - w^(k-1)): nothing for the first, λ at most. The larger λ, the "
                   "later this levels off.";
        case WeightLaw::falling:
            return "The k-th " + counted +
                   " adds w^(k-1): 1 for the first, λ in all. The larger λ, the longer further "
                   "ones "
                   "count.";
        case WeightLaw::alternating:
            return "A " + counted + " adds (-1/λ)^(k-4), for k from 4 to 8.";
        case WeightLaw::none:
            break;
    }
    return "";
}

std::string agreement_text(const EffectEntry& entry) {
    const std::string drift =
        "a statistic that a chain carries by its changes drifts from a recount.";
    switch (entry.facts.agreement) {
        case Agreement::always:
            break;
        case Agreement::above_lambda_one:
            return "At lambda 1 the change is not the count with the tie less the count without "
                   "it: " +
                   drift;
        case Agreement::zero_one_values:
            return "Where the attribute has other values than 0 and 1, a missing one included, "
                   "change and count part: " +
                   drift;
        case Agreement::values_from_zero:
            return "Where the covariate has negative values, change and count part: " + drift;
        case Agreement::never:
            return entry.facts.carried
                       ? "The change is not the count with the tie less the count without it: " +
                             drift
                       : "";
    }
    return "";
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : between) + word;
    }
    return text;
}

std::vector<std::string> label_lines(const EffectEntry& entry) {
    std::vector<std::string> lines;
    for (const HostLabel& label : host_labels(entry)) {
        lines.push_back("`" + label.label + "`: " + joined(label.places, ", "));
    }
    return lines;
}

std::string second_text(const EffectEntry& entry) {
    if (entry.second_row == nullptr) {
        return "";
    }
    const std::string name = entry.facts.name;
    return "A model may have two of it: `" + name + "(2)` and `" + name +
           "(3)`. Hosts' files call the second `" + entry.second_row + "`.";
}

}  // namespace

std::vector<std::string> drawing_lines(const EffectEntry& entry) {
    std::vector<std::string> lines;
    std::istringstream drawing(entry.page->drawing);
    std::string line;
    std::getline(drawing, line);
    while (std::getline(drawing, line)) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> notation_lines(const EffectEntry& entry) {
    std::string formulas = entry.facts.formula;
    std::vector<std::string> lines;
    if (entry.page->change == nullptr) {
        add_notation(lines, catalogue_of(entry.kind).formula_notation, formulas);
        return lines;
    }
    const std::string change = entry.page->change;
    add_notation(lines, catalogue_of(entry.kind).formula_notation, formulas + " ; " + change);
    add_notation(lines, change_notation(entry.kind), change);
    return lines;
}

std::string change_text(const EffectEntry& entry) {
    return entry.page->change != nullptr ? entry.page->change
                                         : "the count with the tie less the count without it";
}

std::string cost_text(Cost cost) {
    switch (cost) {
        case Cost::constant:
            return "A change costs the same in every network.";
        case Cost::common_neighbours:
            return "A change looks at each common neighbour of the two ends.";
        case Cost::neighbours:
            return "A change looks at each neighbour of either end.";
        case Cost::neighbourhood:
            return "A change looks at the ties among the neighbours of the two ends.";
        case Cost::cliques:
            return "A change looks at the cliques among the common neighbours of the two ends.";
        case Cost::network:
            return "A change looks at triangles anywhere: slow in large networks.";
    }
    return "";
}

std::string dependence_text(const EffectEntry& entry) {
    const bool directed = entry.kind == NetworkKind::directed;
    switch (entry.facts.dependence) {
        case Dependence::none:
            return directed ? "What an arc adds depends on no other arc."
                            : "What a tie adds depends on no other tie.";
        case Dependence::reverse_arc:
            return "What an arc adds depends on the arc back alone: dyads are independent.";
        case Dependence::other_dyads:
            break;
    }
    return directed ? "What an arc adds depends on other arcs."
                    : "What a tie adds depends on other ties.";
}

std::vector<std::string> oddities(const EffectEntry& entry) {
    std::vector<std::string> texts;
    if (entry.alternating) {
        texts.emplace_back(
            "Lambda is 1 or more. Below 1 the effect is dead: its change is always 0.");
    }
    texts.push_back(agreement_text(entry));
    if (!entry.facts.carried) {
        texts.emplace_back(
            "No change moves the statistic; it is recounted at each sample instead.");
    }
    if (entry.page->beware != nullptr) {
        texts.emplace_back(entry.page->beware);
    }
    std::erase(texts, "");
    return texts;
}

int first_weight(WeightLaw law) { return law == WeightLaw::alternating ? 4 : 1; }

int drawn_weights(WeightLaw law) { return law == WeightLaw::alternating ? 5 : 6; }

std::vector<std::string> lambda_lines(const LambdaWeights& lambda) {
    constexpr double kBar = 10.0;
    constexpr std::size_t kColumn = 20;
    std::vector<std::string> lines;
    std::string head = "k   ";
    for (const double value : kDrawnLambdas) {
        head += padded(" λ = " + plain_number(value), kColumn + 1);
    }
    lines.push_back(head.substr(0, head.find_last_not_of(' ') + 1));
    const double longest = lambda.law == WeightLaw::rising ? kDrawnLambdas.back() : 1.0;
    const int first = first_weight(lambda.law);
    for (int k = first; k < first + drawn_weights(lambda.law); ++k) {
        std::string line = padded(std::to_string(k), 4);
        for (const double value : kDrawnLambdas) {
            const double weight = lambda_weight(lambda.law, value, k);
            const auto length =
                static_cast<std::size_t>(std::lround(kBar * std::fabs(weight) / longest));
            line += padded(
                padded((weight < 0.0 ? "" : " ") + number(weight), 6) + std::string(length, '#'),
                kColumn);
        }
        lines.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
    }
    return lines;
}

std::vector<std::string> reference_lines(const EffectEntry& entry) {
    std::vector<Source> sources;
    for (const Source source : entry.page->sources) {
        if (source != Source::none) {
            sources.push_back(source);
        }
    }
    std::sort(sources.begin(), sources.end());
    std::vector<std::string> lines;
    lines.reserve(sources.size());
    for (const Source source : sources) {
        lines.emplace_back(source_text(source));
    }
    return lines;
}

std::vector<ArticleSection> article_sections(const EffectEntry& entry) {
    std::vector<ArticleSection> sections = {
        {"Drawing", Style::drawing, drawing_lines(entry)},
        {"Count", Style::formula, {entry.facts.formula}},
        {"Change by one more tie",
         entry.page->change != nullptr ? Style::formula : Style::text,
         {change_text(entry)}},
        {"Letters", Style::list, notation_lines(entry)},
        {"Lambda", Style::text, {}},
        {"", Style::drawing, {}},
        {"Dependence and cost",
         Style::text,
         {dependence_text(entry) + " " + cost_text(entry.facts.cost)}},
        {"Beware", Style::list, oddities(entry)},
        {"In hosts' files", Style::list, label_lines(entry)},
        {"In the literature", Style::text, {entry.page->literature}},
        {"In other packages", Style::text, {}},
        {"References", Style::list, reference_lines(entry)}};
    if (entry.page->lambda.law != WeightLaw::none) {
        sections[4].lines = {law_text(entry.page->lambda)};
        sections[5].lines = lambda_lines(entry.page->lambda);
    }
    if (const std::string second = second_text(entry); !second.empty()) {
        sections[8].lines.push_back(second);
    }
    if (entry.page->terms != nullptr) {
        std::vector<std::string> terms;
        for (const std::string& term : other_terms(entry)) {
            terms.push_back("`" + term + "`");
        }
        sections[10].lines = {joined(terms, ", ") + ". " + entry.page->conversion};
    }
    std::erase_if(sections, [](const ArticleSection& each) { return each.lines.empty(); });
    return sections;
}
