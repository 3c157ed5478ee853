// The formatting library, compiled once. Everything else includes <fmt/core.h>, which declares it
// and costs a tenth of a second where the whole costs four.
#define FMT_HEADER_ONLY
#include <fmt/format.h>

namespace {

// What a call of fmt::format comes to.
[[gnu::used]] std::string (*const kFormatCall)(fmt::string_view, fmt::format_args) = &fmt::vformat;

}  // namespace
