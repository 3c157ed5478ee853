#include <algorithm>
#include <cmath>

#include "pictures/heading.h"

namespace {

// More entries cannot be told apart at the width of a figure.
constexpr std::size_t kMostEntries = 40;
constexpr double kHeight = 230.0;

// Entries that any network has, the first ones where there are too many.
std::vector<const GofRow*> drawn_rows(const GofDistribution& distribution) {
    std::vector<const GofRow*> rows;
    for (const GofRow& row : distribution.rows) {
        if (row.observed > 0.0 || row.q95 > 0.0 || (row.number && distribution.judged)) {
            rows.push_back(&row);
        }
    }
    // Nothing stands at the end that only a few samples reach.
    while (!rows.empty() && rows.back()->observed == 0.0 && !(rows.back()->q95 > 0.0)) {
        rows.pop_back();
    }
    if (rows.size() > kMostEntries) {
        const GofRow* last = rows.back();
        rows.resize(kMostEntries);
        // The entry of pairs without a path, and the largest component, matter most.
        rows.back() = last;
    }
    return rows;
}

std::string title_of(const std::string& name) {
    std::string title = name;
    std::replace(title.begin(), title.end(), '-', ' ');
    return name.find('(') == std::string::npos ? title : name;
}

std::string description_of(const std::vector<const GofRow*>& rows, const ResultLabel& label) {
    std::string text = label.usable ? "" : label.verdict + ", not to be used. ";
    for (const GofRow* row : rows) {
        text += row->at + ": observed " + number_for_people(row->observed, 6) + ", simulated " +
                number_for_people(row->q05) + " to " + number_for_people(row->q95) + "; ";
    }
    return text;
}

std::string hover_of(const GofRow& row) {
    return row.at + ": observed " + number_for_people(row.observed, 6) + "; simulated median " +
           number_for_people(row.median) + ", mean " + number_for_people(row.mean) + ", 90% from " +
           number_for_people(row.q05) + " to " + number_for_people(row.q95);
}

void draw_box(Drawing& drawing, const Scale& up, double x, double width, const GofRow& row) {
    const double half = width * 0.36;
    drawing.line(x, up.at(row.q05), x, up.at(row.q95), "whisker");
    drawing.line(x - half * 0.6, up.at(row.q05), x + half * 0.6, up.at(row.q05), "whisker");
    drawing.line(x - half * 0.6, up.at(row.q95), x + half * 0.6, up.at(row.q95), "whisker");
    const double top = up.at(row.q75);
    drawing.box(x - half, top, 2.0 * half, up.at(row.q25) - top, "bar");
    drawing.line(x - half, up.at(row.median), x + half, up.at(row.median), "median");
    drawing.dot(x, up.at(row.mean), 1.8, Mark::diamond, "mean");
}

// Texts below the entries, as many as have room; slanting where they are words.
void draw_entries(Drawing& drawing, const Frame& frame, const std::vector<const GofRow*>& rows,
                  double width) {
    double longest = 0.0;
    for (const GofRow* row : rows) {
        longest = std::max(longest, text_length(row->at));
    }
    const bool words = longest > 34.0;
    if (words) {
        // Numbered below, with the names beneath the figure.
        for (std::size_t k = 0; k < rows.size(); ++k) {
            drawing.text(frame.left + width * (static_cast<double>(k) + 0.5), frame.bottom + 14.0,
                         std::to_string(k + 1), "soft", Anchor::middle);
        }
        return;
    }
    // Every entry, or every second or fifth or tenth; and the last, which may stand for no path.
    std::size_t step = 1;
    for (const std::size_t each : {1, 2, 5, 10, 20}) {
        step = each;
        if (static_cast<double>(each) * width > longest + 3.0) {
            break;
        }
    }
    const std::size_t last = rows.size() - 1;
    for (std::size_t k = 0; k < rows.size(); ++k) {
        const bool near_last = static_cast<double>(last - k) * width <= longest + 3.0;
        if (k == last || (k % step == 0 && !near_last)) {
            drawing.text(frame.left + width * (static_cast<double>(k) + 0.5), frame.bottom + 14.0,
                         rows[k]->at, "soft", Anchor::middle);
        }
    }
}

// The entries' words below the figure, a line each; the height they took.
double draw_words(Drawing& drawing, double top, const std::vector<const GofRow*>& rows) {
    double longest = 0.0;
    for (const GofRow* row : rows) {
        longest = std::max(longest, text_length(row->at));
    }
    if (longest <= 34.0) {
        return top;
    }
    double y = top + 4.0;
    for (std::size_t k = 0; k < rows.size(); ++k) {
        drawing.text(22.0, y, std::to_string(k + 1), "soft", Anchor::end);
        drawing.text(28.0, y, rows[k]->at, "", Anchor::start, kFigureWidth - 34.0);
        y += kLine;
    }
    return y;
}

}  // namespace

