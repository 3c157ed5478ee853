#include "pictures/drawing.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace {

// One rule: what it styles, and how on paper and light screens, and on dark ones.
struct Rule {
    const char* selector;
    const char* light;
    const char* dark;
};
// Colours after Okabe and Ito (2008), told apart by people of every colour vision.
constexpr Rule kRules[] = {
    {".figure text",
     "font-family:Helvetica,Arial,'Liberation Sans',sans-serif;font-size:11px;"
     "fill:#1b1b1b",
     "fill:#ececec"},
    {".figure .soft", "fill:#555", "fill:#b4b4b4"},
    {".figure .bold", "font-weight:bold", ""},
    {".figure .warning", "font-weight:bold;fill:#a3260a", "fill:#ff9d80"},
    {".figure .axis", "stroke:#555;stroke-width:1;fill:none", "stroke:#b4b4b4"},
    {".figure .grid", "stroke:#dedede;stroke-width:.7;fill:none", "stroke:#3d3d3d"},
    {".figure .zero", "stroke:#1b1b1b;stroke-width:1;stroke-dasharray:4 3", "stroke:#ececec"},
    {".figure .tie", "stroke:#8a8a8a;stroke-width:.8;fill:none", "stroke:#7d7d7d"},
    {".figure .head", "fill:#8a8a8a;stroke:none", "fill:#7d7d7d"},
    {".figure .bar", "fill:#c9dcec;stroke:#4a7391;stroke-width:.6", "fill:#2c4a60;stroke:#86aeca"},
    {".figure .median", "stroke:#1b1b1b;stroke-width:1.6", "stroke:#ececec"},
    {".figure .whisker", "stroke:#4a7391;stroke-width:1", "stroke:#86aeca"},
    {".figure .mean", "fill:none;stroke:#1b1b1b;stroke-width:.9", "stroke:#ececec"},
    {".figure .observed", "fill:none;stroke:#c0440c;stroke-width:1.8;stroke-linejoin:round",
     "stroke:#ff8a4c"},
    {".figure .target", "fill:none;stroke:#c0440c;stroke-width:1.6;stroke-dasharray:7 3",
     "stroke:#ff8a4c"},
    {".figure .seen", "fill:#c0440c;stroke:none", "fill:#ff8a4c"},
    {".figure .trace", "fill:none;stroke-width:.7;stroke-linejoin:round;opacity:.85", ""},
    {".figure .interval", "fill:none;stroke-width:1.5", ""},
    {".figure .s0", "stroke:#0072b2;fill:#0072b2", "stroke:#5fb8ee;fill:#5fb8ee"},
    {".figure .s1", "stroke:#d55e00;fill:#d55e00", "stroke:#ff8a4c;fill:#ff8a4c"},
    {".figure .s2", "stroke:#00825f;fill:#00825f", "stroke:#3ccba0;fill:#3ccba0"},
    {".figure .s3", "stroke:#a8507f;fill:#a8507f", "stroke:#e79fc6;fill:#e79fc6"},
    {".figure .s4", "stroke:#1b1b1b;fill:#1b1b1b", "stroke:#ececec;fill:#ececec"},
    {".figure .s5", "stroke:#8f6400;fill:#8f6400", "stroke:#f2b544;fill:#f2b544"},
    {".figure .s6", "stroke:#2b7bb0;fill:#2b7bb0", "stroke:#8ccdf2;fill:#8ccdf2"},
    {".figure .s7", "stroke:#6b6b6b;fill:#6b6b6b", "stroke:#a9a9a9;fill:#a9a9a9"},
    // Said for dark screens as well, where the series' colours come later.
    {".figure .line", "fill:none", "fill:none"},
    {".figure .hit", "fill:none;stroke:none;pointer-events:all", ""},
    {".figure .hollow", "fill:#fff", "fill:#161616"},
    {".figure .d1", "stroke-dasharray:5 2", ""},
    {".figure .d2", "stroke-dasharray:2 2", ""},
    {".figure .d3", "stroke-dasharray:7 2 2 2", ""},
};

