// The page of a report: one file of HTML that needs neither network nor script.
#pragma once

#include <string>
#include <vector>

#include "show/report_figures.h"

// At least one source. The page is XML, too.
std::string report_page(const std::vector<ReportSource>& sources,
                        const std::vector<NamedFigure>& figures);
