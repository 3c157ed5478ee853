// Golden runs: every directory beside this file is a case with a setup file, the data it names and,
// in expected/, one file per output of the run at a fixed clock.
//
// A run must leave exactly the expected files, byte for byte. With OVRI_RENEW_GOLDEN=1 in the
// environment the expected files are written anew instead; their difference is then to be read as
// carefully as code.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/golden_cases.h"
#include "support/run_outputs.h"
#include "support/scratch_directory.h"
#include "support/text_pieces.h"

namespace fs = std::filesystem;

namespace {

// Larger outputs are kept as a digest: size, checksum, first and last lines.
constexpr std::size_t kLargestFile = 40000;
constexpr std::size_t kDigestLines = 3;

fs::path expected_directory(const std::string& name) {
    return fs::path(OVRI_SOURCE_DIRECTORY) / "tests" / "golden" / name / "expected";
}

std::string digest(const std::string& text) {
    std::uint64_t checksum = 14695981039346656037ULL;  // FNV-1a
    for (const char c : text) {
        checksum = (checksum ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    }
    const std::vector<std::string> lines = lines_of(text);
    std::ostringstream out;
    out << "bytes " << text.size() << "\nlines " << lines.size() << "\nchecksum " << std::hex
        << checksum << "\n";
    for (std::size_t line = 0; line < lines.size(); ++line) {
        if (line < kDigestLines || line + kDigestLines >= lines.size()) {
            out << lines[line] << "\n";
        }
    }
    return out.str();
}

// Large files replaced by their digest, under a name that says so.
OutputFiles as_kept(const OutputFiles& files) {
    OutputFiles kept;
    for (const auto& [name, text] : files) {
        if (text.size() > kLargestFile) {
            kept[name + ".digest"] = digest(text);
        } else {
            kept[name] = text;
        }
    }
    return kept;
}

// Runs the case in a directory of its own, so that the names inside its files are always the same.
OutputFiles run_case(const std::string& name) {
    const ScratchDirectory scratch;
    copy_golden_inputs(name, scratch.path());
    RunOutputs outputs = run_in_directory(scratch.path(), kGoldenClock);
    outputs.files["console.txt"] = outputs.console;
    return outputs.files;
}

void renew(const std::string& name, const OutputFiles& files) {
    const fs::path directory = expected_directory(name);
    fs::remove_all(directory);
    fs::create_directories(directory);
    for (const auto& [file, text] : files) {
        std::ofstream(directory / file, std::ios::binary) << text;
    }
}

bool asked_to_renew() {
    const char* value = std::getenv("OVRI_RENEW_GOLDEN");
    return value != nullptr && std::string(value) == "1";
}

class GoldenRun : public testing::TestWithParam<std::string> {};

TEST_P(GoldenRun, LeavesTheExpectedBytes) {
    const OutputFiles actual = as_kept(run_case(GetParam()));
    if (asked_to_renew()) {
        renew(GetParam(), actual);
        GTEST_SKIP() << "renewed " << GetParam();
    }
    EXPECT_EQ(difference(files_below(expected_directory(GetParam())), actual), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenRun, testing::ValuesIn(golden_case_names()),
                         [](const testing::TestParamInfo<std::string>& named) {
                             return named.param;
                         });

TEST(GoldenDigest, TellsApartFilesThatDifferInOneByteOfTheMiddle) {
    std::string text;
    for (int line = 0; line < 10000; ++line) {
        text += "row " + std::to_string(line) + "\n";
    }
    std::string other = text;
    other[text.size() / 2] = '#';
    EXPECT_NE(digest(text), digest(other));
    EXPECT_EQ(digest(text), digest(std::string(text)));
}

}  // namespace