std::string quoted(std::string_view name, std::string_view value) {
    return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string number_attribute(std::string_view name, double value) {
    return quoted(name, coordinate(value));
}

std::string class_attribute(std::string_view style) {
    return style.empty() ? "" : quoted("class", style);
}

// The end of an element, with what a pointer over it is told.
std::string end_of(const char* element, std::string_view hover) {
    return hover.empty() ? "/>\n" : "><title>" + escaped(hover) + "</title></" + element + ">\n";
}

const char* anchor_name(Anchor anchor) {
    return anchor == Anchor::start ? "start" : anchor == Anchor::middle ? "middle" : "end";
}

// A polygon of points at equal angles, every second one at `inner` of the radius.
std::string polygon(double x, double y, double radius, int corners, double turn, double inner) {
    std::string data;
    for (int k = 0; k < corners; ++k) {
        const double angle = turn + 2.0 * std::numbers::pi * k / corners;
        const double r = k % 2 == 1 ? radius * inner : radius;
        data += (k == 0 ? "M" : "L") + coordinate(x + r * std::sin(angle)) + " " +
                coordinate(y - r * std::cos(angle));
    }
    return data + "z";
}

std::string cross(double x, double y, double r) {
    const double t = r * 0.38;
    std::string data;
    const std::array<std::array<double, 2>, 12> corners = {{{-t, -r},
                                                            {t, -r},
                                                            {t, -t},
                                                            {r, -t},
                                                            {r, t},
                                                            {t, t},
                                                            {t, r},
                                                            {-t, r},
                                                            {-t, t},
                                                            {-r, t},
                                                            {-r, -t},
                                                            {-t, -t}}};
    for (std::size_t k = 0; k < corners.size(); ++k) {
        data += (k == 0 ? "M" : "L") + coordinate(x + corners[k][0]) + " " +
                coordinate(y + corners[k][1]);
    }
    return data + "z";
}

std::string mark_path(double x, double y, double r, Mark mark) {
    constexpr double kHalf = std::numbers::pi;
    switch (mark) {
        case Mark::circle:
            break;
        case Mark::square:
            return polygon(x, y, r * 1.25, 4, kHalf / 4.0, 1.0);
        case Mark::triangle:
            return polygon(x, y, r * 1.3, 3, 0.0, 1.0);
        case Mark::diamond:
            return polygon(x, y, r * 1.35, 4, 0.0, 1.0);
        case Mark::cross:
            return cross(x, y, r * 1.2);
        case Mark::down:
            return polygon(x, y, r * 1.3, 3, kHalf, 1.0);
        case Mark::hexagon:
            return polygon(x, y, r * 1.1, 6, 0.0, 1.0);
        case Mark::star:
            return polygon(x, y, r * 1.5, 10, 0.0, 0.45);
    }
    return "";
}

// The code point that begins at `at`, and its length; a byte that begins none is U+FFFD.
struct Character {
    char32_t code = 0xFFFD;
    std::size_t length = 1;
};

Character character_at(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t k) {
        return static_cast<unsigned>(static_cast<unsigned char>(text[k]));
    };
    const unsigned first = byte(at);
    if (first < 0x80) {
        return {static_cast<char32_t>(first), 1};
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 1;
    if (length == 1 || at + length > text.size() || first > 0xF4) {
        return {};
    }
    unsigned code = first & (0xFFU >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) {
        if ((byte(at + k) & 0xC0U) != 0x80U) {
            return {};
        }
        code = (code << 6U) | (byte(at + k) & 0x3FU);
    }
    return {static_cast<char32_t>(code), length};
}

bool fits_xml(char32_t code) {
    return code == U'\t' || code == U'\n' || (code >= 0x20 && code < 0xD800) ||
           (code >= 0xE000 && code < 0xFFFE) || (code >= 0x10000 && code <= 0x10FFFF);
}

// Share of the letters' height that a character takes in width.
double share_of(char32_t code) {
    constexpr std::string_view kNarrow = "ijltfr.,:;|!'()[]/ ";
    constexpr std::string_view kWide = "mwMW@%";
    if (code >= 0x1100 &&
        (code <= 0x115F || (code >= 0x2E80 && code <= 0xA4CF) ||
         (code >= 0xAC00 && code <= 0xD7A3) || code >= 0x1F300 ||
         (code >= 0xF900 && code <= 0xFAFF) || (code >= 0xFF00 && code <= 0xFF60))) {
        return 1.05;
    }
    if (code < 0x80) {
        const char letter = static_cast<char>(code);
        if (kNarrow.find(letter) != std::string_view::npos) {
            return 0.34;
        }
        if (kWide.find(letter) != std::string_view::npos) {
            return 0.92;
        }
        return letter >= 'A' && letter <= 'Z' ? 0.72 : 0.58;
    }
    return 0.66;
}

}  // namespace

