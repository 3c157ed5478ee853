#include "terminal/host_arguments.h"

#ifdef _WIN32
#include <windows.h>

#include <shellapi.h>
#endif

namespace {

#ifdef _WIN32

std::string to_utf8(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(size > 0 ? static_cast<std::size_t>(size) : 1, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();
    return bytes;
}

// The words as the system holds them: main's own have lost what the code page does not have.
std::vector<std::string> read_words(int, char**) {
    std::vector<std::string> words;
    int count = 0;
    wchar_t** list = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int k = 0; list != nullptr && k < count; ++k) {
        words.push_back(to_utf8(list[k]));
    }
    LocalFree(static_cast<void*>(list));
    SetConsoleOutputCP(CP_UTF8);
    return words;
}

#else

std::vector<std::string> read_words(int argc, char** argv) { return {argv, argv + argc}; }

#endif

}  // namespace

HostArguments::HostArguments(int argc, char** argv) : words_(read_words(argc, argv)) {
    for (std::string& word : words_) {
        pointers_.push_back(word.data());
    }
    pointers_.push_back(nullptr);
}
