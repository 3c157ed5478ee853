#include "terminal/process.h"

#include <cstdio>

#include "terminal/aside.h"

#ifdef _WIN32
#include <windows.h>
// After windows.h, whose types it uses.
#include <process.h>
#include <shellapi.h>

#include <filesystem>

#include "base/native_path.h"
#else
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>

extern char** environ;
#endif

namespace {

std::vector<char*> pointers_to(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

#ifdef _WIN32

int run_program(const std::vector<std::string>& words) {
    std::vector<std::string> copies = words;
    // The C runtime joins the words again: those with blanks need quotation marks.
    for (std::string& word : copies) {
        word = word.find(' ') == std::string::npos ? word : "\"" + word + "\"";
    }
    const OutputAside aside(false);
    return static_cast<int>(::_spawnvp(_P_WAIT, words[0].c_str(), pointers_to(copies).data()));
}

bool open_with_system(const std::string& path) {
    const std::wstring wide = native_path(path).wstring();
    const auto result =
        ::ShellExecuteW(nullptr, L"open", wide.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    constexpr INT_PTR kLastError = 32;
    return reinterpret_cast<INT_PTR>(result) > kLastError;
}

#else

int run_program(const std::vector<std::string>& words) {
    std::vector<std::string> copies = words;
    const OutputAside aside(false);
    ::pid_t child = 0;
    if (::posix_spawnp(&child, copies[0].c_str(), nullptr, nullptr, pointers_to(copies).data(),
                       environ) != 0) {
        return -1;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            return -1;
        }
    }
    // A program that cannot be started shows as 127, on systems that fork first.
    constexpr int kNoSuchProgram = 127;
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    return code == kNoSuchProgram ? -1 : code;
}

bool open_with_system(const std::string& path) {
#ifdef __APPLE__
    return run_program({"open", path}) == 0;
#else
    return run_program({"xdg-open", path}) == 0;
#endif
}

#endif
