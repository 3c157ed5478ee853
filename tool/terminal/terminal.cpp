#include "terminal/terminal.h"

#include <fmt/core.h>

#include <cstdlib>
#include <string_view>

namespace {
constexpr std::size_t kUsualWidth = 80;
}  // namespace

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

std::size_t terminal_width(std::FILE* stream) {
    CONSOLE_SCREEN_BUFFER_INFO screen;
    const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    const bool known = GetConsoleScreenBufferInfo(console, &screen) != 0;
    return known ? static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left + 1)
                 : kUsualWidth;
}

#else

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

bool shows_colours(std::FILE* stream) {
    const char* kind = std::getenv("TERM");
    return is_terminal(stream) && (kind == nullptr || std::string_view(kind) != "dumb");
}

}  // namespace

void prepare_terminal() {}

bool is_terminal(std::FILE* stream) { return ::isatty(::fileno(stream)) != 0; }

std::size_t terminal_width(std::FILE* stream) {
    winsize size{};
    const bool known = ::ioctl(::fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : kUsualWidth;
}

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
