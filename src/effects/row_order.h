// Orders of catalogue rows, written as names or as rules and resolved when the catalogue is
// compiled. A name that no row bears, or that stands where it may stand once only, does not
// compile.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "effects/catalogue.h"

// The name by which an order speaks of a row: its label in update files.
constexpr std::string_view row_name(const StructuralEffect& effect) { return effect.row; }
constexpr std::string_view row_name(const AttributeEffect& effect) { return effect.update; }

// Number of the row with this name.
template <class Table>
constexpr int row_of(const Table& table, std::string_view name) {
    for (std::size_t row = 0; row < table.size(); ++row) {
        if (row_name(table[row]) == name) {
            return static_cast<int>(row);
        }
    }
    throw "no row bears this name";
}

template <std::size_t count>
constexpr bool each_once(std::array<int, count> order) {
    std::sort(order.begin(), order.end());
    return std::adjacent_find(order.begin(), order.end()) == order.end();
}

// Place of a row in an order.
template <class Table, std::size_t count>
constexpr std::size_t place_of(const Table& table, const std::array<int, count>& order,
                               std::string_view name) {
    const auto found = std::find(order.begin(), order.end(), row_of(table, name));
    if (found == order.end()) {
        throw "the order does not hold this row";
    }
    return static_cast<std::size_t>(found - order.begin());
}

// The rows of these names, each once.
template <class Table, std::size_t count>
constexpr std::array<int, count> rows_of(const Table& table, const char* const (&names)[count]) {
    std::array<int, count> order{};
    for (std::size_t place = 0; place < count; ++place) {
        order[place] = row_of(table, names[place]);
    }
    return each_once(order) ? order : throw "a row is named twice";
}

// Every row as it stands.
template <class Effect, std::size_t count>
constexpr std::array<int, count> all_rows(const std::array<Effect, count>&) {
    std::array<int, count> order{};
    for (std::size_t row = 0; row < count; ++row) {
        order[row] = static_cast<int>(row);
    }
    return order;
}

// The rows of these names in front of all others, which follow as they stand.
template <class Effect, std::size_t count, std::size_t named>
constexpr std::array<int, count> starting_with(const std::array<Effect, count>& table,
                                               const char* const (&names)[named]) {
    std::array<int, count> order = all_rows(table);
    const std::array<int, named> front = rows_of(table, names);
    for (std::size_t place = 0; place < named; ++place) {
        const auto found = std::find(order.begin(), order.end(), front[place]);
        std::rotate(order.begin() + place, found, found + 1);
    }
    return order;
}

// An order but for the rows of these names.
template <class Table, std::size_t count, std::size_t named>
constexpr std::array<int, count - named> without(const Table& table,
                                                 const std::array<int, count>& order,
                                                 const char* const (&names)[named]) {
    const std::array<int, named> left_out = rows_of(table, names);
    for (const char* name : names) {
        place_of(table, order, name);
    }
    std::array<int, count - named> rest{};
    std::copy_if(order.begin(), order.end(), rest.begin(), [&left_out](int row) {
        return std::find(left_out.begin(), left_out.end(), row) == left_out.end();
    });
    return rest;
}

// An order in which one row has moved to the place of another, towards the front or towards the
// end; the rows between make room.
template <class Table, std::size_t count>
constexpr std::array<int, count> moved(const Table& table, std::array<int, count> order,
                                       std::string_view name, std::string_view place) {
    const auto from = order.begin() + place_of(table, order, name);
    const auto to = order.begin() + place_of(table, order, place);
    if (to < from) {
        std::rotate(to, from, from + 1);
    } else {
        std::rotate(from, from + 1, to + 1);
    }
    return order;
}

// An order that names one row in place of another, and so may name it twice.
template <class Table, std::size_t count>
constexpr std::array<int, count> replaced(const Table& table, std::array<int, count> order,
                                          std::string_view name, std::string_view by) {
    order[place_of(table, order, name)] = row_of(table, by);
    return order;
}

// An order with one row more at its end, which may be its second place.
template <class Table, std::size_t count>
constexpr std::array<int, count + 1> followed_by(const Table& table,
                                                 const std::array<int, count>& order,
                                                 std::string_view name) {
    std::array<int, count + 1> longer{};
    std::copy(order.begin(), order.end(), longer.begin());
    longer[count] = row_of(table, name);
    return longer;
}
