#include "sampling/tie_no_tie.h"

#include <algorithm>
#include <utility>

#include "base/portable_log.h"
#include "network/network_verbs.h"

namespace {

bool refused_by_cap(const Graph& graph, Dyad dyad, int cap) {
    return graph.degree[static_cast<std::size_t>(dyad.i)] >= cap ||
           graph.degree[static_cast<std::size_t>(dyad.j)] >= cap;
}
bool refused_by_cap(const Digraph& digraph, Dyad dyad, int cap) {
    return digraph.out_degree[static_cast<std::size_t>(dyad.i)] >= cap;
}

// Before steps at the same parameters.
template <class Network>
void begin_steps(TieNoTieChain<Network>& chain) {
    part_model(chain.model, chain.parameters, chain.parted);
    chain.parted.give_start(chain.change);
}

template <class Network>
int make_step(TieNoTieChain<Network>& chain) {
    const double dyads = chain.dyads.count();
    if (dyads == 0.0) {
        return 0;
    }
    Network& network = chain.network;
    RandomStream& random = chain.random;
    const int ties = chain.ties.size();
    // The uniform number is made of the upper bits; the lowest one chooses the half.
    const std::uint64_t bits = random.bits();
    Dyad dyad;
    bool tied = false;
    if (ties > 0 && (bits & 1U) != 0) {
        const auto upper = static_cast<std::uint32_t>(random.bits() >> 32U);
        dyad = chain.ties[static_cast<int>(
            bits_below(upper, static_cast<std::uint32_t>(ties), random))];
        tied = true;
    } else {
        dyad = chain.dyads.draw(random);
        tied = has_tie(network, dyad.i, dyad.j);
    }
    if (!tied && refused_by_cap(network, dyad, chain.max_degree)) {
        return 0;
    }
    const double least = portable_log(uniform_of_bits(bits) / tie_no_tie_ratio(ties, dyads, !tied));
    if (tied) {
        remove_bit(network, dyad.i, dyad.j);
    }
    const int adding = tied ? 0 : 1;
    double* change = chain.change.data();
    const double log_odds =
        evaluate_weighted(network, chain.parted, change, dyad.i, dyad.j, adding);
    if (!((tied ? -log_odds : log_odds) > least)) {
        if (tied) {
            add_bit(network, dyad.i, dyad.j);
        }
        return 0;
    }
    evaluate_resting(network, chain.parted, change, dyad.i, dyad.j, adding);
    double* statistics = network.statistics.data();
    const std::size_t p = chain.change.size();
    if (tied) {
        for (std::size_t m = 0; m < p; ++m) {
            statistics[m] -= change[m];
        }
        chain.ties.remove(dyad);
    } else {
        for (std::size_t m = 0; m < p; ++m) {
            statistics[m] += change[m];
        }
        add_bit(network, dyad.i, dyad.j);
        chain.ties.add(dyad);
    }
    update_tables(chain.tables, network, dyad.i, dyad.j, adding);
    return 1;
}

template <class Network>
void make_steps(TieNoTieChain<Network>& chain, std::int64_t proposals, RunProgress& progress) {
    constexpr std::int64_t kBetweenChecks = 4096;
    begin_steps(chain);
    while (proposals > 0) {
        progress_check(progress);
        const std::int64_t block = std::min(proposals, kBetweenChecks);
        for (std::int64_t k = 0; k < block; ++k) {
            make_step(chain);
        }
        progress.work_done.fetch_add(static_cast<double>(block), std::memory_order_relaxed);
        proposals -= block;
    }
}

}  // namespace

DyadSpace::DyadSpace(int n, bool directed) : actors_(n < 2 ? 0 : n), directed_(directed) {
    count_ = n < 2 ? 0.0 : static_cast<double>(n) * (n - 1.0) / (directed ? 1.0 : 2.0);
}

DyadSpace::DyadSpace(std::vector<Dyad> dyads)
    : count_(static_cast<double>(dyads.size())), dyads_(std::move(dyads)) {}

TieList::TieList(int n, bool directed)
    : actors_(static_cast<std::size_t>(std::max(n, 0))), directed_(directed) {
    const std::size_t pairs = actors_ * actors_;
    places_.assign(directed ? pairs : (pairs - actors_) / 2, 0);
}

template <class Network>
void tie_no_tie_prepare(TieNoTieChain<Network>& chain) {
    chain.change.assign(chain.network.statistics.size(), 0.0);
}
template void tie_no_tie_prepare<Graph>(TieNoTieChain<Graph>&);
template void tie_no_tie_prepare<Digraph>(TieNoTieChain<Digraph>&);

template <class Network>
int tie_no_tie_step(TieNoTieChain<Network>& chain) {
    begin_steps(chain);
    return make_step(chain);
}
template int tie_no_tie_step<Graph>(TieNoTieChain<Graph>&);
template int tie_no_tie_step<Digraph>(TieNoTieChain<Digraph>&);

template <class Network>
void tie_no_tie_run(TieNoTieChain<Network>& chain, std::int64_t proposals, RunProgress& progress) {
    if (chain.tables.wait) {
        make_steps(chain, proposals, progress);
        return;
    }
    tie_no_tie_tables_begin(chain, proposals);
    try {
        make_steps(chain, proposals, progress);
    } catch (...) {
        tie_no_tie_tables_end(chain);
        throw;
    }
    tie_no_tie_tables_end(chain);
}
template void tie_no_tie_run<Graph>(TieNoTieChain<Graph>&, std::int64_t, RunProgress&);
template void tie_no_tie_run<Digraph>(TieNoTieChain<Digraph>&, std::int64_t, RunProgress&);

template <class Network>
void tie_no_tie_tables_begin(TieNoTieChain<Network>& chain, std::int64_t proposals) {
    // Toggles move cells by the ties of their actors. To count the tables anew moves a cell for
    // each two-path, at less than half the cost, and wipes them out a hundred cells at that cost.
    const double n = chain.network.vertices;
    const double degree = n > 0.0 ? tie_count(chain.network) / n : 0.0;
    const double toggled = static_cast<double>(proposals) * degree;
    const double counted = n * degree * degree / 2.0 + n * n / 100.0;
    chain.tables.wait = toggled >= counted && !reads_tables(chain.model);
}
template void tie_no_tie_tables_begin<Graph>(TieNoTieChain<Graph>&, std::int64_t);
template void tie_no_tie_tables_begin<Digraph>(TieNoTieChain<Digraph>&, std::int64_t);

template <class Network>
void tie_no_tie_tables_end(TieNoTieChain<Network>& chain) {
    catch_up(chain.tables, chain.network);
}
template void tie_no_tie_tables_end<Graph>(TieNoTieChain<Graph>&);
template void tie_no_tie_tables_end<Digraph>(TieNoTieChain<Digraph>&);
