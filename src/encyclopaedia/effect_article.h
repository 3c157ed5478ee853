// An entry as an article: sections of text that a terminal, a page or a document sets in its way.
#pragma once

#include <string>
#include <vector>

#include "encyclopaedia/effect_entries.h"

struct ArticleSection {
    enum class Style {
        text,     // paragraphs, to be wrapped
        list,     // items, to be wrapped
        drawing,  // lines that stay as they are
        formula   // formulas, to be wrapped
    };
    std::string title;
    Style style;
    std::vector<std::string> lines;
};

// Everything but the name and the meaning; sections that have nothing to say are left out.
std::vector<ArticleSection> article_sections(const EffectEntry& entry);

// The lines of the drawing.
std::vector<std::string> drawing_lines(const EffectEntry& entry);

// The explanations of the letters that the entry's formulas use.
std::vector<std::string> notation_lines(const EffectEntry& entry);

// The formula of the change, or in words where no short form is known.
std::string change_text(const EffectEntry& entry);

// What one change costs.
std::string cost_text(Cost cost);

// What the difference that one tie makes depends on.
std::string dependence_text(const EffectEntry& entry);

// Where count and change part, what is not carried, what lambda must be, and the page's own.
std::vector<std::string> oddities(const EffectEntry& entry);

// The lambdas whose weights are drawn.
constexpr std::array<double, 3> kDrawnLambdas = {1.5, 2.0, 4.0};
// The k of the law's first weight, and how many are drawn.
int first_weight(WeightLaw law);
int drawn_weights(WeightLaw law);

// A table of bars: the weight of the k-th for each drawn lambda.
std::vector<std::string> lambda_lines(const LambdaWeights& lambda);

// In the order of the list of references.
std::vector<std::string> reference_lines(const EffectEntry& entry);
