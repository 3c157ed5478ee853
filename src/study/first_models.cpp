#include "study/first_models.h"

#include <algorithm>
#include <functional>

#include "study/estimability.h"

namespace {

using Effects = std::vector<std::string>;

// A first model has no more attributes than people can take in.
constexpr std::size_t kMostAttributes = 4;

// Neighbours of each actor, ascending, whatever the direction; counts the dyads on the way.
std::vector<std::vector<int>> neighbours_of(const StudyNetwork& network, NetworkLook& look) {
    std::vector<std::vector<int>> neighbours(network.actors.size());
    for (const ActorTie& tie : network.ties) {
        neighbours[static_cast<std::size_t>(tie.from)].push_back(tie.to);
        neighbours[static_cast<std::size_t>(tie.to)].push_back(tie.from);
    }
    std::size_t dyads = 0;
    for (std::vector<int>& each : neighbours) {
        std::sort(each.begin(), each.end());
        each.erase(std::unique(each.begin(), each.end()), each.end());
        dyads += each.size();
    }
    dyads /= 2;
    if (network.directed) {
        look.mutual = static_cast<int>(network.ties.size() - dyads);
        look.asymmetric = static_cast<int>(dyads) - look.mutual;
    }
    return neighbours;
}

// Values above `least` that both ascending lists have.
std::int64_t common_above(const std::vector<int>& a, const std::vector<int>& b, int least) {
    auto x = std::upper_bound(a.begin(), a.end(), least);
    auto y = std::upper_bound(b.begin(), b.end(), least);
    std::int64_t count = 0;
    while (x != a.end() && y != b.end()) {
        if (*x == *y) {
            ++count;
            ++x;
            ++y;
        } else {
            *x < *y ? ++x : ++y;
        }
    }
    return count;
}

// The model without the effects that cannot be estimated; empty when the first, the ties, cannot.
Effects estimable(const Study& study, Effects wanted) {
    const std::string ties = wanted.front();
    while (!wanted.empty() && wanted.front() == ties) {
        Study trial = study;
        trial.model.effects.clear();
        for (const std::string& each : wanted) {
            trial.model.effects.push_back({parse_effect(each).expression, {}, {}});
        }
        StudySelection resolved = study_selection(trial);
        std::vector<int> faulty = resolved.faulty_effects;
        if (resolved.ok()) {
            faulty = study_estimability(trial, resolved).faulty_effects;
        }
        if (faulty.empty()) {
            return wanted;
        }
        // From the last on, so that the numbers of those before stay.
        std::sort(faulty.begin(), faulty.end(), std::greater<>());
        faulty.erase(std::unique(faulty.begin(), faulty.end()), faulty.end());
        for (const int effect : faulty) {
            wanted.erase(wanted.begin() + effect);
        }
    }
    return {};
}

Effects plain_effects(const Study& study, const NetworkLook& look) {
    const bool directed = study.network.directed;
    Effects effects = {directed ? "arc" : "edge"};
    if (directed && look.mutual > 0 && look.asymmetric > 0) {
        effects.emplace_back("reciprocity");
    }
    if (look.triangles > 0) {
        effects.emplace_back(directed ? "AT-T(2)" : "AT(2)");
    }
    return estimable(study, effects);
}

Effects with_degrees(const Study& study, Effects effects) {
    if (study.network.directed) {
        effects.insert(effects.end(), {"AinS(2)", "AoutS(2)"});
    } else {
        effects.emplace_back("AS(2)");
    }
    return estimable(study, effects);
}

// Likeness of the two ends: the same category, or a small difference of numbers.
Effects with_attributes(const Study& study, Effects effects) {
    const std::size_t most = std::min(study.attributes.size(), kMostAttributes);
    for (std::size_t k = 0; k < most; ++k) {
        const StudyAttribute& attribute = study.attributes[k];
        EffectExpression expression;
        expression.name = attribute.type == AttributeType::continuous ? "difference" : "same";
        expression.argument = attribute.name;
        effects.push_back(effect_text(expression));
    }
    return estimable(study, effects);
}

std::string about_plain(const Effects& effects) {
    std::string about = "ties";
    for (const std::string& each : effects) {
        about += each == "reciprocity"    ? ", reciprocity"
                 : each.starts_with("AT") ? ", closure"
                                          : "";
    }
    return about;
}

}  // namespace

NetworkLook look_at(const StudyNetwork& network) {
    NetworkLook look;
    const std::vector<std::vector<int>> neighbours = neighbours_of(network, look);
    std::size_t ends = 0;
    for (std::size_t i = 0; i < neighbours.size(); ++i) {
        const auto count = static_cast<int>(neighbours[i].size());
        look.least_neighbours = i == 0 ? count : std::min(look.least_neighbours, count);
        look.most_neighbours = std::max(look.most_neighbours, count);
        ends += neighbours[i].size();
        for (const int j : neighbours[i]) {
            if (j > static_cast<int>(i)) {
                look.triangles +=
                    common_above(neighbours[i], neighbours[static_cast<std::size_t>(j)], j);
            }
        }
    }
    look.mean_neighbours = neighbours.empty()
                               ? 0.0
                               : static_cast<double>(ends) / static_cast<double>(neighbours.size());
    return look;
}

std::vector<FirstModel> first_models(const Study& study, const NetworkLook& look) {
    const Effects plain = plain_effects(study, look);
    std::vector<FirstModel> models;
    const auto add = [&](const std::string& about, const Effects& effects) {
        const bool known = std::any_of(models.begin(), models.end(), [&](const FirstModel& each) {
            return each.effects == effects;
        });
        if (!effects.empty() && !known) {
            models.push_back({about, effects});
        }
    };
    if (plain.empty()) {
        return models;
    }
    add(about_plain(plain), plain);
    add("with the spread of degrees", with_degrees(study, plain));
    add("with the likeness of the actors' attributes", with_attributes(study, plain));
    add("ties alone, to compare with", {plain.front()});
    models.resize(std::min<std::size_t>(models.size(), 3));
    return models;
}
