#include "show/page_pieces.h"

#include <fmt/core.h>

#include <cmath>

namespace {

constexpr const char* kStyle = R"(
:root{color-scheme:light dark}
body{margin:0 auto;padding:1rem;max-width:78rem;font:1rem/1.5 system-ui,'Liberation Sans',sans-serif;
 color:#1b1b1b;background:#fff;overflow-wrap:anywhere}
h1{font-size:1.5rem;line-height:1.2}
h2{font-size:1.2rem;margin-top:2rem;border-bottom:1px solid #bbb}
h3{font-size:1rem}
.figures{display:grid;gap:1.2rem;grid-template-columns:repeat(auto-fit,minmax(min(100%,20rem),1fr))}
figure{margin:0;max-width:36rem;min-width:0}
figcaption{font-size:.85rem;color:#555}
svg{width:100%;height:auto;display:block}
.scroll{overflow-x:auto}
table{border-collapse:collapse;font-variant-numeric:tabular-nums}
th,td{padding:.15rem .6rem;text-align:right;white-space:nowrap;border-bottom:1px solid #ddd}
th:first-child,td:first-child{text-align:left;white-space:normal;min-width:7rem;max-width:24rem}
pre{overflow-x:auto;padding:.6rem;background:#f3f3f3;font-size:.85rem}
.verdict{padding:.6rem .9rem;border-left:.4rem solid #00825f;background:#eef6f3}
.verdict.bad{border-left-style:double;border-color:#a3260a;background:#fbeeea}
@media screen and (prefers-color-scheme:dark){
body{color:#ececec;background:#161616}
h2{border-color:#555}
figcaption{color:#b4b4b4}
th,td{border-color:#3d3d3d}
pre{background:#242424}
.verdict{background:#142621}
.verdict.bad{border-color:#ff9d80;background:#2c1812}
}
@media print{body{max-width:none;padding:0}figure{break-inside:avoid}details{display:block}}
)";

}  // namespace

std::string page_head(const std::string& title) {
    return "<!DOCTYPE html>\n<html lang=\"en\" xmlns=\"http://www.w3.org/1999/xhtml\">\n<head>\n"
           "<meta charset=\"UTF-8\"/>\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
           "<meta http-equiv=\"Content-Security-Policy\" "
           "content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:\"/>\n<title>" +
           escaped(title) + "</title>\n<style>" + kStyle + drawing_style() +
           "</style>\n</head>\n<body>\n<h1>" + name_text(title) + "</h1>\n";
}

std::string name_text(const std::string& name) { return "<bdi>" + escaped(name) + "</bdi>"; }

std::string decimals(double value, int places) {
    return std::isfinite(value) ? fmt::format("{:.{}f}", value, places) : "\xE2\x80\x93";
}

std::string p_text(double value) {
    return !std::isfinite(value) ? "\xE2\x80\x93"
           : value < 0.001       ? "&lt;0.001"
                                 : fmt::format("{:.3f}", value);
}

std::string row(const char* tag, const std::vector<std::string>& cells) {
    std::string text = "<tr>";
    for (const std::string& each : cells) {
        text += fmt::format("<{0}>{1}</{0}>", tag, each);
    }
    return text + "</tr>\n";
}

std::string figure_element(const NamedFigure& figure, const std::string& caption) {
    return "<figure id=\"" + figure.name + "\">\n" + figure.drawing.element("f-" + figure.name) +
           "<figcaption>" + caption + "</figcaption>\n</figure>\n";
}

std::string figure_grid(const std::string& figures) {
    return figures.empty() ? "" : "<div class=\"figures\">\n" + figures + "</div>\n";
}
