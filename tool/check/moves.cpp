#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "base/conversions.h"
#include "check/checks.h"
#include "sampling/chain.h"

namespace {

// What the proposals of a run can choose from.
struct Moves {
    const SetupView& view;
    const Ties* observed;
    const Ties* free_dyads;
    bool directed;
    int actors;

    bool is_free(int i, int j) const { return free_dyads == nullptr || free_dyads->has(i, j); }
    const ReadItem* item(SetupId id) const { return find_item(view, id); }
};

enum class Proposal { toggle, swap, sender_swap };

Proposal proposal_of(const Moves& moves) {
    const int kind = moves.view.setup.settings.proposal_kind;
    if (kind == 1) {
        return Proposal::swap;
    }
    return moves.directed && kind == 2 ? Proposal::sender_swap : Proposal::toggle;
}

std::int64_t count_cells(const Ties& ties) {
    return std::count(ties.cells.begin(), ties.cells.end(), char{1});
}

std::int64_t all_dyads(const Moves& moves) {
    const std::int64_t n = moves.actors;
    return moves.directed ? n * (n - 1) : n * (n - 1) / 2;
}

std::int64_t count_ties(const Moves& moves, const Ties& ties) {
    return moves.directed ? count_cells(ties) : count_cells(ties) / 2;
}

std::vector<int> degrees(const Ties& ties) {
    std::vector<int> degree(static_cast<std::size_t>(ties.actors), 0);
    for (int i = 0; i < ties.actors; ++i) {
        for (int j = 0; j < ties.actors; ++j) {
            degree[static_cast<std::size_t>(i)] += ties.has(i, j) ? 1 : 0;
        }
    }
    return degree;
}

const char* tie_word(const Moves& moves) { return moves.directed ? "arc" : "tie"; }

// Nothing can be learned from a network that has no tie or all of them.
void check_degenerate(const Moves& moves, Findings& findings) {
    const ReadItem* item = moves.item(SetupId::network_file);
    if (moves.observed == nullptr || item == nullptr) {
        return;
    }
    const std::int64_t ties = count_ties(moves, *moves.observed);
    if (ties == 0 || ties == all_dyads(moves)) {
        const auto add = is_mode(moves.view, RunMode::estimation) ? add_error : add_warning;
        add(findings, where_item(moves.view, *item),
            ties == 0 ? "an observed network without ties" : "a complete observed network",
            "a network with some ties and some gaps",
            "check the network file: an estimation from this network is degenerate from "
            "the start, since a step makes no proposal");
    }
}

void check_free_dyads(const Moves& moves, Findings& findings) {
    const ReadItem* item = moves.item(SetupId::free_dyads_file);
    if (moves.free_dyads == nullptr || item == nullptr) {
        return;
    }
    const std::int64_t free = count_ties(moves, *moves.free_dyads);
    if (free == 0 || (free == 1 && proposal_of(moves) != Proposal::toggle)) {
        add_error(findings, where_item(moves.view, *item),
                  free == 0 ? "no free dyad" : "one free dyad, and a swap needs two",
                  "1 in the cell of each dyad that may change",
                  "mark the free dyads with 1, or set the free dyads flag to 0: the network could "
                  "never change");
    }
}

// Whether the observed network has a tie to take away and a gap to fill.
void check_observed_swap(const Moves& moves, Findings& findings) {
    const ReadItem* item = moves.item(SetupId::proposal_kind);
    std::int64_t tied = 0;
    std::int64_t gaps = 0;
    for (int i = 0; i < moves.actors; ++i) {
        for (int j = moves.directed ? 0 : i + 1; j < moves.actors; ++j) {
            if (i != j && moves.is_free(i, j)) {
                ++(moves.observed->has(i, j) ? tied : gaps);
            }
        }
    }
    const std::int64_t ties = count_ties(moves, *moves.observed);
    if (ties < 2 || tied == 0 || gaps == 0) {
        const std::string where = moves.free_dyads != nullptr ? " among the free dyads" : "";
        add_error(findings, where_item(moves.view, *item),
                  "a swap on a network with " + counted(ties, tie_word(moves)) +
                      (ties < 2    ? ""
                       : gaps == 0 ? ", where no dyad" + where + " is empty"
                                   : ", none of them" + where),
                  "two ties at least, one to take away and an empty dyad to fill",
                  "toggle single dyads (proposal kind 0): the network could never change");
    }
}

bool can_swap_sender(const Moves& moves, int i) {
    bool tied = false;
    bool gap = false;
    for (int j = 0; j < moves.actors; ++j) {
        if (i != j && moves.is_free(i, j)) {
            (moves.observed->has(i, j) ? tied : gap) = true;
        }
    }
    return tied && gap;
}

void check_observed_sender_swap(const Moves& moves, Findings& findings) {
    const ReadItem* item = moves.item(SetupId::proposal_kind);
    const std::vector<int> out = degrees(*moves.observed);
    bool two_arcs = false;
    for (int i = 0; i < moves.actors; ++i) {
        if (out[static_cast<std::size_t>(i)] < 2) {
            continue;
        }
        two_arcs = true;
        if (can_swap_sender(moves, i)) {
            return;
        }
    }
    add_error(findings, where_item(moves.view, *item),
              two_arcs ? "a sender swap where no sender of two arcs has both a free arc and a free "
                         "gap"
                       : "a sender swap on a network where no actor sends two arcs",
              "an actor that sends two arcs or more, but not to everyone",
              "choose another proposal (0 single toggle): the network could never change");
}

// The random start network of a simulation is known only by its number of ties.
void check_start_network(const Moves& moves, Findings& findings) {
    const ReadItem* item = moves.item(SetupId::density);
    const Proposal proposal = proposal_of(moves);
    if (item == nullptr || proposal == Proposal::toggle) {
        return;
    }
    const double pairs = static_cast<double>(moves.actors) * (moves.actors - 1.0);
    const double share = static_cast<double>(moves.view.setup.settings.density);
    const auto ties = static_cast<std::int64_t>(std::clamp(share, 0.0, 1.0) * pairs *
                                                (moves.directed ? 1.0 : 0.5));
    if (ties < 2 || ties >= all_dyads(moves)) {
        add_error(findings, where_item(moves.view, *item),
                  "a start network with " + counted(ties, tie_word(moves)) + " of " +
                      std::to_string(all_dyads(moves)) + ", and a swap proposal",
                  "two ties at least, and an empty dyad",
                  "correct the density or toggle single dyads (proposal kind 0): the network could "
                  "never change");
    } else if (proposal == Proposal::sender_swap && ties <= moves.actors) {
        add_warning(findings, where_item(moves.view, *item),
                    "a start network with " + counted(ties, "arc") + " for " +
                        counted(moves.actors, "actor") + ", and the sender swap",
                    "actors that send two arcs",
                    "raise the density: only actors that send two arcs or more can swap one");
    }
}

std::string letters_of(const std::string& label) {
    std::string letters;
    for (const char character : label) {
        letters.push_back(character >= 'A' && character <= 'Z'
                              ? static_cast<char>(character - 'A' + 'a')
                              : character);
    }
    return letters;
}

// A directed cap is on out-degrees, whatever its label says.
void check_cap_meaning(const Moves& moves, Findings& findings) {
    const ReadItem* flag = moves.item(SetupId::degree_cap_flag);
    if (!moves.directed || flag == nullptr || flag->label.empty() ||
        moves.item(SetupId::degree_cap) == nullptr) {
        return;
    }
    if (letters_of(flag->label).find("out") == std::string::npos) {
        add_warning(findings, where_item(moves.view, *flag),
                    "a degree cap labelled " + quoted(flag->label), "a cap on out-degrees",
                    "mind that the cap holds for out-degrees alone; an in-degree cap cannot be set "
                    "(a label with \"out\" in it, such as Out_degree_cap, ends this warning)");
    }
}

void check_cap(const Moves& moves, Findings& findings) {
    const ReadItem* item = moves.item(SetupId::degree_cap);
    if (item == nullptr) {
        return;
    }
    const int cap = moves.view.setup.settings.max_degree;
    const Where where = where_item(moves.view, *item);
    if (proposal_of(moves) != Proposal::toggle) {
        add_warning(findings, where, "a degree cap, and a swap proposal", "no cap",
                    "set the cap's flag to 0 or toggle single dyads: swaps do not look at degrees");
    } else if (cap < 0) {
        add_warning(findings, where, quoted(std::to_string(cap)), "a degree, 0 or more",
                    "write the largest degree allowed: no actor ever has this one, so nothing is "
                    "capped");
    } else if (moves.observed != nullptr) {
        const std::vector<int> degree = degrees(*moves.observed);
        const int largest = *std::max_element(degree.begin(), degree.end());
        const auto above =
            std::count_if(degree.begin(), degree.end(), [cap](int each) { return each > cap; });
        if (cap == 0 && largest == 0) {
            add_error(findings, where, "a cap of 0 on a network without ties", "a cap of 1 or more",
                      "raise the cap or set its flag to 0: the network could never change");
        } else if (above > 0) {
            add_warning(findings, where,
                        "a cap of " + std::to_string(cap) + ", and " + counted(above, "actor") +
                            " above it (the largest degree is " + std::to_string(largest) + ")",
                        "a cap that the observed network keeps",
                        "raise the cap: only an actor that stands exactly at the cap is refused a "
                        "tie, so those above it are not held back");
        }
    }
}

}  // namespace

void check_moves(const SetupView& view, const Ties* observed, const Ties* free_dyads,
                 Findings& findings) {
    const ReadItem* kind = find_item(view, SetupId::proposal_kind);
    if (kind == nullptr || !has_actor_count(view)) {
        return;
    }
    const Moves moves = {view, observed, free_dyads, is_directed(view),
                         view.setup.settings.actor_count};
    check_degenerate(moves, findings);
    check_free_dyads(moves, findings);
    check_cap_meaning(moves, findings);
    check_cap(moves, findings);
    check_start_network(moves, findings);
    if (observed == nullptr) {
        return;
    }
    if (proposal_of(moves) == Proposal::swap) {
        check_observed_swap(moves, findings);
    } else if (proposal_of(moves) == Proposal::sender_swap) {
        check_observed_sender_swap(moves, findings);
    }
}
