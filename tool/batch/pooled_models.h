// Estimates of each model of a plan over its networks, pooled.
#pragma once

#include <string>
#include <vector>

#include "batch/jobs.h"
#include "show/result_record.h"
#include "study/pooling.h"

// A network that is not among the pooled ones, and why.
struct LeftOut {
    std::size_t network = 0;
    std::string verdict;
};

// One model as its jobs come in, in the order of their numbers. A network counts once, by the first
// of its seeds that converged: estimates of one network by several seeds tell nothing new of other
// networks.
class PooledModel {
  public:
    void add(const Job& job, const std::string& verdict, const ResultRecord* result);

    struct Effect {
        std::string name;
        PooledEstimate pooled;
    };
    std::vector<Effect> effects() const;
    std::vector<LeftOut> left_out() const;
    int networks() const { return static_cast<int>(networks_.size()); }

  private:
    struct Network {
        std::size_t number = 0;
        std::string verdict;
        bool used = false;
    };
    void take(const ResultRecord& result);

    std::vector<Network> networks_;
    std::vector<std::string> names_;
    std::vector<std::vector<GroupEstimate>> groups_;  // by effect
};
