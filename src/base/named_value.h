// Tables that give each value of an enumeration its name.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

template <class Value>
struct NamedValue {
    Value value;
    const char* name;
};

// The value must stand in the table.
template <class Value, std::size_t count>
const char* name_in(const std::array<NamedValue<Value>, count>& table, Value value) {
    return std::find_if(table.begin(), table.end(),
                        [value](const NamedValue<Value>& each) { return each.value == value; })
        ->name;
}

// Names are compared by `same`.
template <class Value, std::size_t count, class Same = std::equal_to<>>
std::optional<Value> value_in(const std::array<NamedValue<Value>, count>& table,
                              std::string_view name, Same same = {}) {
    const auto place = std::find_if(table.begin(), table.end(), [&](const NamedValue<Value>& each) {
        return same(name, std::string_view(each.name));
    });
    return place == table.end() ? std::nullopt : std::optional(place->value);
}
