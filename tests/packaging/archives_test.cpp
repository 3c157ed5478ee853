// The installation and the archives made of it: what lies where, and that it runs from there.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/golden_cases.h"
#include "support/scratch_directory.h"

namespace fs = std::filesystem;

namespace {

class Archives : public testing::Test {
  protected:
    ChildResult run(const std::vector<std::string>& command) {
        return run_child({command, scratch_.path(), {}});
    }

    // Makes the archive by the generator and returns its path.
    fs::path pack(const std::string& generator, const std::string& ending) {
        const ChildResult child =
            run({OVRI_CPACK, "--config", std::string(OVRI_BUILD_DIRECTORY "/CPackConfig.cmake"),
                 "-G", generator, "-B", scratch_.path().string()});
        EXPECT_EQ(child.status, 0) << child.output << child.errors;
        for (const fs::directory_entry& entry : fs::directory_iterator(scratch_.path())) {
            if (entry.path().string().ends_with(ending)) {
                return entry.path();
            }
        }
        ADD_FAILURE() << "no archive with the ending " << ending;
        return {};
    }

    ScratchDirectory scratch_;
};

// The tool of an installation, on an example of the same installation, against the tool built here
// on the example of the source tree.
void expect_to_run(const fs::path& root, const fs::path& scratch) {
    const auto run_example = [&](const fs::path& tool, const fs::path& directory,
                                 const std::string& output) {
        fs::create_directory(scratch / output);
        const ChildResult child =
            run_child({{tool.string(), "run", "examples/managers/managers.setup", "--clock", "11",
                        "--output", (scratch / output).string()},
                       directory,
                       {}});
        EXPECT_EQ(child.status, 0) << child.output << child.errors;
        return files_in(scratch / output);
    };
    const FileTexts expected = run_example(OVRI_TOOL_PATH, OVRI_SOURCE_DIRECTORY, "expected");
    const FileTexts actual = run_example(root / "bin" / "ovri", root / "share" / "ovri", "actual");
    EXPECT_TRUE(expected.contains("estimation_managers.txt"));
    EXPECT_EQ(difference(expected, actual), "");
}

void expect_layout(const fs::path& root, const std::string& library_directory) {
    EXPECT_TRUE(fs::exists(root / "bin/ovri"));
    EXPECT_TRUE(fs::exists(root / library_directory / "libovri.so"));
    EXPECT_TRUE(fs::exists(root / "share/doc/ovri/hosts.md"));
    EXPECT_TRUE(fs::exists(root / "share/ovri/examples/florentine/florentine.setup"));
    for (const char* page :
         {"man/man1/ovri.1", "man/man1/ovri-estimate.1", "bash-completion/completions/ovri",
          "zsh/site-functions/_ovri", "doc/ovri/CHANGELOG.md", "doc/ovri/CITATION.cff",
          "doc/ovri/schema/ovri-result-1.json"}) {
        EXPECT_GT(file_text(root / "share" / page).size(), 100U) << page;
    }
#ifdef OVRI_JAVA
    EXPECT_TRUE(fs::exists(root / "share/java/ovri.jar"));
#endif
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string ending = entry.path().extension().string();
        EXPECT_TRUE(ending != ".h" && ending != ".a") << entry.path();
    }
}

TEST_F(Archives, AnInstallationHoldsLibraryToolJarDocumentsAndExamplesAndNoHeader) {
    const fs::path root = scratch_.path() / "installed";
    const ChildResult child =
        run({OVRI_CMAKE, "--install", OVRI_BUILD_DIRECTORY, "--prefix", root.string()});
    ASSERT_EQ(child.status, 0) << child.errors;
    expect_layout(root, "lib");
    expect_to_run(root, scratch_.path());
}

