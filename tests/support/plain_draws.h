// The generator of the chains written out once more, for plain chains that draw by themselves.
#pragma once

#include <cstdint>

// Bits 16 to 30 of a 32-bit state.
struct PlainDraws {
    std::uint64_t state;

    int next() {
        state = (state * 214013ULL + 2531011ULL) % 4294967296ULL;
        return static_cast<int>((state / 65536ULL) % 32768ULL);
    }
    int below(int n) { return next() % n; }
    double uniform() {
        const float quotient = static_cast<float>(next()) / 32767.0F;
        return static_cast<double>(quotient);
    }
};