Mark mark_of(int series) { return static_cast<Mark>(series % kMarks); }

std::string series_class(int series) { return "s" + std::to_string(series % kMarks); }

std::string coordinate(double value) {
    std::array<char, 40> text{};
    const double rounded = std::round(value * 100.0) / 100.0;
    // No negative zero, which would print its sign.
    const auto end = std::to_chars(text.data(), text.data() + text.size(),
                                   rounded == 0.0 ? 0.0 : rounded, std::chars_format::fixed, 2);
    std::string digits(text.data(), end.ptr);
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') {
        digits.pop_back();
    }
    return digits;
}

std::string escaped(std::string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const Character each = character_at(text, at);
        if (!fits_xml(each.code) || (each.code == 0xFFFD && each.length == 1)) {
            out += "\xEF\xBF\xBD";
        } else if (each.code == U'&') {
            out += "&amp;";
        } else if (each.code == U'<') {
            out += "&lt;";
        } else if (each.code == U'>') {
            out += "&gt;";
        } else if (each.code == U'"') {
            out += "&quot;";
        } else if (each.code == U'\'') {
            out += "&#39;";
        } else {
            out += text.substr(at, each.length);
        }
        at += each.length;
    }
    return out;
}

double text_length(std::string_view text) {
    double length = 0.0;
    for (std::size_t at = 0; at < text.size();) {
        const Character each = character_at(text, at);
        length += share_of(each.code) * kLetter;
        at += each.length;
    }
    return length;
}

std::string shortened(std::string_view text, double most) {
    if (most <= 0.0 || text_length(text) <= most) {
        return std::string(text);
    }
    const double room = most - kLetter;
    double length = 0.0;
    std::size_t at = 0;
    while (at < text.size()) {
        const Character each = character_at(text, at);
        length += share_of(each.code) * kLetter;
        if (length > room) {
            break;
        }
        at += each.length;
    }
    return std::string(text.substr(0, at)) + "\xE2\x80\xA6";
}

Drawing::Drawing(double width, double height, std::string title, std::string description)
    : width_(width),
      height_(height),
      title_(std::move(title)),
      description_(std::move(description)) {}

void Drawing::line(double x1, double y1, double x2, double y2, std::string_view style) {
    elements_ += "<line" + number_attribute("x1", x1) + number_attribute("y1", y1) +
                 number_attribute("x2", x2) + number_attribute("y2", y2) + class_attribute(style) +
                 "/>\n";
}

void Drawing::curve(const std::vector<double>& x, const std::vector<double>& y,
                    std::string_view style) {
    std::string data;
    bool pen = false;
    for (std::size_t k = 0; k < x.size() && k < y.size(); ++k) {
        if (!std::isfinite(x[k]) || !std::isfinite(y[k])) {
            pen = false;
            continue;
        }
        data += (pen ? "L" : "M") + coordinate(x[k]) + " " + coordinate(y[k]);
        pen = true;
    }
    if (!data.empty()) {
        path(data, style);
    }
}

void Drawing::path(std::string_view data, std::string_view style, std::string_view hover) {
    elements_ += "<path" + quoted("d", data) + class_attribute(style) + end_of("path", hover);
}

