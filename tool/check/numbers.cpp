#include "check/numbers.h"

#include <cmath>

long long count_surplus(TextReader& reader) {
    long long surplus = 0;
    double ignored = 0.0;
    while (reader_double(reader, ignored)) {
        ++surplus;
    }
    return surplus;
}

std::optional<int> whole_root(long long number) {
    const auto root = static_cast<long long>(std::llround(std::sqrt(static_cast<double>(number))));
    return root * root == number ? std::optional(static_cast<int>(root)) : std::nullopt;
}
