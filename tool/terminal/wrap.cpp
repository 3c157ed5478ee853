#include "terminal/wrap.h"

#include <algorithm>
#include <sstream>

std::size_t text_width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    }));
}

std::string wrapped(const std::string& text, std::size_t width, const std::string& lead) {
    const std::string indent(text_width(lead), ' ');
    std::string lines;
    std::string line = lead;
    bool empty = true;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (!empty && text_width(line) + 1 + text_width(word) > width) {
            lines += line + "\n";
            line = indent;
            empty = true;
        }
        line += (empty ? "" : " ") + word;
        empty = false;
    }
    return lines + line + "\n";
}
