#include "formats/ties.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <numeric>
#include <unordered_set>

namespace {

std::optional<std::int64_t> whole_number(const std::string& text) {
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

// The names of a table in the order that the network gets.
ActorList ordered_actors(const NameTable& names) {
    ActorList actors;
    std::vector<std::int64_t> numbers;
    for (int k = 0; k < names.size(); ++k) {
        actors.push_back(names[k]);
        if (const auto number = whole_number(names[k])) {
            numbers.push_back(*number);
        }
    }
    if (numbers.size() != actors.size()) {
        return actors;
    }
    std::vector<std::size_t> order(actors.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return numbers[a] < numbers[b]; });
    ActorList sorted;
    for (const std::size_t k : order) {
        sorted.push_back(actors[k]);
    }
    return sorted;
}

// Line of the first tie that names an actor of the table.
int line_of_actor(const TieTable& table, int actor) {
    for (const FileTie& tie : table.ties) {
        if (tie.from == actor || tie.to == actor) {
            return tie.line;
        }
    }
    return 0;
}

void miss_actor(const std::string& file, const TieTable& table, int actor, Problems& problems) {
    problems.push_back({.file = file,
                        .line = line_of_actor(table, actor),
                        .field = "actor `" + table.actors[actor] + "`",
                        .found = "an actor that the nodes file does not have",
                        .expected = "an actor of the nodes file",
                        .mend = "add a row for it to the nodes file, or mend the name"});
}

// A table without names has its actors by place; the nodes file names them, if it has as many.
std::vector<int> places_by_order(const std::string& file, const TieTable& table,
                                 const ActorList& nodes, Problems& problems) {
    std::vector<int> places(static_cast<std::size_t>(table.actors.size()));
    std::iota(places.begin(), places.end(), 0);
    if (places.size() != nodes.size()) {
        problems.push_back({.file = file,
                            .field = "actors",
                            .found = std::to_string(places.size()) + " without names",
                            .expected = std::to_string(nodes.size()) + ", as in the nodes file",
                            .mend = "give both files the same actors, or put names into head and "
                                    "first column of the matrix"});
    }
    return places;
}

// The network's number of each actor of the table.
std::vector<int> actor_places(const std::string& file, const TieTable& table,
                              const ActorList& actors, bool from_nodes, Problems& problems) {
    if (!table.named && from_nodes) {
        return places_by_order(file, table, actors, problems);
    }
    NameTable numbers;
    for (const std::string& actor : actors) {
        numbers.add(actor);
    }
    std::vector<int> places;
    for (int k = 0; k < table.actors.size(); ++k) {
        places.push_back(numbers.find(table.actors[k]));
        if (places.back() < 0 && problems.size() < kMostProblems) {
            miss_actor(file, table, k, problems);
        }
    }
    return places;
}

// A dyad's word in the file, moved to the network's numbers.
struct PlacedTie {
    ActorTie tie;
    bool turned = false;  // stood there as to, from
    bool tied = true;
    int line = 0;
};

std::vector<PlacedTie> placed_ties(const TieTable& table, const std::vector<int>& places,
                                   bool directed, NetworkCounts& counts) {
    std::vector<PlacedTie> placed;
    placed.reserve(table.ties.size());
    for (const FileTie& tie : table.ties) {
        const int from = places[static_cast<std::size_t>(tie.from)];
        const int to = places[static_cast<std::size_t>(tie.to)];
        if (from == to) {
            counts.self_ties += tie.tied ? 1 : 0;
            continue;
        }
        const bool turned = !directed && from > to;
        placed.push_back(
            {turned ? ActorTie{to, from} : ActorTie{from, to}, turned, tie.tied, tie.line});
    }
    std::stable_sort(placed.begin(), placed.end(),
                     [](const PlacedTie& a, const PlacedTie& b) { return a.tie < b.tie; });
    return placed;
}

void part_ways(const std::string& file, const ActorList& actors, const PlacedTie& tie,
               bool directed, Problems& problems) {
    const std::string& from = actors[static_cast<std::size_t>(tie.tie.from)];
    const std::string& to = actors[static_cast<std::size_t>(tie.tie.to)];
    problems.push_back(
        {.file = file,
         .line = tie.line,
         .field = "actors `" + from + "` and `" + to + "`",
         .found = directed ? "a tie that stands there twice, once with a weight below the threshold"
                           : "a tie one way and none the other way",
         .expected =
             directed ? "one weight a tie" : "a symmetric network, as `directed = false` says",
         .mend = directed ? "delete one of the two lines"
                          : "write `directed = true`, or mend one of the two"});
}

// One dyad: the ties of [begin, end) have the same actors.
void join_ties(const std::string& file, const TieTable& table, const std::vector<PlacedTie>& placed,
               std::size_t begin, std::size_t end, AssembledNetwork& made, Problems& problems) {
    int plain = 0;
    int turned = 0;
    int tied = 0;
    for (std::size_t k = begin; k < end; ++k) {
        ++(placed[k].turned ? turned : plain);
        tied += placed[k].tied ? 1 : 0;
    }
    const int all = plain + turned;
    const bool directed = made.network.directed;
    const bool parted = table.whole && !directed && tied == 1;
    if ((parted || (tied > 0 && tied < all)) && problems.size() < kMostProblems) {
        part_ways(file, made.network.actors, placed[begin], directed, problems);
    }
    if (!table.whole) {
        made.counts.given_both_ways += plain > 0 && turned > 0 && tied > 0 ? 1 : 0;
        made.counts.duplicates += std::max(plain - 1, 0) + std::max(turned - 1, 0);
    }
    if (tied > 0) {
        made.network.ties.push_back(placed[begin].tie);
    } else {
        ++made.counts.below_threshold;
    }
}

void count_actors(const std::vector<int>& places, AssembledNetwork& made) {
    std::vector<char> tied(made.network.actors.size(), 0);
    for (const ActorTie& tie : made.network.ties) {
        tied[static_cast<std::size_t>(tie.from)] = 1;
        tied[static_cast<std::size_t>(tie.to)] = 1;
    }
    made.counts.actors = static_cast<int>(made.network.actors.size());
    made.counts.ties = static_cast<int>(made.network.ties.size());
    made.counts.isolates = static_cast<int>(std::count(tied.begin(), tied.end(), 0));
    const std::unordered_set<int> named(places.begin(), places.end());
    made.counts.only_in_nodes = made.counts.actors - static_cast<int>(named.size());
}

bool check_size(const std::string& file, std::size_t actors, Problems& problems) {
    if (actors == 0) {
        problems.push_back({.file = file,
                            .field = "actors",
                            .found = "none",
                            .expected = "two or more",
                            .mend = "give a network; actors without ties stand in a nodes file"});
    } else if (actors > static_cast<std::size_t>(kMostActors)) {
        problems.push_back({.file = file,
                            .field = "actors",
                            .found = "more than " + std::to_string(kMostActors),
                            .expected = "a network of at most so many actors",
                            .mend = "give a smaller network; if this file is none, name another"});
    }
    return problems.empty();
}

std::string some(int count, const char* one, const char* more) {
    return std::to_string(count) + " " + (count == 1 ? one : more);
}

}  // namespace

