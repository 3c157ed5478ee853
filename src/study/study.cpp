#include "study/study.h"

#include <algorithm>
#include <array>

#include "base/named_value.h"
#include "study/names.h"

namespace {

constexpr std::array<NamedValue<EstimationMethod>, 4> kMethods = {
    {{EstimationMethod::automatic, "auto"},
     {EstimationMethod::stochastic_approximation, "stochastic-approximation"},
     {EstimationMethod::mple, "mple"},
     {EstimationMethod::mcmle, "mcmle"}}};

// The entry of that very name, else one that differs only in what names are compared without.
template <class Entry>
const Entry* find_named(const std::vector<Entry>& entries, const std::string& name) {
    const auto exact = std::find_if(entries.begin(), entries.end(),
                                    [&](const Entry& each) { return each.name == name; });
    if (exact != entries.end()) {
        return &*exact;
    }
    const auto alike = std::find_if(entries.begin(), entries.end(), [&](const Entry& each) {
        return names_match(each.name, name);
    });
    return alike == entries.end() ? nullptr : &*alike;
}

}  // namespace

const char* attribute_type_name(AttributeType type) {
    switch (type) {
        case AttributeType::binary:
            return "binary";
        case AttributeType::continuous:
            return "continuous";
        case AttributeType::categorical:
            break;
    }
    return "categorical";
}

int missing_values(const StudyAttribute& attribute) {
    return static_cast<int>(
        std::count(attribute.values.begin(), attribute.values.end(), kMissingValue));
}

const char* estimation_method_name(EstimationMethod method) { return name_in(kMethods, method); }

std::optional<EstimationMethod> estimation_method_of(const std::string& name) {
    return value_in(kMethods, name);
}

double dyads_in(const StudyNetwork& network) {
    const auto n = static_cast<double>(network.actors.size());
    return n * (n - 1.0) / (network.directed ? 1.0 : 2.0);
}

double free_dyads(const Study& study) {
    return study.dyads.restricted ? static_cast<double>(study.dyads.free.size())
                                  : dyads_in(study.network);
}

const StudyAttribute* find_attribute(const Study& study, const std::string& name) {
    return find_named(study.attributes, name);
}

const StudyCovariate* find_covariate(const Study& study, const std::string& name) {
    return find_named(study.covariates, name);
}
