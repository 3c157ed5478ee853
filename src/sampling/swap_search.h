// The search for a swap among the draws: it ends at an attempt whose two dyads are unlike, one of
// them tied and one not.
//
// In a sparse network nearly all attempts draw two dyads without a tie (some n / 12 of them at a
// mean degree of 6), and to pass over these is most of what a swap costs. Where the processor has
// AVX2, eight attempts are looked at together. The draws are the very same, each in its place.
#pragma once

#include <cstdint>

#include "network/bit_rows.h"

// Where in the draws of one attempt the actors of its two dyads come, from 1.
struct DrawOrder {
    int draws = 0;
    int first_i = 0;
    int first_j = 0;
    int second_i = 0;
    int second_j = 0;
};
constexpr DrawOrder kSwapOrder = {4, 1, 3, 2, 4};
constexpr DrawOrder kFreeSwapOrder = {4, 3, 1, 4, 2};
constexpr DrawOrder kSenderSwapOrder = {3, 1, 2, 1, 3};
constexpr DrawOrder kFreeSenderSwapOrder = {3, 2, 1, 2, 3};

// Whether this machine can look at several attempts at once.
extern const bool kWideSearch;

// `pass_alike` where it can.
template <DrawOrder order>
int pass_alike_wide(const BitMatrix& ties, int most, std::uint32_t& state);

// Passes over attempts whose dyads are both tied or both not, fewer than `most`; `state` is then
// the random source's before the first attempt that has not been passed over. Returns how many
// were; 0 where there is no wide search.
template <DrawOrder order>
int pass_alike(const BitMatrix& ties, int most, std::uint32_t& state) {
    return kWideSearch ? pass_alike_wide<order>(ties, most, state) : 0;
}