int NameTable::add(std::string_view name) {
    const auto found = numbers_.find(name);
    if (found != numbers_.end()) {
        return found->second;
    }
    names_.emplace_back(name);
    numbers_.emplace(names_.back(), size() - 1);
    return size() - 1;
}

int NameTable::find(std::string_view name) const {
    const auto found = numbers_.find(name);
    return found == numbers_.end() ? -1 : found->second;
}

AssembledNetwork assemble_network(const std::string& file, const TieTable& table, bool directed,
                                  const ActorList* nodes, Problems& problems) {
    AssembledNetwork made;
    made.network.directed = directed;
    made.network.actors = nodes != nullptr ? *nodes : ordered_actors(table.actors);
    if (!check_size(file, made.network.actors.size(), problems)) {
        return made;
    }
    const std::vector<int> places =
        actor_places(file, table, made.network.actors, nodes != nullptr, problems);
    if (!problems.empty()) {
        return made;
    }
    const std::vector<PlacedTie> placed = placed_ties(table, places, directed, made.counts);
    for (std::size_t begin = 0; begin < placed.size();) {
        std::size_t end = begin + 1;
        while (end < placed.size() && placed[end].tie == placed[begin].tie) {
            ++end;
        }
        join_ties(file, table, placed, begin, end, made, problems);
        begin = end;
    }
    count_actors(places, made);
    return made;
}

bool looks_directed(const TieTable& table) {
    if (table.directed) {
        return *table.directed;
    }
    std::vector<ActorTie> ties;
    for (const FileTie& tie : table.ties) {
        if (tie.tied && tie.from != tie.to) {
            ties.push_back({tie.from, tie.to});
        }
    }
    std::sort(ties.begin(), ties.end());
    ties.erase(std::unique(ties.begin(), ties.end()), ties.end());
    const auto returned = std::count_if(ties.begin(), ties.end(), [&](const ActorTie& tie) {
        return std::binary_search(ties.begin(), ties.end(), ActorTie{tie.to, tie.from});
    });
    const auto all = static_cast<std::ptrdiff_t>(ties.size());
    return table.whole ? returned < all : returned > 0 && returned < all;
}

std::vector<std::string> count_notes(const NetworkCounts& counts, bool directed) {
    std::vector<std::string> notes;
    const auto note = [&notes](int count, const std::string& text) {
        if (count > 0) {
            notes.push_back(text);
        }
    };
    notes.push_back(
        some(counts.actors, "actor", "actors") + ", " +
        (directed ? some(counts.ties, "arc", "arcs") : some(counts.ties, "tie", "ties")) +
        (counts.isolates > 0 ? ", " + some(counts.isolates, "isolate", "isolates") : ""));
    note(counts.self_ties,
         some(counts.self_ties, "tie", "ties") + " of an actor to itself left out");
    note(counts.duplicates,
         some(counts.duplicates, "tie", "ties") + " given once more, counted once");
    note(counts.given_both_ways,
         some(counts.given_both_ways, "tie", "ties") + " given both ways, counted once");
    note(counts.below_threshold,
         some(counts.below_threshold, "weight", "weights") + " below the threshold: no tie");
    note(counts.only_in_nodes, some(counts.only_in_nodes, "actor", "actors") +
                                   " of the nodes file without a tie in the network's file");
    return notes;
}
