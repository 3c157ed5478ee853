// One row of any table of effects: a name and its two functions, found by name.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace reference {

// `change` is what adding the tie (or arc) i, j would add to the statistic; `count` is the
// statistic of a whole network. `Data` is whatever else both read: a lambda, an attribute, a
// covariate.
template <typename State, typename Network, typename Data>
struct Effect {
    std::string_view name;
    double (*change)(const State& state, int i, int j, Data data);
    double (*count)(const Network& network, Data data);
};

// Throws std::out_of_range with the name when no row bears it.
template <typename Row>
const Row& find_effect(const std::vector<Row>& table, std::string_view name) {
    for (const Row& row : table) {
        if (row.name == name) {
            return row;
        }
    }
    throw std::out_of_range("no effect is called " + std::string(name));
}

}  // namespace reference
