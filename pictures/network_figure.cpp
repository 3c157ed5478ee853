#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

#include "pictures/axis.h"
#include "pictures/figures.h"
#include "pictures/layout.h"
#include "study/counted.h"

namespace {

constexpr std::size_t kMostNames = 60;
constexpr std::size_t kMostHeads = 1500;
constexpr double kMargin = 14.0;

std::size_t index_of(int number) { return static_cast<std::size_t>(number); }

// Actors without ties, last.
std::vector<bool> tied(const StudyNetwork& network) {
    std::vector<bool> any(network.actors.size(), false);
    for (const ActorTie& tie : network.ties) {
        any[index_of(tie.from)] = true;
        any[index_of(tie.to)] = true;
    }
    return any;
}

// Places on the drawing: the layout fills a square, actors without ties stand in rows below.
struct Canvas {
    std::vector<Point> at;
    double bottom = 0.0;  // of the last row
};

Canvas placed(const StudyNetwork& network, const std::vector<Point>& places, double radius) {
    const std::vector<bool> any = tied(network);
    Range across;
    Range down;
    for (std::size_t actor = 0; actor < places.size(); ++actor) {
        if (any[actor]) {
            across.add(places[actor].x);
            down.add(places[actor].y);
        }
    }
    const double side = kFigureWidth - 2.0 * kMargin;
    const double width = std::max(across.high - across.low, 1e-9);
    const double height = std::max(down.high - down.low, 1e-9);
    const double scale = side / std::max(width, height);
    Canvas canvas;
    canvas.at.resize(places.size());
    canvas.bottom = across.any ? kMargin + std::min(height * scale, side) : 0.0;
    const double left = kMargin + (side - width * scale) / 2.0;
    const double step = std::max(2.0 * radius + 4.0, 8.0);
    double x = kMargin;
    double y = canvas.bottom + step + 6.0;
    for (std::size_t actor = 0; actor < places.size(); ++actor) {
        if (any[actor]) {
            canvas.at[actor] = {left + (places[actor].x - across.low) * scale,
                                kMargin + (places[actor].y - down.low) * scale};
            continue;
        }
        if (x > kFigureWidth - kMargin) {
            x = kMargin;
            y += step;
        }
        canvas.at[actor] = {x, y};
        canvas.bottom = y;
        x += step;
    }
    return canvas;
}

void add_head(const Point& from, const Point& to, double radius, std::string& data) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    if (length < 2.0 * radius) {
        return;
    }
    const double ux = dx / length;
    const double uy = dy / length;
    const double size = std::min(5.0, std::max(2.5, radius));
    const Point tip{to.x - ux * (radius + 0.5), to.y - uy * (radius + 0.5)};
    const Point back{tip.x - ux * size, tip.y - uy * size};
    data += "M" + coordinate(tip.x) + " " + coordinate(tip.y) + "L" +
            coordinate(back.x - uy * size * 0.42) + " " + coordinate(back.y + ux * size * 0.42) +
            "L" + coordinate(back.x + uy * size * 0.42) + " " +
            coordinate(back.y - ux * size * 0.42) + "z";
}

void draw_ties(Drawing& drawing, const StudyNetwork& network, const std::vector<Point>& at,
               double radius) {
    std::string lines;
    std::string heads;
    for (const ActorTie& tie : network.ties) {
        const Point& from = at[index_of(tie.from)];
        const Point& to = at[index_of(tie.to)];
        lines += "M" + coordinate(from.x) + " " + coordinate(from.y) + "L" + coordinate(to.x) +
                 " " + coordinate(to.y);
        if (network.directed && network.ties.size() <= kMostHeads) {
            add_head(from, to, radius, heads);
        }
    }
    if (!lines.empty()) {
        drawing.path(lines, "tie");
    }
    if (!heads.empty()) {
        drawing.path(heads, "head");
    }
}

// The series of each actor by its category; the last one for values that are not known.
struct Categories {
    std::vector<int> series;
    std::vector<std::string> names;
};

