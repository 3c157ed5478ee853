// Pieces of HTML of which the pages of reports are made. Texts go in as they are and come out as
// text, whatever marks they hold.
#pragma once

#include <string>
#include <vector>

#include "show/report_figures.h"

// From the first line to the heading: a page that asks for nothing and runs nothing.
std::string page_head(const std::string& title);
constexpr const char* kPageEnd = "</body>\n</html>\n";

// A name, which may be written from right to left.
std::string name_text(const std::string& name);

// A number, or a dash for one that does not exist.
std::string decimals(double value, int places);
std::string p_text(double value);

// A row of a table: cells are HTML, `tag` is "th" or "td".
std::string row(const char* tag, const std::vector<std::string>& cells);

// A figure with its caption, which is HTML; and figures side by side, nothing of none.
std::string figure_element(const NamedFigure& figure, const std::string& caption);
std::string figure_grid(const std::string& figures);
