// Rows of bits, one bit an actor, and the set operations on them.
//
// The byte layout is fixed: actor j is bit 7 - (j mod 8) of byte j / 8, most significant bit first.
// Rows are padded with clear bits to whole 64-bit words, and `row_word` hands a word out in actor
// order: its most significant bit is the first actor of the word. So a set is walked in ascending
// actor order by counting leading zeros.
//
// ActorSet is a row of such words owned by the caller; a `const std::uint64_t*` below is the first
// word of a row in MEMORY order (as BitMatrix and ActorSet both store it).
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

inline std::uint64_t actor_order(std::uint64_t memory_word) {
    if constexpr (std::endian::native == std::endian::little) {
        return __builtin_bswap64(memory_word);
    } else {
        return memory_word;
    }
}

// Bits that are set, by sums in parallel: the library's own count is a call where the processor is
// not known to have an instruction for it, and a call keeps loops over words from going wide.
inline int bit_count(std::uint64_t word) {
    word -= (word >> 1U) & 0x5555555555555555U;
    word = (word & 0x3333333333333333U) + ((word >> 2U) & 0x3333333333333333U);
    word = (word + (word >> 4U)) & 0x0F0F0F0F0F0F0F0FU;
    return static_cast<int>((word * 0x0101010101010101U) >> 56U);
}

inline int words_for(int actors) { return actors > 0 ? (actors + 63) / 64 : 0; }

inline bool row_has(const std::uint64_t* row, int actor) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(row);
    return ((bytes[actor >> 3] >> (7 - (actor & 7))) & 1) != 0;
}

inline void row_flip(std::uint64_t* row, int actor) {
    auto* bytes = reinterpret_cast<unsigned char*>(row);
    bytes[actor >> 3] = static_cast<unsigned char>(bytes[actor >> 3] ^
                                                   (1U << static_cast<unsigned>(7 - (actor & 7))));
}

inline void row_set(std::uint64_t* row, int actor) {
    if (!row_has(row, actor)) {
        row_flip(row, actor);
    }
}

inline void row_clear(std::uint64_t* row, int actor) {
    if (row_has(row, actor)) {
        row_flip(row, actor);
    }
}

inline int row_count(const std::uint64_t* row, int words) {
    int count = 0;
    for (int word = 0; word < words; ++word) {
        count += bit_count(row[word]);
    }
    return count;
}

// Number of actors in both rows.
inline int row_and_count(const std::uint64_t* a, const std::uint64_t* b, int words) {
    int count = 0;
    for (int word = 0; word < words; ++word) {
        count += bit_count(a[word] & b[word]);
    }
    return count;
}

// Number of actors in all three rows.
inline int row_and_count(const std::uint64_t* a, const std::uint64_t* b, const std::uint64_t* c,
                         int words) {
    int count = 0;
    for (int word = 0; word < words; ++word) {
        count += bit_count(a[word] & b[word] & c[word]);
    }
    return count;
}

// Calls visit(actor) for each actor of a word in actor order, ascending.
template <class Visit>
inline void word_for_each(std::uint64_t ordered_word, int first_actor, Visit visit) {
    while (ordered_word != 0) {
        const auto lead = static_cast<unsigned>(std::countl_zero(ordered_word));
        visit(first_actor + static_cast<int>(lead));
        // A word with a bit set has fewer than 64 zeros before it: the mask says so to a reader and
        // to static analysis, and costs nothing, since the machine's shift masks by itself.
        ordered_word &= ~(0x8000000000000000ULL >> (lead & 63U));
    }
}

// Calls visit(actor) for each actor of a word in memory order, in an order of no meaning: cheaper
// where the order cannot be seen in the result.
template <class Visit>
inline void word_for_each_unordered(std::uint64_t memory_word, int first_actor, Visit visit) {
    if constexpr (std::endian::native != std::endian::little) {
        word_for_each(memory_word, first_actor, visit);
    } else {
        // Bytes are in actor order already, their bits are not.
        for (; memory_word != 0; memory_word &= memory_word - 1) {
            visit(first_actor + (std::countr_zero(memory_word) ^ 7));
        }
    }
}

template <class Visit>
inline void row_for_each(const std::uint64_t* row, int words, Visit visit) {
    for (int word = 0; word < words; ++word) {
        word_for_each(actor_order(row[word]), word * 64, visit);
    }
}

template <class Visit>
inline void row_and_for_each(const std::uint64_t* a, const std::uint64_t* b, int words,
                             Visit visit) {
    for (int word = 0; word < words; ++word) {
        word_for_each(actor_order(a[word] & b[word]), word * 64, visit);
    }
}

// An owned set of actors with the layout of a bit row.
struct ActorSet {
    std::vector<std::uint64_t> words;

    ActorSet() = default;
    explicit ActorSet(int actors) : words(static_cast<std::size_t>(words_for(actors)), 0) {}
    const std::uint64_t* row() const { return words.data(); }
    std::uint64_t* row() { return words.data(); }
};

// n rows of n bits.
struct BitMatrix {
    int actors = 0;
    int words_per_row = 0;
    std::vector<std::uint64_t> words;

    BitMatrix() = default;
    explicit BitMatrix(int n)
        : actors(n > 0 ? n : 0),
          words_per_row(words_for(n)),
          words(static_cast<std::size_t>(actors) * static_cast<std::size_t>(words_per_row), 0) {}

    const std::uint64_t* operator[](int row) const {
        return words.data() + static_cast<std::ptrdiff_t>(row) * words_per_row;
    }
    std::uint64_t* operator[](int row) {
        return words.data() + static_cast<std::ptrdiff_t>(row) * words_per_row;
    }
    bool has(int row, int column) const { return row_has((*this)[row], column); }
};
