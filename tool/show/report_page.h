// The page of a report: one file of HTML that needs neither network nor script.
#pragma once

#include <string>
#include <vector>

#include "show/report_figures.h"

// At least one source. The page is XML, too.
std::string report_page(const std::vector<ReportSource>& sources,
                        const std::vector<NamedFigure>& figures);

// Decimals of an estimate that its Monte Carlo error supports; of one whose error is not known, a
// tenth of its standard error stands for it.
int supported_decimals(const ResultEffect& effect);
