// The members of short rows as sorted lists beside the rows of bits.
//
// A walk over a list costs the number of its members, a walk over bits n / 64 words as well. Lists
// hold at most kListLength actors: where a row has more, bits are as good, and the actor is
// "unlisted" until its row is short again. So there is no bound on degrees. The two walks visit the
// same actors in the same ascending order. Small networks keep no lists at all: up to kWordsAlone
// words a row is gone through faster than a list is kept.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "network/bit_rows.h"

// With its length a list fills four cache lines; the usual one is met in the first.
constexpr int kListLength = 63;

// An unlisted row is listed again when it has no more members than this, so that a degree that goes
// up and down by one does not have its list made anew each time.
constexpr int kRelistLength = 48;

constexpr int kWordsAlone = 8;

class NeighbourLists {
  public:
    NeighbourLists() = default;
    explicit NeighbourLists(int actors) : kept_(words_for(actors) > kWordsAlone) {
        if (kept_) {
            places_.assign(static_cast<std::size_t>(actors) * kStride, 0);
        }
    }

    bool listed(int actor) const { return kept_ && places(actor)[0] >= 0; }

    // The members, ascending. Only of a listed actor.
    std::span<const std::int32_t> of(int actor) const {
        const std::int32_t* list = places(actor);
        return {list + 1, static_cast<std::size_t>(list[0])};
    }

    // Brings the list of `actor` up to date after its row has got or lost `member`.
    void add(int actor, int member) {
        if (!kept_) {
            return;
        }
        std::int32_t* list = places(actor);
        const std::int32_t length = list[0];
        if (length < 0) {
            return;
        }
        if (length == kListLength) {
            list[0] = kUnlisted;
            return;
        }
        std::int32_t* place = list + length + 1;
        while (place != list + 1 && place[-1] > member) {
            *place = place[-1];
            --place;
        }
        *place = member;
        list[0] = length + 1;
    }

    // `row` is the row as it is now and `degree` the number of its members.
    void remove(int actor, int member, const std::uint64_t* row, int words, int degree) {
        if (!kept_) {
            return;
        }
        std::int32_t* list = places(actor);
        if (list[0] < 0) {
            if (degree <= kRelistLength) {
                relist(actor, row, words);
            }
            return;
        }
        const std::int32_t* end = list + list[0];
        std::int32_t* place = list + 1;
        while (place != end && *place != member) {
            ++place;
        }
        for (; place != end; ++place) {
            *place = place[1];
        }
        --list[0];
    }

  private:
    static constexpr std::int32_t kUnlisted = -1;
    static constexpr std::ptrdiff_t kStride = kListLength + 1;

    const std::int32_t* places(int actor) const {
        return places_.data() + static_cast<std::ptrdiff_t>(actor) * kStride;
    }

    std::int32_t* places(int actor) {
        return places_.data() + static_cast<std::ptrdiff_t>(actor) * kStride;
    }

    void relist(int actor, const std::uint64_t* row, int words) {
        std::int32_t* list = places(actor);
        std::int32_t length = 0;
        row_for_each(row, words, [&](int member) { list[++length] = member; });
        list[0] = length;
    }

    bool kept_ = false;
    // For each actor the length of its list (-1 when unlisted) and room for its members.
    std::vector<std::int32_t> places_;
};

// Calls visit(actor) for each member of a row in ascending order, by its list where it has one.
template <class Visit>
void members_for_each(const NeighbourLists& lists, const BitMatrix& rows, int of, Visit visit) {
    if (!lists.listed(of)) {
        row_for_each(rows[of], rows.words_per_row, visit);
        return;
    }
    for (const std::int32_t actor : lists.of(of)) {
        visit(actor);
    }
}

// One row with its list.
struct Members {
    const NeighbourLists& lists;
    const BitMatrix& rows;
    int actor;

    const std::uint64_t* row() const { return rows[actor]; }
    bool listed() const { return lists.listed(actor); }
    std::span<const std::int32_t> list() const { return lists.of(actor); }
    bool has(int other) const { return rows.has(actor, other); }
};

// Calls visit(actor) for each actor in both rows, ascending: the shorter list against the bits of
// the other row where that is less than going through the words of both.
template <class Visit>
void common_for_each(const Members& a, const Members& b, Visit visit) {
    const int words = a.rows.words_per_row;
    // Members of a list that take as long as one word of two rows.
    constexpr int kMembersPerWord = 3;
    const int longest = words * kMembersPerWord;
    const int length_a = a.listed() ? static_cast<int>(a.list().size()) : longest + 1;
    const int length_b = b.listed() ? static_cast<int>(b.list().size()) : longest + 1;
    if (std::min(length_a, length_b) > longest) {
        row_and_for_each(a.row(), b.row(), words, visit);
        return;
    }
    const Members& walked = length_a <= length_b ? a : b;
    const std::uint64_t* tested = length_a <= length_b ? b.row() : a.row();
    for (const std::int32_t actor : walked.list()) {
        if (row_has(tested, actor)) {
            visit(actor);
        }
    }
}

// Calls visit(actor, in_a, in_b) for each actor in either row, ascending.
template <class Visit>
void either_for_each(const Members& a, const Members& b, Visit visit) {
    if (!a.listed() || !b.listed()) {
        const std::uint64_t* row_a = a.row();
        const std::uint64_t* row_b = b.row();
        for (int word = 0; word < a.rows.words_per_row; ++word) {
            word_for_each(actor_order(row_a[word] | row_b[word]), word * 64, [&](int actor) {
                visit(actor, row_has(row_a, actor), row_has(row_b, actor));
            });
        }
        return;
    }
    const auto list_a = a.list();
    const auto list_b = b.list();
    auto next_a = list_a.begin();
    auto next_b = list_b.begin();
    while (next_a != list_a.end() && next_b != list_b.end()) {
        const std::int32_t actor = std::min(*next_a, *next_b);
        const bool in_a = *next_a == actor;
        const bool in_b = *next_b == actor;
        next_a += in_a ? 1 : 0;
        next_b += in_b ? 1 : 0;
        visit(actor, in_a, in_b);
    }
    for (; next_a != list_a.end(); ++next_a) {
        visit(*next_a, true, false);
    }
    for (; next_b != list_b.end(); ++next_b) {
        visit(*next_b, false, true);
    }
}
