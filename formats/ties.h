// The ties of a file as they stand there, and how a network is made of them.
//
// A reader of a format fills a TieTable: names, ties with the line they stand on, what the format
// says about direction. What is common to all formats happens once, in assemble_network: actors are
// matched with those of the nodes file, a tie given twice becomes one, a tie of an actor to itself
// is left out, and all of it is counted so that it can be told.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "study/problem.h"
#include "study/study.h"

// More actors than the engine's tables can hold.
constexpr int kMostActors = 65535;
// A file is not read on behind so many problems.
constexpr std::size_t kMostProblems = 10;

// Names in order of their first appearance.
class NameTable {
  public:
    NameTable() = default;
    NameTable(const NameTable&) = delete;
    NameTable& operator=(const NameTable&) = delete;
    NameTable(NameTable&&) = default;
    NameTable& operator=(NameTable&&) = default;

    // The number of a name, a new one if it is new.
    int add(std::string_view name);
    // The number of a name, or -1.
    int find(std::string_view name) const;
    int size() const { return static_cast<int>(names_.size()); }
    const std::string& operator[](int number) const {
        return names_[static_cast<std::size_t>(number)];
    }

  private:
    // A deque never moves what it holds, so the map's keys stay.
    std::deque<std::string> names_;
    std::unordered_map<std::string_view, int> numbers_;
};

struct FileTie {
    int from = 0;
    int to = 0;
    int line = 0;
    // False where a weight below the threshold stands: the dyad is named, and not tied.
    bool tied = true;
};

// An attribute of the actors as a network's file holds it.
struct ActorColumn {
    std::string name;
    std::vector<std::string> values;  // one an actor, empty where it has none
};

struct TieTable {
    NameTable actors;
    bool named = true;                 // false: the actors' numbers are their places, 1 first
    std::vector<FileTie> ties;         // as they stand
    std::optional<bool> directed;      // what the format says
    bool whole = false;                // a matrix: both cells of a dyad stand there
    std::vector<ActorColumn> columns;  // in the order of `actors`
    std::vector<std::string> notes;
};

// What was read, counted.
struct NetworkCounts {
    int actors = 0;
    int ties = 0;
    int isolates = 0;
    int self_ties = 0;        // left out
    int duplicates = 0;       // the same tie once more
    int given_both_ways = 0;  // dyads of an undirected list that stand there in both orders
    int below_threshold = 0;
    int only_in_nodes = 0;  // actors of the nodes file that no tie names
};

// Actors of a nodes file, in its order; null without one.
using ActorList = std::vector<std::string>;

struct AssembledNetwork {
    StudyNetwork network;
    NetworkCounts counts;
};

// Makes a network of the ties of `file`. Without a nodes file actors are in order of appearance,
// whole numbers in ascending order. Problems: an actor that the nodes file does not have, a dyad
// that is asymmetric in an undirected network, more than kMostActors actors, none at all.
AssembledNetwork assemble_network(const std::string& file, const TieTable& table, bool directed,
                                  const ActorList* nodes, Problems& problems);

// Whether the ties look directed: some dyad of a matrix is asymmetric, some but not all dyads of a
// list stand there in both orders.
bool looks_directed(const TieTable& table);

// One line for each kind of thing that was left out or joined, in words.
std::vector<std::string> count_notes(const NetworkCounts& counts, bool directed);
