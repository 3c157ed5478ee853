#include "study/number_text.h"

#include <charconv>
#include <cmath>
#include <string>

std::string_view without_space(std::string_view text) {
    constexpr std::string_view kSpace = " \t\r\n\v\f";
    const std::size_t begin = text.find_first_not_of(kSpace);
    if (begin == std::string_view::npos) {
        return text.substr(0, 0);
    }
    return text.substr(begin, text.find_last_not_of(kSpace) - begin + 1);
}

std::optional<double> number_of(std::string_view text) {
    std::string_view digits = without_space(text);
    if (digits.size() > 1 && digits.front() == '+' && digits[1] != '-') {
        digits.remove_prefix(1);
    }
    double value = 0.0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (digits.empty() || error != std::errc() || stop != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

bool is_decimal_comma(std::string_view text) {
    std::string number(text);
    const std::size_t comma = number.find(',');
    if (comma == std::string::npos || number.find('.') != std::string::npos) {
        return false;
    }
    number[comma] = '.';
    return number_of(number).has_value();
}
