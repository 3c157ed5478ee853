// Scales from numbers to places on a drawing, with ticks that people can read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pictures/drawing.h"

// Values at equal steps of 1, 2 or 5 times a power of ten that lie in the range, at most `most`.
// Both ends alike give that value; an end that is not a number gives none.
std::vector<double> readable_ticks(double low, double high, int most);

// The values as text, with no more decimals than tell them apart; a true minus sign.
std::vector<std::string> tick_texts(const std::vector<double>& ticks);

// A number for people: `digits` that count, a true minus sign.
std::string number_for_people(double value, int digits = 4);

// The number with so many decimals, or, where these are not said, as it is readable.
std::string number_with_decimals(double value, std::optional<int> decimals);

class Scale {
  public:
    // From [low, high] to [from, to]; a range without width is widened around its value.
    Scale(double low, double high, double from, double to, bool root = false);
    double at(double value) const;
    double low() const { return low_; }
    double high() const { return high_; }
    // On a square-root scale the ticks thin out upwards.
    std::vector<double> ticks(int most) const;

  private:
    double low_;
    double high_;
    double from_;
    double to_;
    bool root_;
};

// The range of numbers, those that are none left aside; [0, 1] of nothing.
struct Range {
    double low = 0.0;
    double high = 0.0;
    bool any = false;
    void add(double value);
    // With this share of its width more on either side.
    Range widened(double share) const;
};

// An axis below or left of the frame, its ticks with texts and lines across the frame, its name.
struct Frame {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};
void draw_bottom_axis(Drawing& drawing, const Frame& frame, const Scale& scale,
                      const std::string& name, int ticks = 6);
void draw_left_axis(Drawing& drawing, const Frame& frame, const Scale& scale,
                    const std::string& name, int ticks = 6);
