// Every golden run through the Java machine and the host that is shipped, against the same run
// without a Java machine between.
#include <gtest/gtest.h>

#include "java/java_machine.h"
#include "support/direct_call.h"

namespace {

class GoldenRunInJava : public JavaTest, public testing::WithParamInterface<std::string> {};

TEST_P(GoldenRunInJava, LeavesTheBytesOfTheDirectCall) {
    if (kSanitized) {
        GTEST_SKIP()
            << "under the sanitizers the golden runs are made directly, and in one Java machine";
    }
    const ScratchDirectory scratch;
    const auto direct = scratch.path() / "direct";
    const auto java = scratch.path() / "java";
    copy_golden_inputs(GetParam(), direct);
    copy_golden_inputs(GetParam(), java);

    const DirectResult expected = call_directly(direct, "run.setup");
    const ChildResult actual = run_host(java, {"run.setup"});

    EXPECT_EQ(actual.status, 0) << actual.errors;
    EXPECT_FALSE(actual.timed_out);
    EXPECT_EQ(actual.output, expected.console);
    EXPECT_FALSE(outputs_in(direct, GetParam()).empty());
    EXPECT_EQ(difference(outputs_in(direct, GetParam()), outputs_in(java, GetParam())), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenRunInJava, testing::ValuesIn(golden_case_names()),
                         [](const testing::TestParamInfo<std::string>& each) {
                             return each.param;
                         });

}  // namespace
