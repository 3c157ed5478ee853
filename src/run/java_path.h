// Paths as a Java machine hands them out.
#pragma once

#include <string>

// The path in UTF-8. A Java machine hands out characters beyond U+FFFF as two surrogates of three
// bytes each: such a pair becomes the four bytes of the character it stands for. All other bytes
// stay as they are.
std::string path_from_java(const std::string& path);