void Drawing::box(double x, double y, double width, double height, std::string_view style,
                  std::string_view hover) {
    elements_ += "<rect" + number_attribute("x", x) + number_attribute("y", y) +
                 number_attribute("width", std::max(width, 0.0)) +
                 number_attribute("height", std::max(height, 0.0)) + class_attribute(style) +
                 end_of("rect", hover);
}

void Drawing::dot(double x, double y, double radius, Mark mark, std::string_view style,
                  std::string_view hover) {
    const bool round = mark == Mark::circle;
    elements_ += round ? "<circle" + number_attribute("cx", x) + number_attribute("cy", y) +
                             number_attribute("r", radius)
                       : "<path" + quoted("d", mark_path(x, y, radius, mark));
    elements_ += class_attribute(style) + end_of(round ? "circle" : "path", hover);
}

void Drawing::text(double x, double y, std::string_view text, std::string_view style, Anchor anchor,
                   double most) {
    const std::string shown = shortened(text, most);
    elements_ += "<text" + number_attribute("x", x) + number_attribute("y", y) +
                 class_attribute(style) +
                 (anchor == Anchor::start ? "" : quoted("text-anchor", anchor_name(anchor))) + ">";
    elements_ += shown == text ? "" : "<title>" + escaped(text) + "</title>";
    elements_ += escaped(shown) + "</text>\n";
}

std::string Drawing::body(std::string_view id) const {
    const std::string name(id);
    return " viewBox=\"0 0 " + coordinate(width_) + " " + coordinate(height_) +
           "\" class=\"figure\" role=\"img\" aria-labelledby=\"" + name + "-title " + name +
           "-desc\">\n<title id=\"" + name + "-title\">" + escaped(title_) +
           "</title>\n<desc id=\"" + name + "-desc\">" + escaped(description_) + "</desc>\n";
}

std::string Drawing::element(std::string_view id) const {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\"" + body(id) + elements_ + "</svg>\n";
}

std::string Drawing::document(double millimetres) const {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\""
           " width=\"" +
           coordinate(millimetres) + "mm\" height=\"" + coordinate(millimetres * height_ / width_) +
           "mm\"" + body("figure") + "<style>\n" + drawing_style() + "</style>\n" + elements_ +
           "</svg>\n";
}

std::string drawing_style() {
    std::string sheet;
    std::string dark;
    for (const Rule& rule : kRules) {
        sheet += std::string(rule.selector) + "{" + rule.light + "}\n";
        if (*rule.dark != '\0') {
            dark += std::string(rule.selector) + "{" + rule.dark + "}\n";
        }
    }
    return sheet + "@media screen and (prefers-color-scheme:dark){\n" + dark + "}\n";
}

bool overlap(const Area& a, const Area& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

LabelPlaces::Place LabelPlaces::find(double x, double y, double radius, double length) {
    const double gap = radius + 2.0;
    const double drop = kLetter * 0.36;
    const std::array<Place, 6> places = {{{x + gap, y + drop, Anchor::start, true},
                                          {x - gap, y + drop, Anchor::end, true},
                                          {x, y - gap - 3.0, Anchor::middle, true},
                                          {x, y + gap + kLetter * 0.8 + 2.0, Anchor::middle, true},
                                          {x + radius, y - gap, Anchor::start, true},
                                          {x - radius, y - gap, Anchor::end, true}}};
    for (const Place& place : places) {
        const double left = place.anchor == Anchor::start ? place.x
                            : place.anchor == Anchor::end ? place.x - length
                                                          : place.x - length / 2.0;
        const Area area = {left, place.y - kLetter * 0.8, left + length, place.y + kLetter * 0.22};
        const bool inside = area.left >= frame_.left && area.right <= frame_.right &&
                            area.top >= frame_.top && area.bottom <= frame_.bottom;
        const bool free = std::none_of(taken_.begin(), taken_.end(),
                                       [&](const Area& each) { return overlap(area, each); });
        if (inside && free) {
            taken_.push_back(area);
            return place;
        }
    }
    return {};
}
