#include <algorithm>
#include <cmath>

#include "pictures/heading.h"
#include "study/counted.h"

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

void add_estimates(const std::vector<DrawnEstimate>& estimates, Range& range) {
    for (const DrawnEstimate& each : estimates) {
        range.add(each.estimate);
        range.add(each.lower);
        range.add(each.upper);
    }
}

Range range_of(const std::vector<DrawnResult>& results) {
    Range range;
    range.add(0.0);
    for (const DrawnResult& result : results) {
        add_estimates(result.estimates, range);
    }
    return range.widened(0.05);
}

std::string dash_class(int series) {
    return series % 4 == 0 ? "" : " d" + std::to_string(series % 4);
}

// "AT(2): 0.5 (0.1 to 0.9)"
std::string words_of(const DrawnEstimate& each, bool usable) {
    std::string words = each.effect + ": " + number_with_decimals(each.estimate, each.decimals);
    if (std::isfinite(each.lower) && std::isfinite(each.upper) && usable) {
        words += " (" + number_with_decimals(each.lower, each.decimals) + " to " +
                 number_with_decimals(each.upper, each.decimals) + ")";
    }
    return words + (each.held ? ", held" : usable ? "" : ", not to be used");
}

void draw_estimate(Drawing& drawing, const Scale& scale, double y, const DrawnEstimate& each,
                   int series, bool usable) {
    if (!std::isfinite(each.estimate)) {
        return;
    }
    const double x = scale.at(each.estimate);
    const std::string hover = words_of(each, usable);
    if (std::isfinite(each.lower) && std::isfinite(each.upper) && usable) {
        const double left = scale.at(each.lower);
        const double right = scale.at(each.upper);
        const std::string style = "interval " + series_class(series);
        drawing.line(left, y, right, y, style + dash_class(series));
        drawing.line(left, y - 3.5, left, y + 3.5, style);
        drawing.line(right, y - 3.5, right, y + 3.5, style);
    }
    const bool hollow = !usable || each.held;
    drawing.dot(x, y, 3.0, mark_of(series), series_class(series) + (hollow ? " hollow" : ""),
                hover);
}

std::string description_of(const std::vector<DrawnResult>& results) {
    std::string text;
    for (const DrawnResult& result : results) {
        text += result.label.name +
                (result.label.usable ? ": " : " (" + result.label.verdict + ", not to be used): ");
        for (const DrawnEstimate& each : result.estimates) {
            text += each.effect + " " + number_with_decimals(each.estimate, each.decimals);
            if (std::isfinite(each.lower) && result.label.usable) {
                text += " from " + number_with_decimals(each.lower, each.decimals) + " to " +
                        number_with_decimals(each.upper, each.decimals);
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

// A diamond from the lower to the upper end of the interval.
void draw_pooled(Drawing& drawing, const Scale& scale, double y, const DrawnEstimate& pooled) {
    constexpr double kHalf = 6.0;
    const double x = scale.at(pooled.estimate);
    const bool wide = std::isfinite(pooled.lower) && std::isfinite(pooled.upper);
    const double left = wide ? scale.at(pooled.lower) : x - kHalf;
    const double right = wide ? scale.at(pooled.upper) : x + kHalf;
    drawing.path("M" + coordinate(left) + " " + coordinate(y) + "L" + coordinate(x) + " " +
                     coordinate(y - kHalf) + "L" + coordinate(right) + " " + coordinate(y) + "L" +
                     coordinate(x) + " " + coordinate(y + kHalf) + "z",
                 "seen", words_of(pooled, true));
}

std::string pool_description(const DrawnPool& pool) {
    std::string text = pool.model + ". Pooled " + words_of(pool.pooled, true) + "; ";
    for (const DrawnEstimate& each : pool.networks) {
        text += words_of(each, true) + "; ";
    }
    return text + counted(pool.left_out, "network") + " left out.";
}

}  // namespace

Drawing pooled_figure(const DrawnPool& pool) {
    constexpr std::size_t kMostNames = 60;
    const std::size_t n = pool.networks.size();
    const double step = n <= kMostNames ? kLine : std::max(2.0, 900.0 / static_cast<double>(n));
    Drawing drawing(kFigureWidth, 100.0, pool.pooled.effect + " over networks",
                    pool_description(pool));
    draw_heading(drawing, pool.pooled.effect, {});
    drawing.text(4.0, 13.0 + kLine, pool.model, "soft", Anchor::start, kFigureWidth - 12.0);
    Frame frame{kLabelWidth, 22.0 + kLine, kFigureWidth - 12.0, 0.0};
    const double last = frame.top + step * static_cast<double>(n) + kLine * 0.75;
    frame.bottom = last + kLine * 0.75;
    Range range;
    range.add(0.0);
    add_estimates(pool.networks, range);
    add_estimates({pool.pooled}, range);
    range = range.widened(0.05);
    const Scale scale(range.low, range.high, frame.left, frame.right);
    draw_bottom_axis(drawing, frame, scale, "estimate (log-odds), 95% interval");
    drawing.line(scale.at(0.0), frame.top, scale.at(0.0), frame.bottom, "zero");
    for (std::size_t k = 0; k < n; ++k) {
        const double y = frame.top + step * (static_cast<double>(k) + 0.5);
        if (n <= kMostNames) {
            drawing.text(kLabelWidth - 8.0, y + 4.0, pool.networks[k].effect, "", Anchor::end,
                         kLabelWidth - 12.0);
        }
        draw_estimate(drawing, scale, y, pool.networks[k], 0, true);
    }
    if (std::isfinite(pool.pooled.estimate)) {
        const double x = scale.at(pool.pooled.estimate);
        drawing.line(x, frame.top, x, frame.bottom, "target");
        draw_pooled(drawing, scale, last, pool.pooled);
    }
    drawing.text(kLabelWidth - 8.0, last + 4.0, "pooled", "bold", Anchor::end);
    drawing.set_height(frame.bottom + 38.0 + (pool.left_out > 0 ? kLine : 0.0));
    if (pool.left_out > 0) {
        drawing.text(4.0, frame.bottom + 32.0 + kLine,
                     "left out, without estimates to be used: " + std::to_string(pool.left_out),
                     "soft");
    }
    return drawing;
}

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
