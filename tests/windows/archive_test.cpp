// The archive for Windows: what lies where in it, and that the tool runs from there.
#include <gtest/gtest.h>

#include "support/scratch_directory.h"
#include "windows/wine.h"

namespace fs = std::filesystem;

namespace {

// Makes the archive in the directory and unpacks it there; returns its root.
fs::path unpacked_archive(const fs::path& directory) {
    const ChildResult packed =
        run_child({{OVRI_CPACK, "--config", (windows_build() / "CPackConfig.cmake").string(), "-G",
                    "ZIP", "-B", directory.string()},
                   directory,
                   {}});
    EXPECT_EQ(packed.status, 0) << packed.output << packed.errors;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        if (entry.path().extension() == ".zip") {
            const ChildResult child =
                run_child({{OVRI_CMAKE, "-E", "tar", "xf", entry.path().string()}, directory, {}});
            EXPECT_EQ(child.status, 0) << child.errors;
            return fs::path(entry.path()).replace_extension();
        }
    }
    ADD_FAILURE() << "no archive was made";
    return {};
}

TEST(WindowsArchive, HoldsLibraryToolDocumentsAndExamplesAndNoHeader) {
    if (const std::string reason = no_windows_build(); !reason.empty()) {
        GTEST_SKIP() << reason;
    }
    const ScratchDirectory scratch;
    const fs::path root = unpacked_archive(scratch.path());
    for (const char* file : {"bin/ovri.exe", "bin/ovri.dll", "share/doc/ovri/hosts.md",
                             "share/ovri/examples/florentine/florentine.setup"}) {
        EXPECT_TRUE(fs::exists(root / file)) << file;
    }
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string ending = entry.path().extension().string();
        EXPECT_TRUE(ending != ".h" && ending != ".a") << entry.path();
    }
}

TEST(WindowsArchive, UnpacksToAToolThatRunsAnExample) {
    if (const std::string reason = no_wine(); !reason.empty()) {
        GTEST_SKIP() << reason;
    }
    const ScratchDirectory scratch;
    const fs::path root = unpacked_archive(scratch.path());
    const fs::path output = scratch.path() / "output";
    fs::create_directory(output);
    const ChildResult child =
        run_wine_program(root / "share" / "ovri", root / "bin" / "ovri.exe",
                         {"run", "examples/managers/managers.setup", "--clock", "11", "--output",
                          "Z:" + output.string()});
    EXPECT_EQ(child.status, 0) << child.output << child.errors;
    EXPECT_TRUE(fs::exists(output / "estimation_managers.txt"));
    EXPECT_TRUE(fs::exists(output / "distupdate.ovri"));
}

}  // namespace