TEST_F(Archives, TheJarOfAnInstallationFindsTheLibraryOfTheInstallation) {
#ifdef OVRI_JAVA
    const fs::path root = scratch_.path() / "installed";
    run({OVRI_CMAKE, "--install", OVRI_BUILD_DIRECTORY, "--prefix", root.string()});
    const fs::path directory = scratch_.path() / "case";
    copy_golden_inputs("graph_fit", directory);
    const ChildResult child = run_child(
        {{OVRI_JAVA, "-jar", (root / "share/java/ovri.jar").string(), "run.setup"}, directory, {}});
    EXPECT_EQ(child.status, 0) << child.errors;
    EXPECT_TRUE(fs::exists(directory / "out\\gof_net.txt"));
#else
    GTEST_SKIP() << "no JDK was found when the build was configured";
#endif
}

TEST_F(Archives, TheTarballUnpacksToAnInstallationThatRuns) {
    const fs::path archive = pack("TGZ", ".tar.gz");
    const ChildResult child = run({"tar", "-xzf", archive.string()});
    ASSERT_EQ(child.status, 0) << child.errors;
    std::string name = archive.filename().string();
    name.resize(name.size() - std::string(".tar.gz").size());
    expect_layout(scratch_.path() / name, "lib");
    expect_to_run(scratch_.path() / name, scratch_.path());
}

TEST_F(Archives, TheDebianPackageUnpacksToAToolThatRuns) {
    if (std::string(OVRI_DPKG_DEB).empty()) {
        GTEST_SKIP() << "dpkg-deb was not found";
    }
    const fs::path archive = pack("DEB", ".deb");
    const fs::path root = scratch_.path() / "root";
    const ChildResult child = run({OVRI_DPKG_DEB, "-x", archive.string(), root.string()});
    ASSERT_EQ(child.status, 0) << child.errors;
    expect_layout(root / "usr", "lib");
    expect_to_run(root / "usr", scratch_.path());
}

TEST_F(Archives, TheDebianPackageSaysWhatItIsAndNeeds) {
    if (std::string(OVRI_DPKG_DEB).empty()) {
        GTEST_SKIP() << "dpkg-deb was not found";
    }
    const fs::path archive = pack("DEB", ".deb");
    const ChildResult child = run({OVRI_DPKG_DEB, "-f", archive.string()});
    ASSERT_EQ(child.status, 0) << child.errors;
    const std::string& fields = child.output;
    EXPECT_NE(fields.find("Package: ovri\n"), std::string::npos) << fields;
    EXPECT_NE(fields.find("Version: " OVRI_VERSION "\n"), std::string::npos) << fields;
    const std::size_t depends = fields.find("\nDepends: ");
    ASSERT_NE(depends, std::string::npos) << fields;
    const std::string needed =
        fields.substr(depends + 1, fields.find('\n', depends + 1) - depends - 1);
    EXPECT_NE(needed.find("libc6"), std::string::npos) << needed;
    EXPECT_NE(needed.find("libstdc++6"), std::string::npos) << needed;
}

TEST_F(Archives, TheDebianPackageInstallsInABareDebianAndEstimatesThere) {
    if (std::string(OVRI_DPKG_DEB).empty()) {
        GTEST_SKIP() << "dpkg-deb was not found";
    }
    const fs::path archive = pack("DEB", ".deb");
    ChildSetting setting;
    setting.command = {std::string(OVRI_SOURCE_DIRECTORY "/tests/packaging/bare_debian.sh"),
                       archive.string(), std::string(OVRI_BUILD_DIRECTORY "/bare-debian")};
    setting.directory = scratch_.path();
    setting.limit = std::chrono::seconds(600);
    const ChildResult child = run_child(setting);
    if (child.status == 77) {
        const std::size_t end = child.output.find_last_not_of('\n');
        const std::size_t begin = child.output.rfind('\n', end) + 1;
        GTEST_SKIP() << child.output.substr(begin, end + 1 - begin);
    }
    EXPECT_EQ(child.status, 0) << child.output << child.errors;
}

}  // namespace
