#include "terminal/terminal.h"

#include <fmt/format.h>

#include <cstdlib>
#include <string_view>

#ifdef _WIN32

#include <io.h>
#include <windows.h>

namespace {

// Consoles show colours only when told to.
bool shows_colours(std::FILE* stream) {
    const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace

void prepare_terminal() { SetConsoleOutputCP(CP_UTF8); }

bool is_terminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }

#else

#include <unistd.h>

namespace {

bool shows_colours(std::FILE* stream) {
    const char* kind = std::getenv("TERM");
    return is_terminal(stream) && (kind == nullptr || std::string_view(kind) != "dumb");
}

}  // namespace

void prepare_terminal() {}

bool is_terminal(std::FILE* stream) { return ::isatty(::fileno(stream)) != 0; }

#endif

Screen screen_on(std::FILE* stream, ColourChoice choice) {
    if (choice != ColourChoice::automatic) {
        return {stream, choice == ColourChoice::always};
    }
    const char* refusal = std::getenv("NO_COLOR");
    return {stream, (refusal == nullptr || *refusal == '\0') && shows_colours(stream)};
}

std::string painted(const Screen& screen, Colour colour, const std::string& word) {
    return screen.colours ? fmt::format("\033[1;{}m{}\033[0m", static_cast<int>(colour), word)
                          : word;
}