Categories categories_of(const StudyNetwork& network, const StudyAttribute* attribute) {
    Categories found;
    found.series.assign(network.actors.size(), 0);
    if (attribute == nullptr || attribute->type == AttributeType::continuous) {
        return found;
    }
    std::map<double, int> numbers;
    for (const double value : attribute->values) {
        numbers.emplace(value, 0);
    }
    for (auto& [value, number] : numbers) {
        number = static_cast<int>(found.names.size());
        const auto label = static_cast<std::size_t>(value);
        found.names.push_back(value == kMissingValue             ? "not known"
                              : label < attribute->labels.size() ? attribute->labels[label]
                                                                 : number_for_people(value));
    }
    for (std::size_t actor = 0; actor < found.series.size(); ++actor) {
        found.series[actor] = numbers.at(attribute->values[actor]);
    }
    return found;
}

// The categories below the drawing, as many in a line as have room; the height they took.
double draw_categories(Drawing& drawing, double top, const std::string& attribute,
                       const std::vector<std::string>& names) {
    double y = top;
    drawing.text(kMargin, y, attribute, "soft", Anchor::start, kFigureWidth - 2.0 * kMargin);
    y += kLine;
    double x = kMargin;
    constexpr double kMost = 150.0;
    for (std::size_t k = 0; k < names.size(); ++k) {
        const double length = std::min(text_length(names[k]), kMost) + 24.0;
        if (x + length > kFigureWidth - 4.0 && x > kMargin) {
            x = kMargin;
            y += kLine;
        }
        const int series = static_cast<int>(k);
        drawing.dot(x + 4.0, y - 4.0, 4.0, mark_of(series), series_class(series));
        drawing.text(x + 12.0, y, names[k], "", Anchor::start, kMost);
        x += length;
    }
    return y + kLine;
}

void draw_names(Drawing& drawing, const StudyNetwork& network, const std::vector<Point>& at,
                double radius, double bottom) {
    LabelPlaces places(kFigureWidth, bottom + kMargin);
    for (const Point& point : at) {
        places.take({point.x - radius, point.y - radius, point.x + radius, point.y + radius});
    }
    constexpr double kMost = 90.0;
    for (std::size_t actor = 0; actor < at.size(); ++actor) {
        for (const double most : {kMost, 45.0}) {
            const std::string shown = shortened(network.actors[actor], most);
            const LabelPlaces::Place place =
                places.find(at[actor].x, at[actor].y, radius, text_length(shown));
            if (place.found) {
                drawing.text(place.x, place.y, network.actors[actor], "", place.anchor, most);
                break;
            }
        }
    }
}

}  // namespace

std::vector<Point> network_places(const StudyNetwork& network) { return layout_of(network); }

Drawing network_figure(const StudyNetwork& network, const std::vector<Point>& places,
                       const StudyAttribute* attribute) {
    const auto n = network.actors.size();
    const double radius = n <= kMostNames ? 5.0 : n <= 200 ? 3.6 : n <= 600 ? 2.4 : 1.5;
    const Categories categories = categories_of(network, attribute);
    std::string description =
        counted(static_cast<long long>(n), "actor") + " and " +
        counted(static_cast<long long>(network.ties.size()), network.directed ? "arc" : "tie") +
        ".";
    if (!categories.names.empty()) {
        description += " Colour and shape tell " + attribute->name + ".";
    }
    if (network.directed && network.ties.size() > kMostHeads) {
        description += " Heads of arcs are left out.";
    }
    Drawing drawing(kFigureWidth, kFigureWidth, "The network", description);
    const Canvas canvas = placed(network, places, radius);
    draw_ties(drawing, network, canvas.at, radius);
    for (std::size_t actor = 0; actor < n; ++actor) {
        const int series = categories.series[actor];
        std::string hover = network.actors[actor];
        if (!categories.names.empty()) {
            hover += ": " + categories.names[index_of(series)];
        }
        drawing.dot(canvas.at[actor].x, canvas.at[actor].y, radius, mark_of(series),
                    series_class(series), hover);
    }
    if (n <= kMostNames) {
        draw_names(drawing, network, canvas.at, radius, canvas.bottom);
    }
    double bottom = canvas.bottom + kMargin;
    if (!categories.names.empty() && categories.names.size() <= 24) {
        bottom = draw_categories(drawing, bottom + 12.0, attribute->name, categories.names);
    }
    drawing.set_height(std::max(bottom, 40.0));
    return drawing;
}
