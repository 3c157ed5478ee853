#include "support/attribute_effect_checks.h"

#include <iomanip>
#include <string>

namespace {

::FloatTable engine_table(const reference::FloatTable& pairs) {
    const int n = static_cast<int>(pairs.size());
    ::FloatTable table(n, n);
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column) {
            table[row][column] = reference::cell(pairs, row, column);
        }
    }
    return table;
}

}  // namespace

const AttributeEffect& graph_attribute_effect(AttributeGroup group, std::string_view name) {
    const auto effects = group_catalogue(graph_catalogue(), group).effects;
    for (const AttributeEffect& effect : effects) {
        if (effect.labels.report == "%s_" + std::string(name)) {
            return effect;
        }
    }
    ADD_FAILURE() << "no attribute effect " << name;
    return effects.front();
}

EngineAttribute::EngineAttribute(const reference::Codes& codes) : coded_(coded_attribute(codes)) {
    data_.coded = &coded_;
}

EngineAttribute::EngineAttribute(const reference::FloatTable& pairs) : pairs_(engine_table(pairs)) {
    data_.pairs = &pairs_;
}

testing::AssertionResult attribute_number_differs(std::string_view name, const char* what,
                                                  const reference::PlainGraph& plain, int i, int j,
                                                  double found, double expected) {
    testing::AssertionResult result = testing::AssertionFailure();
    result << name << ", " << what << ' ' << i << '-' << j << ": " << std::setprecision(17) << found
           << ", expected " << expected << "; n = " << plain.n << ", ties";
    for (int a = 0; a < plain.n; ++a) {
        for (int b = a + 1; b < plain.n; ++b) {
            if (reference::tied(plain, a, b)) {
                result << ' ' << a << '-' << b;
            }
        }
    }
    return result;
}
