// Every opening, writing and piece of memory of a run made to fail in turn: no crash, no hang, and
// a status that says whether the results are whole.
#include <filesystem>
#include <sstream>

#include "support/child_process.h"
#include "support/golden_cases.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;

struct CallCounts {
    long open = 0;
    long write = 0;
    long memory = 0;
};

class FailingCalls : public ToolTest, public testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
#ifdef OVRI_SANITIZED
        GTEST_SKIP() << "the sanitizers have a memory of their own";
#endif
        ToolSetup setup;
        setup.mode = GetParam();
        setup.effects = {{"edge", "1 -0.5"}, {"Triangle", "1 0.1"}};
        setup.attributes =
            "Attributes 1\nBinary 1\n1\nFile member.txt\n" + rows() + "Continuous 0\nCategorical 0";
        setup.sample_graphs = "1";
        setup.burn_in = "10";
        setup.iterations = "40";
        setup.samples = "2";
        setup.multiplication_factor = "2";
        setup.phase3_steps = "20";
        scratch.write("member.txt", "member\n1\n0\n1\n0\n1\n");
        scratch.write("covariance.txt", "0.1 0 0\n0 0.1 0\n0 0 0.1\n");
        scratch.write("net.setup", setup.text());
        expected_ = run("memory 0").second;
    }

    static std::string rows() {
        std::string text;
        const auto& group =
            group_catalogue(catalogue_of(NetworkKind::undirected), AttributeGroup::binary);
        for (std::size_t row = 0; row < group.setup_order.size(); ++row) {
            text += row == 0 ? "Row 1 0.1\n" : "Row 0 0\n";
        }
        return text;
    }

    // The run with that call failing, and what it leaves.
    std::pair<ChildResult, FileTexts> run(const std::string& failing) {
        fs::remove_all(scratch.path() / "out");
        fs::create_directory(scratch.path() / "out");
        ChildSetting setting;
        setting.command = {OVRI_TOOL_PATH, "run",     "net.setup", "--no-check",
                           "--quiet",      "--clock", "5"};
        setting.directory = scratch.path();
        setting.environment = {{"LD_PRELOAD", OVRI_FAILING_CALLS_PATH},
                               {"OVRI_FAIL", failing},
                               {"OVRI_COUNTS", (scratch.path() / "counts").string()}};
        setting.limit = std::chrono::seconds(60);
        ChildResult child = run_child(setting);
        std::istringstream counts(file_text(scratch.path() / "counts"));
        counts >> counts_.open >> counts_.write >> counts_.memory;
        return {std::move(child), files_in(scratch.path() / "out")};
    }

    // Every `stride`-th of the calls fails, one a run.
    void fail_each(const std::string& kind, long calls, long stride, const std::string& tail = "") {
        for (long call = 1; call <= calls; call += stride) {
            const std::string failing = kind + " " + std::to_string(call) + tail;
            const auto [child, files] = run(failing);
            EXPECT_FALSE(child.timed_out) << failing;
            const bool whole = files == expected_;
            const bool told = child.status == 1 || child.status == 3;
            EXPECT_TRUE(child.status == 0 ? whole : told)
                << failing << " ends in status " << child.status << "\n"
                << child.errors;
            EXPECT_EQ(child.status == 0, child.errors.empty()) << failing << child.errors;
        }
    }

    CallCounts counts_;
    FileTexts expected_;
};

}  // namespace

TEST_P(FailingCalls, OfFilesThatCannotBeOpenedAreTold) {
    ASSERT_GT(counts_.open, 10);
    fail_each("open", counts_.open, 1);
}

TEST_P(FailingCalls, OfSectionsThatCannotBeWrittenAreTold) {
    ASSERT_GT(counts_.write, 8);
    const long writes = counts_.write;
    fail_each("write", writes, 1);
    fail_each("write", writes, 5, " on");
}

TEST_P(FailingCalls, OfMemoryThatRunsOutAreTold) {
    ASSERT_GT(counts_.memory, 100);
    const long pieces = counts_.memory;
    fail_each("memory", pieces, 1 + pieces / 150);
    fail_each("memory", pieces, 1 + pieces / 40, " on");
}

INSTANTIATE_TEST_SUITE_P(Modes, FailingCalls, testing::Values(1, 2, 3, 4));
