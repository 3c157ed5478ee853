// Numbers as people write them.
#pragma once

#include <optional>
#include <string_view>

// The text without blanks and line ends at its ends.
std::string_view without_space(std::string_view text);

// The number that the text is, white space around it aside; none when it is anything else,
// infinite, or not a number. The decimal sign is a point in every locale.
std::optional<double> number_of(std::string_view text);

// A number written with a decimal comma, such as "3,5".
bool is_decimal_comma(std::string_view text);
