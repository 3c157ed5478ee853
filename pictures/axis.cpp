#include "pictures/axis.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr const char* kMinus = "\xE2\x88\x92";

std::string with_true_minus(std::string text) {
    return text.size() > 1 && text[0] == '-' ? kMinus + text.substr(1) : text;
}

std::string fixed_text(double value, int decimals) {
    std::array<char, 64> text{};
    const double shown = value == 0.0 ? 0.0 : value;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), shown,
                                   std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

// The smallest of 1, 2, 5, 10 times a power of ten that is not below the step.
double readable_step(double step) {
    const double power = std::pow(10.0, std::floor(std::log10(step)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= step * (1.0 - 1e-9)) {
            return factor * power;
        }
    }
    return 10.0 * power;
}

}  // namespace

std::vector<double> readable_ticks(double low, double high, int most) {
    if (!std::isfinite(low) || !std::isfinite(high) || most < 1) {
        return {};
    }
    if (!(high > low)) {
        return {low};
    }
    double step = readable_step((high - low) / most);
    for (;; step = readable_step(step * 1.5)) {
        std::vector<double> ticks;
        const double first = std::ceil(low / step - 1e-9);
        for (double k = first; k * step <= high + step * 1e-9; k += 1.0) {
            ticks.push_back(k * step);
        }
        if (static_cast<int>(ticks.size()) <= most) {
            return ticks;
        }
    }
}

std::vector<std::string> tick_texts(const std::vector<double>& ticks) {
    double step = 1.0;
    for (std::size_t k = 1; k < ticks.size(); ++k) {
        const double gap = ticks[k] - ticks[k - 1];
        step = k == 1 ? gap : std::min(step, gap);
    }
    const double size = ticks.size() < 2 ? std::fabs(ticks.empty() ? 1.0 : ticks[0]) : step;
    int decimals = 0;
    for (double unit = 1.0; decimals < 12 && size > 0.0; ++decimals, unit *= 10.0) {
        const double scaled = size * unit;
        if (std::fabs(scaled - std::round(scaled)) < 1e-6 * std::max(scaled, 1.0)) {
            break;
        }
    }
    std::vector<std::string> texts;
    texts.reserve(ticks.size());
    for (const double tick : ticks) {
        const bool large = std::fabs(tick) >= 1e7;
        texts.push_back(large ? number_for_people(tick, 3)
                              : with_true_minus(fixed_text(tick, decimals)));
    }
    return texts;
}

std::string number_with_decimals(double value, std::optional<int> decimals) {
    return decimals && std::isfinite(value) ? with_true_minus(fixed_text(value, *decimals))
                                            : number_for_people(value);
}

std::string number_for_people(double value, int digits) {
    if (!std::isfinite(value)) {
        return "\xE2\x80\x93";
    }
    if (value == 0.0) {
        return "0";
    }
    const double size = std::fabs(value);
    if (size >= 1e7 || size < 1e-4) {
        std::array<char, 64> text{};
        const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::scientific, std::max(digits - 1, 0));
        return with_true_minus({text.data(), end.ptr});
    }
    const int whole = static_cast<int>(std::floor(std::log10(size))) + 1;
    std::string text = fixed_text(value, std::max(0, digits - whole));
    if (value == std::floor(value) && text.find('.') != std::string::npos) {
        text.erase(text.find('.'));
    }
    return with_true_minus(text);
}

Scale::Scale(double low, double high, double from, double to, bool root)
    : low_(low), high_(high), from_(from), to_(to), root_(root) {
    if (!(high_ > low_)) {
        const double half = low_ == 0.0 ? 1.0 : std::fabs(low_) * 0.1;
        high_ = low_ + half;
        low_ = root ? std::max(0.0, low_ - half) : low_ - half;
    }
}

double Scale::at(double value) const {
    const auto place = [this](double x) { return root_ ? std::sqrt(std::max(x, 0.0)) : x; };
    return from_ + (place(value) - place(low_)) / (place(high_) - place(low_)) * (to_ - from_);
}

std::vector<double> Scale::ticks(int most) const {
    if (!root_) {
        return readable_ticks(low_, high_, most);
    }
    // Readable values nearest to equal steps of the root.
    std::vector<double> ticks = {0.0};
    for (int k = 1; k <= most; ++k) {
        const double share = static_cast<double>(k) / most;
        const double wanted = high_ * share * share;
        const double step = readable_step(std::max(wanted * 0.7, 1e-9));
        if (wanted >= 1.0 && step > ticks.back() * 1.3 && step <= high_) {
            ticks.push_back(step);
        }
    }
    return ticks;
}

void Range::add(double value) {
    if (!std::isfinite(value)) {
        return;
    }
    low = any ? std::min(low, value) : value;
    high = any ? std::max(high, value) : value;
    any = true;
}

Range Range::widened(double share) const {
    if (!any) {
        return {0.0, 1.0, true};
    }
    const double more = (high - low) * share;
    return {low - more, high + more, true};
}

void draw_bottom_axis(Drawing& drawing, const Frame& frame, const Scale& scale,
                      const std::string& name, int ticks) {
    const std::vector<double> values = scale.ticks(ticks);
    const std::vector<std::string> texts = tick_texts(values);
    double last = -1e9;
    for (std::size_t k = 0; k < values.size(); ++k) {
        const double x = scale.at(values[k]);
        drawing.line(x, frame.top, x, frame.bottom, "grid");
        drawing.line(x, frame.bottom, x, frame.bottom + 4.0, "axis");
        const double half = text_length(texts[k]) * 0.55;
        // A text at the end of the axis stays on the drawing.
        const double middle = std::clamp(x, half + 1.0, drawing.width() - half - 1.0);
        if (middle - half > last) {
            drawing.text(middle, frame.bottom + 15.0, texts[k], "soft", Anchor::middle);
            last = middle + half + 3.0;
        }
    }
    drawing.line(frame.left, frame.bottom, frame.right, frame.bottom, "axis");
    drawing.text((frame.left + frame.right) / 2.0, frame.bottom + 30.0, name, "", Anchor::middle,
                 frame.right - frame.left);
}

void draw_left_axis(Drawing& drawing, const Frame& frame, const Scale& scale,
                    const std::string& name, int ticks) {
    const std::vector<double> values = scale.ticks(ticks);
    const std::vector<std::string> texts = tick_texts(values);
    for (std::size_t k = 0; k < values.size(); ++k) {
        const double y = scale.at(values[k]);
        drawing.line(frame.left, y, frame.right, y, "grid");
        drawing.line(frame.left - 4.0, y, frame.left, y, "axis");
        drawing.text(frame.left - 6.0, y + 4.0, texts[k], "soft", Anchor::end);
    }
    drawing.line(frame.left, frame.top, frame.left, frame.bottom, "axis");
    drawing.text(4.0, frame.top - 8.0, name, "", Anchor::start, frame.right - 4.0);
}