double highest_of(const GofDistribution& distribution) {
    double highest = 0.0;
    for (const GofRow* row : drawn_rows(distribution)) {
        highest = std::max({highest, row->observed, std::isfinite(row->q95) ? row->q95 : 0.0});
    }
    return highest;
}

Drawing distribution_figure(const GofDistribution& distribution, const ResultLabel& label,
                            double highest) {
    const std::vector<const GofRow*> rows = drawn_rows(distribution);
    const std::string title = title_of(distribution.name);
    Drawing drawing(kFigureWidth, kHeight, "Goodness of fit: " + title,
                    description_of(rows, label));
    draw_heading(drawing, title, label);
    const Frame frame{52.0, 40.0, kFigureWidth - 12.0, kHeight - 34.0};
    const Scale up(0.0, std::max({highest, highest_of(distribution), 1.0}) * 1.02, frame.bottom,
                   frame.top, true);
    draw_left_axis(drawing, frame, up, "count (square-root scale)", 6);
    drawing.line(frame.left, frame.bottom, frame.right, frame.bottom, "axis");
    const double width =
        (frame.right - frame.left) / static_cast<double>(std::max<std::size_t>(rows.size(), 1));
    std::vector<double> x;
    std::vector<double> y;
    for (std::size_t k = 0; k < rows.size(); ++k) {
        x.push_back(frame.left + width * (static_cast<double>(k) + 0.5));
        y.push_back(up.at(rows[k]->observed));
        if (std::isfinite(rows[k]->median)) {
            draw_box(drawing, up, x.back(), std::min(width, 26.0), *rows[k]);
        }
    }
    // Categories have no order that a line could follow.
    if (!rows.empty() && rows[0]->number) {
        drawing.curve(x, y, "observed");
    }
    for (std::size_t k = 0; k < rows.size(); ++k) {
        drawing.dot(x[k], y[k], 2.6, Mark::circle, "seen");
        // A pointer anywhere above an entry is told of it.
        drawing.box(x[k] - width / 2.0, frame.top, width, frame.bottom - frame.top, "hit",
                    hover_of(*rows[k]));
    }
    draw_entries(drawing, frame, rows, width);
    drawing.text(kFigureWidth - 12.0, 29.0, "dots: observed", "soft", Anchor::end);
    drawing.set_height(draw_words(drawing, frame.bottom + 26.0, rows) + 4.0);
    return drawing;
}

Drawing statistics_figure(const std::vector<GofStatistic>& statistics, const ResultLabel& label) {
    constexpr double kLabel = 150.0;
    constexpr double kFar = 8.0;
    std::string description = label.usable ? "" : label.verdict + ", not to be used. ";
    for (const GofStatistic& each : statistics) {
        description += each.name + " " + number_for_people(each.t_ratio, 3) + "; ";
    }
    Drawing drawing(kFigureWidth, 100.0, "t-ratios of the statistics", description);
    if (!label.usable) {
        drawing.text(4.0, 13.0, label.verdict + ": do not use", "warning");
    }
    Frame frame{kLabel, label.usable ? 8.0 : 22.0, kFigureWidth - 14.0, 0.0};
    frame.bottom = frame.top + kLine * static_cast<double>(statistics.size());
    drawing.set_height(frame.bottom + 38.0);
    Range range;
    range.add(-3.0);
    range.add(3.0);
    for (const GofStatistic& each : statistics) {
        if (std::isfinite(each.t_ratio)) {
            range.add(std::clamp(each.t_ratio, -kFar, kFar));
        }
    }
    const Scale scale(range.low - 0.3, range.high + 0.3, frame.left, frame.right);
    draw_bottom_axis(drawing, frame, scale, "t-ratio of the observed network", 7);
    for (const double bound : {-2.0, 2.0}) {
        drawing.line(scale.at(bound), frame.top, scale.at(bound), frame.bottom, "axis d1");
    }
    drawing.line(scale.at(0.0), frame.top, scale.at(0.0), frame.bottom, "zero");
    double y = frame.top + kLine / 2.0;
    for (const GofStatistic& each : statistics) {
        drawing.text(kLabel - 8.0, y + 4.0, each.name, is_misfit(each) ? "bold" : "", Anchor::end,
                     kLabel - 14.0);
        if (std::isfinite(each.t_ratio)) {
            const double t = std::clamp(each.t_ratio, -kFar, kFar);
            const bool off = is_misfit(each);
            drawing.dot(scale.at(t), y, off ? 3.6 : 3.0, off ? Mark::diamond : Mark::circle,
                        off ? "seen" : "s0", each.name + ": " + number_for_people(each.t_ratio, 3));
            if (t != each.t_ratio) {
                // Beyond the axis: the number stands beside the mark at its end.
                drawing.text(scale.at(t) + (t > 0.0 ? -8.0 : 8.0), y + 4.0,
                             number_for_people(each.t_ratio, 3), "",
                             t > 0.0 ? Anchor::end : Anchor::start);
            }
        }
        y += kLine;
    }
    return drawing;
}
