// A drawing of a few primitives, written as SVG with real text.
//
// A drawing measures in units that are pixels where it is shown at its own width; figures are
// drawn 360 wide, so that they can be read on a telephone, and grow from there. Nothing in it says
// how it looks: elements have classes, and `drawing_style` is the sheet for them, for light and
// dark screens and for paper. What colour tells, shape or dash tells as well.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Width of a figure of one column.
constexpr double kFigureWidth = 360.0;
// Height of the letters, and of a line of them.
constexpr double kLetter = 11.0;
constexpr double kLine = 15.0;

// Marks that differ in shape, in the order in which series take them.
enum class Mark { circle, square, triangle, diamond, cross, down, hexagon, star };
constexpr int kMarks = 8;
Mark mark_of(int series);

// The classes of a series: "s0" to "s7", going round.
std::string series_class(int series);

enum class Anchor { start, middle, end };

class Drawing {
  public:
    // Title and description are what a screen reader says.
    Drawing(double width, double height, std::string title, std::string description);

    double width() const { return width_; }
    double height() const { return height_; }
    const std::string& title() const { return title_; }
    void set_height(double height) { height_ = height; }

    void line(double x1, double y1, double x2, double y2, std::string_view style);
    // A line through the points; breaks where one of them is not a number.
    void curve(const std::vector<double>& x, const std::vector<double>& y, std::string_view style);
    // Any path by its data. `hover` is what a pointer held over it is told; empty for nothing.
    void path(std::string_view data, std::string_view style, std::string_view hover = "");
    void box(double x, double y, double width, double height, std::string_view style,
             std::string_view hover = "");
    void dot(double x, double y, double radius, Mark mark, std::string_view style,
             std::string_view hover = "");
    // The text's base line begins, is centred or ends at (x, y). One that is longer than `most` is
    // shortened, and told whole to a pointer.
    void text(double x, double y, std::string_view text, std::string_view style = "",
              Anchor anchor = Anchor::start, double most = 0.0);

    // As an element of a page. `id` is unique on the page and begins with a letter.
    std::string element(std::string_view id) const;
    // As a file: with its style sheet. `millimetres` is its width on paper.
    std::string document(double millimetres) const;

  private:
    std::string body(std::string_view id) const;

    double width_;
    double height_;
    std::string title_;
    std::string description_;
    std::string elements_;
};

// The style sheet of drawings; `scope` stands before each rule ("" in a file of its own).
std::string drawing_style();

// A text as it stands in SVG and HTML: marks replaced, what XML cannot hold shown as U+FFFD.
std::string escaped(std::string_view text);

// Width of a text at the size of `kLetter`, by its characters: nobody knows the font.
double text_length(std::string_view text);

// The text, or as much of its beginning as fits with "…" behind it.
std::string shortened(std::string_view text, double most);

// A coordinate with at most two decimals.
std::string coordinate(double value);

// A place on a drawing that is taken.
struct Area {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};
bool overlap(const Area& a, const Area& b);

// Finds places for labels beside their dots, none upon another and none upon a dot.
class LabelPlaces {
  public:
    LabelPlaces(double width, double height) : frame_{0.0, 0.0, width, height} {}
    void take(const Area& area) { taken_.push_back(area); }
    struct Place {
        double x = 0.0;
        double y = 0.0;
        Anchor anchor = Anchor::start;
        bool found = false;
    };
    // For a label of this length beside a dot; takes the place it finds.
    Place find(double x, double y, double radius, double length);

  private:
    Area frame_;
    std::vector<Area> taken_;
};
