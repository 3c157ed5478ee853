// Many short calls of every mode and kind in one Java machine: neither memory nor open files grow.
//
// 300 calls here; tests/java_calls.sh makes as many as it is told.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "java/java_machine.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"

namespace {

constexpr int kActors = 8;

struct State {
    long resident = 0;
    int open = 0;
};

std::map<int, State> states_of(const ChildResult& child) {
    std::map<int, State> states;
    std::istringstream lines(child.errors);
    for (std::string line; std::getline(lines, line);) {
        int call = 0;
        State state;
        if (std::sscanf(line.c_str(), "call %d resident %ld open %d", &call, &state.resident,
                        &state.open) == 3) {
            states[call] = state;
        }
    }
    return states;
}

SetupText short_setup(NetworkKind kind, int mode) {
    SetupText setup;
    setup.kind = kind;
    setup.mode = mode;
    setup.actors = kActors;
    setup.effects = kind == NetworkKind::directed ? std::vector<ModelTerm>{{"arc", -0.5}}
                                                  : std::vector<ModelTerm>{{"edge", -0.5}};
    setup.attributes = attribute_section(kind, 1, "0.01");
    setup.covariates = covariate_section(kind, 1, "0.001");
    setup.switches = {1, 1, 1, 1, 1, 1, 1};
    setup.phase3_steps = 20;
    return setup;
}

class ManyCalls : public JavaTest {};

}  // namespace

TEST_F(ManyCalls, LeaveMemoryAndOpenFilesAsTheyWere) {
#ifdef OVRI_SANITIZER_RUNTIME
    GTEST_SKIP() << "the sanitizers keep what is released";
#endif
    const char* wanted = std::getenv("OVRI_JAVA_CALLS");
    const int calls = wanted != nullptr ? std::atoi(wanted) : 300;
    const int first = calls >= 1000 ? 500 : calls / 3;
    const ScratchDirectory scratch;
    for (const auto& [name, text] : attribute_files(kActors)) {
        scratch.write(name, text);
    }
    const ChainModel<Digraph> none({});
    scratch.write("network.txt", matrix_text(random_network(none, kActors, 0.4, 3)));
    scratch.write("covariance.txt", "0.01\n");
    std::vector<std::string> arguments = {std::to_string(calls), std::to_string(first)};
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 2, 3, 4}) {
            std::string name = kind == NetworkKind::directed ? "digraph" : "graph";
            name += std::to_string(mode) + ".setup";
            scratch.write(name, setup_text(short_setup(kind, mode)));
            arguments.push_back(name);
        }
    }
    const ChildResult child = run_probe(scratch.path(), arguments, "ManyCalls");
    std::map<int, State> states = states_of(child);
    ASSERT_EQ(states.size(), 3U) << child.errors;
    EXPECT_TRUE(child.errors.ends_with("alive\n")) << child.errors;
    EXPECT_LT(states[calls].resident - states[first].resident, 1024)
        << "kB from call " << first << " to " << calls;
    EXPECT_EQ(states[first].open, 0);
    EXPECT_EQ(states[calls].open, 0);
    std::printf("resident %ld kB after call %d, %ld kB after call %d\n", states[first].resident,
                first, states[calls].resident, calls);
}
