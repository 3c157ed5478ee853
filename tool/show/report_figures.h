// The figures of a report, each with a name that is good for a file.
#pragma once

#include <string>
#include <vector>

#include "pictures/figures.h"
#include "show/report_source.h"

enum class FigurePart { estimates, path, network, samples, fit, pooled };

struct NamedFigure {
    std::string name;  // "gof-degree": letters, digits and "-"
    FigurePart part = FigurePart::estimates;
    int source = -1;  // the result that it is about; -1 for all of them
    Drawing drawing;
};

// In the order of the page. Figures of the same thing in several results share their axes and
// follow each other.
std::vector<NamedFigure> report_figures(const std::vector<ReportSource>& sources);

// Letters and digits of a text, the rest as single strokes: a word for the name of a file.
std::string file_word(const std::string& text);

// "not converged".
std::string verdict_words(const ResultRecord& result);
