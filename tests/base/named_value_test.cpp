#include "base/named_value.h"

#include <gtest/gtest.h>

namespace {

enum class Colour { red, green };
constexpr std::array<NamedValue<Colour>, 2> kColours = {
    {{Colour::red, "red"}, {Colour::green, "green"}}};

TEST(NamedValues, AreFoundByNameAndByValue) {
    EXPECT_STREQ(name_in(kColours, Colour::green), "green");
    EXPECT_EQ(value_in(kColours, "red"), Colour::red);
    EXPECT_EQ(value_in(kColours, "Red"), std::nullopt);
    const auto same_head = [](std::string_view a, std::string_view b) { return a[0] == b[0]; };
    EXPECT_EQ(value_in(kColours, "grass", same_head), Colour::green);
}

}  // namespace
