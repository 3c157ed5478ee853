#include "commands/page_files.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>

#include "base/native_path.h"
#include "commands/completion.h"
#include "commands/man_page.h"
#include "terminal/print.h"

namespace {

bool write_page(const std::filesystem::path& path, const std::string& text) {
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file) {
        print(stderr, "ovri: {} could not be written\n", path.string());
    }
    return !file.fail();
}

}  // namespace

bool write_pages(const CLI::App& tool, const std::string& directory) {
    const std::filesystem::path root = native_path(directory);
    const std::filesystem::path pages = root / "man" / "man1";
    bool written = write_page(pages / "ovri.1", man_page(tool));
    for (const CLI::App* command : tool.get_subcommands({})) {
        written = write_page(pages / (man_name(*command) + ".1"), man_page(*command)) && written;
    }
    written = write_page(root / "bash-completion" / "completions" / "ovri",
                         completion_script(tool, "bash")) &&
              written;
    return write_page(root / "zsh" / "site-functions" / "_ovri", completion_script(tool, "zsh")) &&
           written;
}
