#include "run/java_path.h"

#include <gtest/gtest.h>

namespace {

const std::string kSmile = "\xF0\x9F\x98\x80";                // U+1F600
const std::string kSmileOfJava = "\xED\xA0\xBD\xED\xB8\x80";  // its two surrogates

TEST(JavaPath, SurrogatesBecomeTheCharacterTheyStandFor) {
    EXPECT_EQ(path_from_java("x" + kSmileOfJava + "/y" + kSmileOfJava),
              "x" + kSmile + "/y" + kSmile);
    EXPECT_EQ(path_from_java("\xED\xA0\x80\xED\xB0\x80"), "\xF0\x90\x80\x80");
    EXPECT_EQ(path_from_java("\xED\xAF\xBF\xED\xBF\xBF"), "\xF4\x8F\xBF\xBF");
}

TEST(JavaPath, BytesThatAreNoPairOfSurrogatesStay) {
    for (const std::string& path :
         {std::string("plain.txt"), std::string("n\xC3\xA4 me"), kSmile,
          std::string("\xED\xA0\xBD"), std::string("\xED\xB8\x80\xED\xA0\xBD"),
          std::string("\xED\xA0\xBD\xED\xB8"), std::string("\xED\x9F\xBF\xED\xB8\x80"),
          std::string("\xFF\xFE"), std::string()}) {
        EXPECT_EQ(path_from_java(path), path);
    }
}

}  // namespace
