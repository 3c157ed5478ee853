#include "show/effect_document.h"

#include <nlohmann/json.hpp>

#include "encyclopaedia/effect_article.h"
#include "formats/csv.h"

namespace {

using Json = nlohmann::ordered_json;

Json text_or_null(const char* text) { return text != nullptr ? Json(text) : Json(nullptr); }

const char* cost_name(Cost cost) {
    switch (cost) {
        case Cost::constant:
            return "constant";
        case Cost::common_neighbours:
            return "common_neighbours";
        case Cost::neighbours:
            return "neighbours";
        case Cost::neighbourhood:
            return "neighbourhood";
        case Cost::cliques:
            return "cliques";
        case Cost::network:
            return "network";
    }
    return "";
}

const char* dependence_name(Dependence dependence) {
    return dependence == Dependence::none          ? "none"
           : dependence == Dependence::reverse_arc ? "reverse_arc"
                                                   : "other_dyads";
}

const char* agreement_name(Agreement agreement) {
    switch (agreement) {
        case Agreement::always:
            return "always";
        case Agreement::above_lambda_one:
            return "above_lambda_one";
        case Agreement::zero_one_values:
            return "zero_one_values";
        case Agreement::values_from_zero:
            return "values_from_zero";
        case Agreement::never:
            return "never";
    }
    return "";
}

const char* group_key(const EffectEntry& entry) {
    if (!entry.group) {
        return "structural";
    }
    constexpr std::array<const char*, kAttributeGroups> kKeys = {"binary", "continuous",
                                                                 "categorical", "covariate"};
    return kKeys[static_cast<std::size_t>(*entry.group)];
}

const char* law_name(WeightLaw law) {
    return law == WeightLaw::rising    ? "rising"
           : law == WeightLaw::falling ? "falling"
           : law == WeightLaw::none    ? "none"
                                       : "alternating";
}

// Null for an effect without lambda; without weights for one whose weights are no sequence.
Json lambda_field(const EffectEntry& entry) {
    if (!entry.alternating) {
        return nullptr;
    }
    const LambdaWeights& lambda = entry.page->lambda;
    Json field = {{"least", 1.0},
                  {"law", law_name(lambda.law)},
                  {"counted", text_or_null(lambda.counted)},
                  {"weights", Json::array()}};
    if (lambda.law != WeightLaw::none) {
        for (const double value : kDrawnLambdas) {
            Json weights = Json::array();
            const int first = first_weight(lambda.law);
            for (int k = first; k < first + drawn_weights(lambda.law); ++k) {
                weights.push_back(lambda_weight(lambda.law, value, k));
            }
            field["weights"].push_back({{"lambda", value}, {"from", first}, {"values", weights}});
        }
    }
    return field;
}

Json label_field(const EffectEntry& entry) {
    Json labels = Json::array();
    for (const HostLabel& label : host_labels(entry)) {
        labels.push_back({{"label", label.label}, {"places", label.places}});
    }
    return labels;
}

Json effect_fields(const EffectEntry& entry) {
    const EffectPage& page = *entry.page;
    return {{"name", entry.facts.name},
            {"written", written_name(entry)},
            {"network", kind_name(entry.kind)},
            {"group", group_key(entry)},
            {"section", section_title(entry)},
            {"meaning", entry.facts.meaning},
            {"drawing", drawing_lines(entry)},
            {"count", entry.facts.formula},
            {"change", text_or_null(page.change)},
            {"letters", notation_lines(entry)},
            {"lambda", lambda_field(entry)},
            {"cost", cost_name(entry.facts.cost)},
            {"dependence", dependence_name(entry.facts.dependence)},
            {"agreement", agreement_name(entry.facts.agreement)},
            {"carried", entry.facts.carried},
            {"oddities", oddities(entry)},
            {"host_labels", label_field(entry)},
            {"second_row", text_or_null(entry.second_row)},
            {"literature", page.literature},
            {"other_terms", other_terms(entry)},
            {"conversion", text_or_null(page.conversion)},
            {"references", reference_lines(entry)},
            {"keywords", page.keywords}};
}

}  // namespace

std::string effect_document(const std::vector<const EffectEntry*>& entries) {
    Json document = {{"format", "ovri-effects/1"}, {"effects", Json::array()}};
    for (const EffectEntry* entry : entries) {
        document["effects"].push_back(effect_fields(*entry));
    }
    return document.dump(2) + "\n";
}

std::string effect_csv(const std::vector<const EffectEntry*>& entries) {
    std::string text = "name,kind,data,written,meaning\n";
    for (const EffectEntry* entry : entries) {
        text += csv_field(entry->facts.name) + "," + kind_name(entry->kind) + "," +
                group_key(*entry) + "," + csv_field(written_name(*entry)) + "," +
                csv_field(entry->facts.meaning) + "\n";
    }
    return text;
}
