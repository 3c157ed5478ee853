// Directed chains against all 64 networks on three actors and all 4,096 on four.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>

#include "support/exact_distributions.h"

namespace {

enum Proposal { kToggle = 0, kSwap = 1, kSenderSwap = 2 };

std::vector<ModelTerm> terms(double reciprocity) {
    return {{"arc", -0.5}, {"reciprocity", reciprocity}, {"path2", 0.1}, {"AinS", 0.2, 2.0F}};
}

struct Setting {
    int n = 4;
    Proposal proposal = kToggle;
    int cap = kNoCap;
    const BitMatrix* free_dyads = nullptr;
    std::uint32_t start = 0;
    int samples = kSamples;
};

using InClass = std::function<bool(const Digraph&)>;

bool everything(const Digraph&) { return true; }

// Near its own distribution, and far from that of a model with another reciprocity.
void expect_stationary(const Setting& setting, const InClass& in_class) {
    const ChainModel<Digraph> model(terms(0.6));
    Digraph digraph = network_of_code<Digraph>(setting.n, setting.start, model.size());
    count_statistics(digraph, model.active);
    RandomSource random{4711, {}};
    Chain<Digraph> chain = test_chain(digraph, model, random, setting.proposal);
    chain.max_degree = setting.cap;
    chain.free_dyads = setting.free_dyads;
    const Distribution visits = chain_frequencies(chain, setting.samples, 10);
    for (std::size_t code = 0; code < visits.size(); ++code) {
        const auto network = network_of_code<Digraph>(setting.n, static_cast<std::uint32_t>(code));
        ASSERT_TRUE(visits[code] == 0.0 || in_class(network)) << "network " << code;
    }
    const ChainModel<Digraph> wrong(terms(1.0));
    expect_near_first(visits, exact_distribution<Digraph>(model, setting.n, in_class),
                      exact_distribution<Digraph>(wrong, setting.n, in_class), setting.samples);
}

InClass arcs_are(int arcs) {
    return [arcs](const Digraph& digraph) { return digraph.arcs == arcs; };
}

TEST(ExactDigraph, TogglesOnThreeActors) {
    expect_stationary({.n = 3, .proposal = kToggle}, everything);
}

TEST(ExactDigraph, TogglesOnFourActors) {
    expect_stationary({.proposal = kToggle, .samples = 2 * kSamples}, everything);
}

TEST(ExactDigraph, TogglesUnderACapBoundTheArcsSent) {
    const auto within = [](const Digraph& digraph) {
        return *std::max_element(digraph.out_degree.begin(), digraph.out_degree.end()) <= 1;
    };
    expect_stationary({.proposal = kToggle, .cap = 1}, within);
}

TEST(ExactDigraph, TogglesOfFreeDyadsLeaveTheOthersAsTheyWere) {
    const std::uint32_t fixed = 0b000100000110;
    const std::uint32_t start = 0b000100000010;
    const Digraph free_dyads = network_of_code<Digraph>(4, 0xFFFU & ~fixed);
    const auto in_class = [&](const Digraph& digraph) {
        return (code_of_network(digraph) & fixed) == (start & fixed);
    };
    expect_stationary({.proposal = kToggle, .free_dyads = &free_dyads.adjacency, .start = start},
                      in_class);
}

TEST(ExactDigraph, SwapsOnThreeActorsKeepTheArcs) {
    expect_stationary({.n = 3, .proposal = kSwap, .start = 0b000111}, arcs_are(3));
}

TEST(ExactDigraph, SwapsOnFourActorsKeepTheArcs) {
    expect_stationary({.proposal = kSwap, .start = 0b000000011111}, arcs_are(5));
}

TEST(ExactDigraph, SwapsOfFreeDyadsKeepTheArcsElsewhere) {
    const std::uint32_t fixed = 0b000100000110;
    const std::uint32_t start = 0b000111000011;
    const Digraph free_dyads = network_of_code<Digraph>(4, 0xFFFU & ~fixed);
    const auto in_class = [&](const Digraph& digraph) {
        return digraph.arcs == std::popcount(start) &&
               (code_of_network(digraph) & fixed) == (start & fixed);
    };
    expect_stationary({.proposal = kSwap, .free_dyads = &free_dyads.adjacency, .start = start},
                      in_class);
}

TEST(ExactDigraph, SenderSwapsKeepTheArcsThatEachActorSends) {
    // Actors 0 to 2 send two arcs, actor 3 sends one and therefore never swaps it.
    const std::uint32_t start = 0b001011011011;
    const std::uint32_t of_actor_3 = 0b111000000000;
    const auto in_class = [&](const Digraph& digraph) {
        return digraph.out_degree == std::vector<int>({2, 2, 2, 1}) &&
               (code_of_network(digraph) & of_actor_3) == (start & of_actor_3);
    };
    expect_stationary({.proposal = kSenderSwap, .start = start}, in_class);
}

TEST(ExactDigraph, SenderSwapsOfFreeDyadsKeepTheOtherArcs) {
    // Of actor 0 the arc to actor 1 is not free.
    const std::uint32_t fixed = 0b000000000001;
    const std::uint32_t start = 0b011011011011;
    const Digraph free_dyads = network_of_code<Digraph>(4, 0xFFFU & ~fixed);
    const auto in_class = [&](const Digraph& digraph) {
        return digraph.out_degree == std::vector<int>({2, 2, 2, 2}) &&
               (code_of_network(digraph) & fixed) == (start & fixed);
    };
    expect_stationary(
        {.proposal = kSenderSwap, .free_dyads = &free_dyads.adjacency, .start = start}, in_class);
}

}  // namespace
