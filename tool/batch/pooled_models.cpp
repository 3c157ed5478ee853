#include "batch/pooled_models.h"

#include <algorithm>
#include <cmath>

void PooledModel::add(const Job& job, const std::string& verdict, const ResultRecord* result) {
    if (networks_.empty() || networks_.back().number != job.network) {
        networks_.push_back({job.network, verdict, false});
    }
    Network& network = networks_.back();
    if (result != nullptr && verdict == "converged" && !network.used) {
        network.used = true;
        take(*result);
    }
}

// An effect that is held has no standard error and is no estimate.
void PooledModel::take(const ResultRecord& result) {
    for (const ResultEffect& effect : result.effects) {
        if (effect.fixed || !std::isfinite(effect.estimate) || !(effect.standard_error > 0.0)) {
            continue;
        }
        const auto place = std::find(names_.begin(), names_.end(), effect.name);
        const auto k = static_cast<std::size_t>(place - names_.begin());
        if (place == names_.end()) {
            names_.push_back(effect.name);
            groups_.emplace_back();
        }
        groups_[k].push_back({effect.estimate, effect.standard_error});
    }
}

std::vector<PooledModel::Effect> PooledModel::effects() const {
    std::vector<Effect> effects;
    for (std::size_t k = 0; k < names_.size(); ++k) {
        effects.push_back({names_[k], pool_estimates(groups_[k])});
    }
    return effects;
}

std::vector<LeftOut> PooledModel::left_out() const {
    std::vector<LeftOut> list;
    for (const Network& each : networks_) {
        if (!each.used) {
            list.push_back({each.number, each.verdict});
        }
    }
    return list;
}
