#include "commands/setup_source.h"

#include <array>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <system_error>

#include "base/native_path.h"
#include "base/open_file.h"
#include "terminal/print.h"

namespace fs = std::filesystem;

namespace {

// Writes a file that must not be there.
#ifdef _WIN32
constexpr const char* kNewFile = "wb";
#else
constexpr const char* kNewFile = "wbx";
#endif

// Whether the path leads to something that is neither a file nor a directory.
bool is_stream(const std::string& path) {
    std::error_code problem;
    const fs::file_status status = fs::status(native_path(path), problem);
    return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

// A name that no file has; the random part keeps runs that start together apart.
std::string temporary_path() {
    std::random_device random;
    const std::u8string directory = fs::temp_directory_path().u8string();
    return fmt::format("{}/ovri-{:08x}{:08x}.setup",
                       std::string(directory.begin(), directory.end()), random(), random());
}

bool copy(std::FILE* from, std::FILE* to) {
    std::array<char, 65536> block{};
    std::size_t count = std::fread(block.data(), 1, block.size(), from);
    while (count > 0 && std::fwrite(block.data(), 1, count, to) == count) {
        count = std::fread(block.data(), 1, block.size(), from);
    }
    return std::ferror(from) == 0 && std::fflush(to) == 0 && std::ferror(to) == 0;
}

}  // namespace

SetupSource::SetupSource(const std::string& typed) : path_(typed), name_(typed) {
    const bool standard_input = typed == "-";
    if (!standard_input && !is_stream(typed)) {
        return;
    }
    const FileHandle stream = standard_input ? nullptr : open_file(typed, "rb");
    if (!standard_input && stream == nullptr) {
        return;
    }
    name_ = standard_input ? "standard input" : typed;
    path_ = temporary_path();
    temporary_ = true;
    const FileHandle file = open_file(path_, kNewFile);
    if (file == nullptr || !copy(standard_input ? stdin : stream.get(), file.get())) {
        std::error_code ignored;
        fs::remove(native_path(path_), ignored);
        throw std::runtime_error(
            fmt::format("{} could not be copied to {}, where it is kept for the run; TMPDIR names "
                        "another directory",
                        name_, path_));
    }
}

SetupSource::~SetupSource() {
    if (temporary_) {
        std::error_code ignored;
        fs::remove(native_path(path_), ignored);
    }
}
