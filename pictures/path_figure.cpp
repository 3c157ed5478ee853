#include <cmath>

#include "pictures/heading.h"
#include "study/counted.h"

namespace {

constexpr double kHeight = 190.0;
// Up to so many steps each has a dot.
constexpr std::size_t kMostDots = 40;

std::size_t steps_of(const DrawnPath& path) {
    std::size_t steps = 0;
    for (const std::vector<double>& values : path.values) {
        steps += values.size();
    }
    return steps;
}

std::string summary_of(const DrawnPath& path) {
    std::string text;
    for (std::size_t stage = 0; stage < path.values.size(); ++stage) {
        if (!path.values[stage].empty()) {
            text += path.stages[stage] + ": " +
                    counted(static_cast<long long>(path.values[stage].size()), "step") +
                    " drawn, from " + number_for_people(path.values[stage].front()) + " to " +
                    number_for_people(path.values[stage].back()) + "; ";
        }
    }
    return text + "the estimate is " + number_with_decimals(path.estimate, path.decimals) +
           (path.label.usable ? "." : "; " + path.label.verdict + ", not to be used.");
}

// The name of a stage above its stretch of the frame, where there is room for it.
void draw_stage(Drawing& drawing, const Frame& frame, double from, double to,
                const std::string& name) {
    drawing.line(from, frame.top, from, frame.bottom, "axis d2");
    if (text_length(name) + 6.0 < to - from) {
        drawing.text(from + 4.0, frame.bottom - 5.0, name, "soft");
    }
}

}  // namespace

Drawing path_figure(const DrawnPath& path) {
    Drawing drawing(kFigureWidth, kHeight, "Way to the estimate of " + path.effect,
                    summary_of(path));
    draw_heading(drawing, path.effect, path.label);
    const Frame frame{52.0, 40.0, kFigureWidth - 12.0, kHeight - 38.0};
    Range range;
    range.add(path.estimate);
    for (const std::vector<double>& values : path.values) {
        for (const double value : values) {
            range.add(value);
        }
    }
    range = range.widened(0.1);
    const std::size_t steps = steps_of(path);
    const Scale up(range.low, range.high, frame.bottom, frame.top);
    const Scale across(0.0, static_cast<double>(steps), frame.left, frame.right);
    draw_left_axis(drawing, frame, up, "parameter", 5);
    drawing.line(frame.left, frame.bottom, frame.right, frame.bottom, "axis");
    drawing.text((frame.left + frame.right) / 2.0, frame.bottom + 15.0, "steps of the search", "",
                 Anchor::middle);
    std::vector<double> x;
    std::vector<double> y;
    for (std::size_t stage = 0; stage < path.values.size(); ++stage) {
        const auto first = static_cast<double>(x.size());
        for (const double value : path.values[stage]) {
            x.push_back(across.at(static_cast<double>(x.size()) + 0.5));
            y.push_back(up.at(value));
        }
        if (path.values.size() > 1) {
            draw_stage(drawing, frame, across.at(first), across.at(static_cast<double>(x.size())),
                       path.stages[stage]);
        }
    }
    drawing.curve(x, y, "interval s0 line");
    std::size_t step = 0;
    for (const std::vector<double>& values : path.values) {
        for (const double value : values) {
            if (steps <= kMostDots && std::isfinite(value)) {
                drawing.dot(x[step], y[step], 2.4, Mark::circle, "s0",
                            "step " + std::to_string(step + 1) + ": " + number_for_people(value));
            }
            ++step;
        }
    }
    draw_target(drawing, frame, up, Across::level, "estimate", path.estimate,
                number_with_decimals(path.estimate, path.decimals));
    return drawing;
}
