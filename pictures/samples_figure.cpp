#include <algorithm>
#include <cmath>

#include "pictures/heading.h"
#include "study/counted.h"

namespace {

constexpr std::size_t kMostPoints = 400;  // of a chain that are drawn
constexpr double kHeight = 190.0;

Frame sample_frame() { return {52.0, 40.0, kFigureWidth - 12.0, kHeight - 38.0}; }

Range range_of(const DrawnSample& sample) {
    Range range;
    range.add(sample.observed);
    for (const std::vector<double>& chain : sample.chains) {
        for (const double value : chain) {
            range.add(value);
        }
    }
    return range;
}

std::string summary_of(const DrawnSample& sample) {
    double sum = 0.0;
    long long count = 0;
    for (const std::vector<double>& chain : sample.chains) {
        for (const double value : chain) {
            sum += value;
            ++count;
        }
    }
    return counted(count, "simulated network") + " with a mean of " +
           number_for_people(sum / static_cast<double>(count)) + "; the observed network has " +
           number_for_people(sample.observed, 6) +
           (sample.label.usable ? "." : "; " + sample.label.verdict + ", not to be used.");
}

// Bars of a readable width; whole numbers have bars of whole widths, centred on them.
struct Bins {
    double first = 0.0;
    double width = 1.0;
    std::vector<int> counts;
};

Bins binned(const DrawnSample& sample, double low, double high) {
    constexpr int kMostBars = 30;
    bool whole = true;
    for (const std::vector<double>& chain : sample.chains) {
        whole = whole && std::all_of(chain.begin(), chain.end(),
                                     [](double value) { return value == std::floor(value); });
    }
    const std::vector<double> ticks = readable_ticks(low, high, kMostBars);
    Bins bins;
    bins.width = ticks.size() > 1 ? ticks[1] - ticks[0] : 1.0;
    if (whole) {
        bins.width = std::max(1.0, std::round(bins.width));
    }
    const double shift = whole ? 0.5 : 0.0;
    bins.first = std::floor((low + shift) / bins.width) * bins.width - shift;
    const auto count = static_cast<std::size_t>((high - bins.first) / bins.width) + 1;
    bins.counts.assign(count, 0);
    for (const std::vector<double>& chain : sample.chains) {
        for (const double value : chain) {
            const double place = (value - bins.first) / bins.width;
            if (place >= 0.0 && place < static_cast<double>(count)) {
                ++bins.counts[static_cast<std::size_t>(place)];
            }
        }
    }
    return bins;
}

std::string hover_of(const Bins& bins, double low, int count) {
    // A bar of whole numbers begins half a unit before the first of them.
    const bool whole = low != std::floor(low) && bins.width == std::floor(bins.width);
    const double first = whole ? low + 0.5 : low;
    const double last = whole ? low + bins.width - 0.5 : low + bins.width;
    return number_for_people(first, 6) +
           (first == last ? "" : " to " + number_for_people(last, 6)) + ": " +
           counted(count, "network");
}

}  // namespace

Drawing trace_figure(const DrawnSample& sample) {
    Drawing drawing(kFigureWidth, kHeight, "Trace of " + sample.effect, summary_of(sample));
    draw_heading(drawing, sample.effect, sample.label);
    const Frame frame = sample_frame();
    const Range range = range_of(sample).widened(0.06);
    std::size_t longest = 1;
    for (const std::vector<double>& chain : sample.chains) {
        longest = std::max(longest, chain.size());
    }
    const Scale across(1.0, static_cast<double>(longest), frame.left, frame.right);
    const Scale up(range.low, range.high, frame.bottom, frame.top);
    draw_left_axis(drawing, frame, up, "statistic", 5);
    draw_bottom_axis(drawing, frame, across, "sample", 6);
    for (std::size_t k = 0; k < sample.chains.size(); ++k) {
        const std::vector<double>& chain = sample.chains[k];
        const std::size_t step = chain.size() / kMostPoints + 1;
        std::vector<double> x;
        std::vector<double> y;
        for (std::size_t draw = 0; draw < chain.size(); draw += step) {
            x.push_back(across.at(static_cast<double>(draw + 1)));
            y.push_back(up.at(chain[draw]));
        }
        const int series = static_cast<int>(k);
        drawing.curve(x, y,
                      "trace " + series_class(series) + " line" +
                          (series % 4 == 0 ? "" : " d" + std::to_string(series % 4)));
    }
    draw_target(drawing, frame, up, Across::level, "observed", sample.observed,
                number_for_people(sample.observed, 6));
    return drawing;
}

Drawing histogram_figure(const DrawnSample& sample, std::optional<double> low,
                         std::optional<double> high) {
    Drawing drawing(kFigureWidth, kHeight, "Simulated values of " + sample.effect,
                    summary_of(sample));
    draw_heading(drawing, sample.effect, sample.label);
    const Frame frame = sample_frame();
    Range range = range_of(sample);
    range.add(low.value_or(range.low));
    range.add(high.value_or(range.high));
    if (!range.any) {
        range = range.widened(0.0);
    }
    const Bins bins = binned(sample, range.low, range.high);
    const int most =
        bins.counts.empty() ? 1 : *std::max_element(bins.counts.begin(), bins.counts.end());
    const Scale across(bins.first,
                       bins.first + bins.width * static_cast<double>(bins.counts.size()),
                       frame.left, frame.right);
    const Scale up(0.0, std::max(most, 1), frame.bottom, frame.top);
    draw_left_axis(drawing, frame, up, "networks", 4);
    draw_bottom_axis(drawing, frame, across, "statistic", 6);
    for (std::size_t k = 0; k < bins.counts.size(); ++k) {
        if (bins.counts[k] > 0) {
            const double low_end = bins.first + bins.width * static_cast<double>(k);
            const double left = across.at(low_end);
            const double right = across.at(low_end + bins.width);
            const double top = up.at(bins.counts[k]);
            drawing.box(left + 0.4, top, right - left - 0.8, frame.bottom - top, "bar",
                        hover_of(bins, low_end, bins.counts[k]));
        }
    }
    draw_target(drawing, frame, across, Across::upright, "observed", sample.observed,
                number_for_people(sample.observed, 6));
    return drawing;
}
