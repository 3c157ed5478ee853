#include "pictures/heading.h"

#include <cmath>

void draw_heading(Drawing& drawing, const std::string& title, const ResultLabel& label) {
    const std::string warning = label.usable ? "" : label.verdict + ": do not use";
    const double taken = warning.empty() ? 0.0 : text_length(warning) * 1.1 + 10.0;
    drawing.text(4.0, 13.0, title, "bold", Anchor::start, kFigureWidth - 12.0 - taken);
    if (!warning.empty()) {
        drawing.text(kFigureWidth - 6.0, 13.0, warning, "warning", Anchor::end);
    }
}

void draw_target(Drawing& drawing, const Frame& frame, const Scale& scale, Across across,
                 const std::string& what, double value, const std::string& number) {
    if (!std::isfinite(value)) {
        return;
    }
    const double at = scale.at(value);
    if (across == Across::level) {
        drawing.line(frame.left, at, frame.right, at, "target");
    } else {
        drawing.line(at, frame.top - 2.0, at, frame.bottom, "target");
    }
    drawing.text(kFigureWidth - 12.0, 29.0, "dashed: " + what + ", " + number, "soft", Anchor::end);
}
