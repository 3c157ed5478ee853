#include <algorithm>
#include <cmath>

#include "pictures/axis.h"
#include "pictures/figures.h"

namespace {

constexpr double kLabelWidth = 118.0;

// The effects of all results in the order in which they first appear.
std::vector<std::string> effects_of(const std::vector<DrawnResult>& results) {
    std::vector<std::string> effects;
    for (const DrawnResult& result : results) {
        for (const DrawnEstimate& each : result.estimates) {
            if (std::find(effects.begin(), effects.end(), each.effect) == effects.end()) {
                effects.push_back(each.effect);
            }
        }
    }
    return effects;
}

Range range_of(const std::vector<DrawnResult>& results) {
    Range range;
    range.add(0.0);
    for (const DrawnResult& result : results) {
        for (const DrawnEstimate& each : result.estimates) {
            range.add(each.estimate);
            range.add(each.lower);
            range.add(each.upper);
        }
    }
    return range.widened(0.05);
}

std::string dash_class(int series) {
    return series % 4 == 0 ? "" : " d" + std::to_string(series % 4);
}

void draw_estimate(Drawing& drawing, const Scale& scale, double y, const DrawnEstimate& each,
                   int series, bool usable) {
    if (!std::isfinite(each.estimate)) {
        return;
    }
    const double x = scale.at(each.estimate);
    std::string hover = each.effect + ": " + number_for_people(each.estimate);
    if (std::isfinite(each.lower) && std::isfinite(each.upper) && usable) {
        const double left = scale.at(each.lower);
        const double right = scale.at(each.upper);
        const std::string style = "interval " + series_class(series);
        drawing.line(left, y, right, y, style + dash_class(series));
        drawing.line(left, y - 3.5, left, y + 3.5, style);
        drawing.line(right, y - 3.5, right, y + 3.5, style);
        hover +=
            " (" + number_for_people(each.lower) + " to " + number_for_people(each.upper) + ")";
    }
    const bool hollow = !usable || each.held;
    hover += each.held ? ", held" : usable ? "" : ", not to be used";
    drawing.dot(x, y, 3.0, mark_of(series), series_class(series) + (hollow ? " hollow" : ""),
                hover);
}

std::string description_of(const std::vector<DrawnResult>& results) {
    std::string text;
    for (const DrawnResult& result : results) {
        text += result.label.name +
                (result.label.usable ? ": " : " (" + result.label.verdict + ", not to be used): ");
        for (const DrawnEstimate& each : result.estimates) {
            text += each.effect + " " + number_for_people(each.estimate);
            if (std::isfinite(each.lower) && result.label.usable) {
                text += " from " + number_for_people(each.lower) + " to " +
                        number_for_people(each.upper);
            }
            text += "; ";
        }
    }
    return text;
}

// A line a result: its mark, its name, and whether it may be used. The height it took.
double draw_legend(Drawing& drawing, const std::vector<DrawnResult>& results) {
    double y = 14.0;
    for (std::size_t k = 0; k < results.size(); ++k) {
        const ResultLabel& label = results[k].label;
        if (results.size() == 1 && label.usable) {
            continue;
        }
        const int series = static_cast<int>(k);
        drawing.dot(10.0, y - 4.0, 4.0, mark_of(series),
                    series_class(series) + (label.usable ? "" : " hollow"));
        const std::string words = label.usable ? "" : label.verdict + ": do not use";
        const double room = kFigureWidth - 26.0 - (words.empty() ? 0.0 : text_length(words) + 14.0);
        drawing.text(20.0, y, label.name, "", Anchor::start, room);
        if (!words.empty()) {
            drawing.text(kFigureWidth - 4.0, y, words, "warning", Anchor::end);
        }
        y += kLine;
    }
    return y;
}

}  // namespace

Drawing forest_figure(const std::vector<DrawnResult>& results) {
    const std::vector<std::string> effects = effects_of(results);
    Drawing drawing(kFigureWidth, 100.0, "Estimates with 95% intervals", description_of(results));
    const double step = std::max(kLine + 3.0, 10.0 * static_cast<double>(results.size()) + 8.0);
    Frame frame{kLabelWidth, draw_legend(drawing, results), kFigureWidth - 12.0, 0.0};
    frame.bottom = frame.top + step * static_cast<double>(effects.size());
    drawing.set_height(frame.bottom + 38.0);
    const Range range = range_of(results);
    const Scale scale(range.low, range.high, frame.left, frame.right);
    draw_bottom_axis(drawing, frame, scale, "estimate (log-odds), 95% interval");
    drawing.line(scale.at(0.0), frame.top, scale.at(0.0), frame.bottom, "zero");
    for (std::size_t row = 0; row < effects.size(); ++row) {
        const double middle = frame.top + step * (static_cast<double>(row) + 0.5);
        drawing.text(kLabelWidth - 8.0, middle + 4.0, effects[row], "", Anchor::end,
                     kLabelWidth - 12.0);
        for (std::size_t k = 0; k < results.size(); ++k) {
            const double offset =
                10.0 * (static_cast<double>(k) - static_cast<double>(results.size() - 1) / 2.0);
            for (const DrawnEstimate& each : results[k].estimates) {
                if (each.effect == effects[row]) {
                    draw_estimate(drawing, scale, middle + offset, each, static_cast<int>(k),
                                  results[k].label.usable);
                }
            }
        }
    }
    return drawing;
}
