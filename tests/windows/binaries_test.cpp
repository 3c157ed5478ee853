// What the Windows files export, and which libraries they ask the system for.
#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "windows/wine.h"

namespace {

struct Headers {
    std::set<std::string> libraries;
    std::vector<std::string> exports;
};

std::string lower(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

// Reads the listing of objdump: "DLL Name: X" for an import, and below "[Ordinal/Name Pointer]" one
// line "[ k] NAME" for each export.
Headers headers_of(const std::string& file) {
    const ChildResult child =
        run_child({{OVRI_WINDOWS_OBJDUMP, "-p", (windows_build() / file).string()}, "/", {}});
    EXPECT_EQ(child.status, 0) << child.errors;
    Headers headers;
    bool in_names = false;
    std::istringstream lines(child.output);
    for (std::string line; std::getline(lines, line);) {
        if (const std::size_t at = line.find("DLL Name: "); at != std::string::npos) {
            headers.libraries.insert(lower(line.substr(at + 10)));
        }
        if (line.find("[Ordinal/Name Pointer] Table") != std::string::npos) {
            in_names = true;
        } else if (in_names && line.find(']') != std::string::npos) {
            headers.exports.push_back(line.substr(line.find_last_of(" \t") + 1));
        } else {
            in_names = false;
        }
    }
    return headers;
}

class WindowsFiles : public testing::Test {
  protected:
    void SetUp() override {
        if (const std::string reason = no_windows_build(); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
        if (std::string(OVRI_WINDOWS_OBJDUMP).empty()) {
            GTEST_SKIP() << "x86_64-w64-mingw32-objdump was not found";
        }
    }
};

// Present on every Windows: no compiler's runtime is among them.
const std::set<std::string> kSystemLibraries = {"kernel32.dll", "msvcrt.dll"};

TEST_F(WindowsFiles, TheLibraryExportsTheOneFunctionUndecorated) {
    EXPECT_EQ(headers_of("ovri.dll").exports, std::vector<std::string>{"Java_Ovri_ovri"});
}

TEST_F(WindowsFiles, TheLibraryAsksOnlyForTheSystem) {
    EXPECT_EQ(headers_of("ovri.dll").libraries, kSystemLibraries);
}

TEST_F(WindowsFiles, TheToolAsksOnlyForTheSystemAndExportsNothing) {
    const Headers headers = headers_of("ovri.exe");
    // The shell opens the page of a report; it too is part of every Windows.
    std::set<std::string> allowed = kSystemLibraries;
    allowed.insert("shell32.dll");
    EXPECT_EQ(headers.libraries, allowed);
    EXPECT_TRUE(headers.exports.empty());
}

}  // namespace
