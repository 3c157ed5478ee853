// The table of output files is what runs really leave.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "base/text_writer.h"
#include "run/setup_file.h"
#include "support/golden_cases.h"

namespace {

namespace fs = std::filesystem;

std::set<std::string> files_of(const fs::path& directory) {
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        const fs::path& path = entry.path();
        names.insert((path.extension() == ".digest" ? path.stem() : path.filename()).string());
    }
    names.erase("console.txt");
    return names;
}

TEST(OutputFiles, TheTableNamesEveryFileOfAGoldenRunAndNoOther) {
    for (const std::string& name : golden_case_names()) {
        SCOPED_TRACE(name);
        const fs::path directory = fs::path(OVRI_SOURCE_DIRECTORY) / "tests" / "golden" / name;
        const RunSettings settings = read_setup((directory / "run.setup").string()).settings;
        std::set<std::string> left = files_of(directory / "expected");
        for (const OutputFile& file : output_files()) {
            const auto mode = static_cast<RunMode>(settings.run_mode);
            const auto& which = file.cases[static_cast<std::size_t>(mode) - 1];
            if (!may_write(file, mode, static_cast<NetworkKind>(settings.network_kind),
                           settings.switches, settings.gof_after_estimation == 1)) {
                continue;
            }
            const std::string written = text_with_name(file.name, settings.network_name);
            const std::size_t found = is_sample_report(file)
                                          ? std::erase_if(left,
                                                          [&written](const std::string& each) {
                                                              return each.starts_with(written);
                                                          })
                                          : left.erase(written);
            EXPECT_TRUE(found > 0 || which.unless_degenerate || which.if_converged ||
                        which.in_fit_after)
                << written;
        }
        EXPECT_EQ(left, std::set<std::string>());
    }
}

TEST(OutputFiles, UpdateFilesLieBesideTheOthersOnlyWhenWanted) {
    const OutputPaths apart = output_paths("D", "net", '\\', NetworkKind::directed);
    EXPECT_EQ(apart.structural_update, "distupdate.ovri");
    EXPECT_EQ(apart.gof, "D\\gof_net.txt");
    const OutputPaths beside = output_paths("D", "net", '/', NetworkKind::undirected, true);
    EXPECT_EQ(beside.structural_update, "D/stupdate.ovri");
    EXPECT_EQ(update_path(beside, AttributeGroup::covariate), "D/covupdate.ovri");
    EXPECT_EQ(update_path(beside, AttributeGroup::categorical), "D/catupdate.ovri");
}

}  // namespace
