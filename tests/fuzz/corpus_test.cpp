// Replays the fuzzing corpora without a fuzzer: every input of every target must be survived.
#include <gtest/gtest.h>

#include "fuzz/corpus.h"
#include "fuzz/targets.h"

namespace {

class Corpus : public testing::TestWithParam<const FuzzTarget*> {};

std::vector<const FuzzTarget*> all_targets() {
    std::vector<const FuzzTarget*> targets;
    for (const FuzzTarget& target : fuzz_targets()) {
        targets.push_back(&target);
    }
    return targets;
}

}  // namespace

TEST_P(Corpus, IsSurvived) {
    const std::vector<std::string> inputs = seed_inputs(GetParam()->name);
    ASSERT_GT(inputs.size(), 2U);
    for (const std::string& input : inputs) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(input.data());
        GetParam()->run(bytes, input.size());
        // Cut anywhere, it is an input too.
        GetParam()->run(bytes, input.size() / 2);
        GetParam()->run(bytes, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, Corpus, testing::ValuesIn(all_targets()),
                         [](const testing::TestParamInfo<const FuzzTarget*>& each) {
                             return std::string(each.param->name);
                         });
