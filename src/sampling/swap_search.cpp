#include "sampling/swap_search.h"

#include <array>
#include <bit>

#include "base/random_source.h"

// The stack of 64-bit Windows is not aligned as the compiler would have it for wide registers.
#if defined(__x86_64__) && !defined(_WIN32)

#include <immintrin.h>

namespace {

constexpr int kLanes = 8;

// One number a lane.
using Lanes = std::array<std::uint32_t, kLanes>;

// From the state before eight attempts to that of one draw of each.
struct LaneJumps {
    alignas(32) Lanes factors = {};
    alignas(32) Lanes summands = {};
};
constexpr LaneJumps lane_jumps(int draws, int place) {
    LaneJumps jumps;
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        const RandomJump jump = random_jump(draws * static_cast<int>(lane) + place);
        jumps.factors[lane] = jump.factor;
        jumps.summands[lane] = jump.summand;
    }
    return jumps;
}

constexpr std::array<RandomJump, kLanes> attempt_jumps(int draws) {
    std::array<RandomJump, kLanes> jumps;
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        jumps[lane] = random_jump(draws * static_cast<int>(lane));
    }
    return jumps;
}

#define OVRI_WIDE __attribute__((target("avx2"), always_inline)) inline

OVRI_WIDE __m256i loaded(const Lanes& lanes) {
    return _mm256_load_si256(reinterpret_cast<const __m256i*>(lanes.data()));
}

// Draws modulo n. The quotient by a rounded reciprocal is off by less than 2^-8 / n, and a draw and
// a half stands 0.5 / n from the next whole number at least.
struct WideActors {
    __m256 reciprocal;
    __m256i n;

    OVRI_WIDE __m256i of(__m256i state, const LaneJumps& jumps) const {
        const __m256i drawn_state = _mm256_add_epi32(
            _mm256_mullo_epi32(state, loaded(jumps.factors)), loaded(jumps.summands));
        const __m256i draw =
            _mm256_and_si256(_mm256_srli_epi32(drawn_state, 16), _mm256_set1_epi32(kDraws - 1));
        const __m256 half = _mm256_add_ps(_mm256_cvtepi32_ps(draw), _mm256_set1_ps(0.5F));
        const __m256i quotient = _mm256_cvttps_epi32(_mm256_mul_ps(half, reciprocal));
        // The product is at most the draw, which has 15 bits.
        return _mm256_sub_epi32(draw, _mm256_mullo_epi16(quotient, n));
    }
};

// The bit of each (i, j) as the lowest of its lane; what stands above is of no meaning.
struct WideTies {
    const int* words;
    __m256i words_per_row;  // of 32 bits

    OVRI_WIDE __m256i of(__m256i i, __m256i j) const {
        const __m256i place =
            _mm256_add_epi32(_mm256_madd_epi16(i, words_per_row), _mm256_srli_epi32(j, 5));
        const __m256i word = _mm256_i32gather_epi32(words, place, 4);
        const __m256i shift =
            _mm256_and_si256(_mm256_xor_si256(j, _mm256_set1_epi32(7)), _mm256_set1_epi32(31));
        return _mm256_srlv_epi32(word, shift);
    }
};

#undef OVRI_WIDE

template <DrawOrder order>
__attribute__((target("avx2"))) int pass_wide(const BitMatrix& ties, int most,
                                              std::uint32_t& state) {
    static constexpr LaneJumps kFirstI = lane_jumps(order.draws, order.first_i);
    static constexpr LaneJumps kFirstJ = lane_jumps(order.draws, order.first_j);
    static constexpr LaneJumps kSecondI = lane_jumps(order.draws, order.second_i);
    static constexpr LaneJumps kSecondJ = lane_jumps(order.draws, order.second_j);
    static constexpr std::array<RandomJump, kLanes> kAttempts = attempt_jumps(order.draws);
    constexpr RandomJump kAll = random_jump(order.draws * kLanes);
    const WideActors actors{_mm256_set1_ps(1.0F / static_cast<float>(ties.actors)),
                            _mm256_set1_epi32(ties.actors)};
    const WideTies tied{reinterpret_cast<const int*>(ties.words.data()),
                        _mm256_set1_epi32(2 * ties.words_per_row)};
    std::uint32_t at = state;
    int passed = 0;
    for (; passed < most - kLanes; passed += kLanes) {
        const __m256i before = _mm256_set1_epi32(static_cast<int>(at));
        const __m256i first = tied.of(actors.of(before, kFirstI), actors.of(before, kFirstJ));
        const __m256i second = tied.of(actors.of(before, kSecondI), actors.of(before, kSecondJ));
        const __m256i unlike = _mm256_slli_epi32(_mm256_xor_si256(first, second), 31);
        const auto lanes = static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(unlike)));
        if (lanes != 0) {
            const int lane = std::countr_zero(lanes);
            at = kAttempts[static_cast<std::size_t>(lane)](at);
            passed += lane;
            break;
        }
        at = kAll(at);
    }
    state = at;
    return passed;
}

// Rows and their lengths are multiplied as numbers of 15 bits.
constexpr int kMostActors = kDraws;

}  // namespace

const bool kWideSearch = __builtin_cpu_supports("avx2") != 0;

template <DrawOrder order>
int pass_alike_wide(const BitMatrix& ties, int most, std::uint32_t& state) {
    return ties.actors <= kMostActors ? pass_wide<order>(ties, most, state) : 0;
}

#else

const bool kWideSearch = false;

template <DrawOrder order>
int pass_alike_wide(const BitMatrix&, int, std::uint32_t&) {
    return 0;
}

#endif

template int pass_alike_wide<kSwapOrder>(const BitMatrix&, int, std::uint32_t&);
template int pass_alike_wide<kFreeSwapOrder>(const BitMatrix&, int, std::uint32_t&);
template int pass_alike_wide<kSenderSwapOrder>(const BitMatrix&, int, std::uint32_t&);
template int pass_alike_wide<kFreeSenderSwapOrder>(const BitMatrix&, int, std::uint32_t&);
