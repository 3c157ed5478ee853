// The members of every row, one row after the other: for whoever walks all rows several times while
// they stay as they are. 4 bytes a member.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "network/neighbour_lists.h"

class AllMembers {
  public:
    AllMembers(const NeighbourLists& lists, const BitMatrix& rows) {
        first_.reserve(static_cast<std::size_t>(rows.actors) + 1);
        for (int of = 0; of < rows.actors; ++of) {
            first_.push_back(members_.size());
            members_for_each(lists, rows, of, [&](int member) { members_.push_back(member); });
        }
        first_.push_back(members_.size());
    }

    // Ascending.
    std::span<const int> of(int row) const {
        const auto index = static_cast<std::size_t>(row);
        return {members_.data() + first_[index], first_[index + 1] - first_[index]};
    }

  private:
    std::vector<int> members_;
    std::vector<std::size_t> first_;  // where each row begins, and the end
};
