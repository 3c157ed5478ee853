#include "support/scratch_directory.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <sstream>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace fs = std::filesystem;

ScratchDirectory::ScratchDirectory() {
    static std::atomic<int> number{0};
    path_ = fs::temp_directory_path() /
            ("ovri-test-" + std::to_string(::getpid()) + "-" + std::to_string(number++));
    fs::create_directories(path_);
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string ScratchDirectory::write(const std::string& name, const std::string& text) const {
    const fs::path file = path_ / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file.string();
}

std::string ScratchDirectory::read(const std::string& name) const {
    EXPECT_TRUE(fs::exists(path_ / name)) << "no file " << name;
    return file_text(path_ / name);
}

bool ScratchDirectory::exists(const std::string& name) const { return fs::exists(path_ / name); }

std::string file_text(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}
