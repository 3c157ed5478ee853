// What stands above the frame of a figure.
#pragma once

#include <string>

#include "pictures/axis.h"
#include "pictures/figures.h"

// The title at the left and, of a result that is not to be used, that it is not at the right.
void draw_heading(Drawing& drawing, const std::string& title, const ResultLabel& label);

// A horizontal or upright line for a value that the rest is compared with, and its number as it is
// written in words above the frame: "dashed: observed, 78". Nothing of a value that is none.
enum class Across { level, upright };
void draw_target(Drawing& drawing, const Frame& frame, const Scale& scale, Across across,
                 const std::string& what, double value, const std::string& number);
