// The figures that README shows are those of the model that it estimates.
//
// With OVRI_RENEW_FIGURES=1 the files are written instead.
#include <cstdlib>
#include <filesystem>

#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;

class ReadmeFigures : public ToolTest {};

}  // namespace

TEST_F(ReadmeFigures, AreThoseOfItsModel) {
    const std::string source = OVRI_SOURCE_DIRECTORY;
    const std::vector<std::vector<std::string>> commands = {
        {"estimate", "--network", source + "/examples/florentine/marriage.csv", "--nodes",
         source + "/examples/florentine/families.csv", "--undirected", "--effects", "edge,AT(2)",
         "--seed", "1", "-o", "marriage.results", "-q"},
        {"gof", "marriage.results", "--seed", "1", "-q"},
        {"report", "marriage.results", "--figures", "svg", "-q"}};
    for (const std::vector<std::string>& words : commands) {
        result = run_tool(words, scratch.path().string());
        ASSERT_EQ(result.status, 0) << result.err;
    }
    const char* renew = std::getenv("OVRI_RENEW_FIGURES");
    const std::string readme = file_text(source + "/README.md");
    for (const std::string name : {"estimates.svg", "gof-degree.svg"}) {
        const std::string kept = source + "/docs/figures/" + name;
        const std::string made = scratch.path().string() + "/marriage.results/figures/" + name;
        if (renew != nullptr && *renew == '1') {
            fs::create_directories(source + "/docs/figures");
            fs::copy_file(made, kept, fs::copy_options::overwrite_existing);
        }
        EXPECT_EQ(file_text(made), file_text(kept)) << name;
        EXPECT_NE(readme.find("(docs/figures/" + name + ")"), std::string::npos) << name;
    }
}
