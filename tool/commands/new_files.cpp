#include "commands/new_files.h"

#include <filesystem>

#include "base/native_path.h"
#include "commands/commands.h"
#include "formats/text_file.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"

namespace {

bool write_standard_output(const std::string& text) {
    print(stdout, "{}", text);
    return !lost_output(stdout);
}

}  // namespace

bool tell_existing(const std::vector<std::string>& paths, bool overwrite, const std::string& mend) {
    for (const std::string& path : paths) {
        std::error_code problem;
        // A device or a pipe takes what is written; nothing in it is lost.
        const auto status = std::filesystem::status(native_path(path), problem);
        const bool keeps =
            std::filesystem::is_regular_file(status) || std::filesystem::is_directory(status);
        if (path != "-" && keeps && (!overwrite || std::filesystem::is_directory(status))) {
            print(stderr, "ovri: {} {}\n", path,
                  std::filesystem::is_directory(status)
                      ? std::string("is a directory; name a file in it")
                      : "exists; " + mend);
            return true;
        }
    }
    return false;
}

int write_new_files(const std::vector<NewFile>& files) {
    outlive_failed_writes();
    for (const NewFile& file : files) {
        const bool written = file.path == "-" ? write_standard_output(file.text)
                                              : write_text_file(file.path, file.text);
        if (!written) {
            print(stderr, "ovri: {} could not be written\n",
                  file.path == "-" ? "standard output" : file.path);
            return kNotCompleted;
        }
    }
    return kDone;
}

bool replace_file(const std::string& path, const std::string& text) {
    const std::string part = path + ".part";
    if (!write_text_file(part, text)) {
        return false;
    }
    std::error_code problem;
    std::filesystem::rename(native_path(part), native_path(path), problem);
    return !problem;
}
