#include "commands/run_log.h"

#include <array>
#include <ctime>
#include <thread>

#include "terminal/print.h"

namespace {

std::string time_text() {
    const std::time_t now = std::time(nullptr);
    std::array<char, 32> text{};
    const std::size_t size =
        std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&now));
    return {text.data(), size};
}

constexpr const char* system_name() {
#ifdef _WIN32
    return "Windows";
#elif defined(__APPLE__)
    return "macOS";
#else
    return "Linux";
#endif
}

constexpr const char* processor_name() {
#if defined(__x86_64__) || defined(_M_X64)
    return "x86-64";
#elif defined(__aarch64__)
    return "arm64";
#else
    return "another processor";
#endif
}

}  // namespace

RunLog::RunLog(const std::string& command, const StudyInput& input) {
    line("version: ovri " OVRI_VERSION);
    line("command: " + command);
    line(fmt::format("machine: {}, {}, {} threads", system_name(), processor_name(),
                     std::thread::hardware_concurrency()));
    line("begun: " + time_text());
    line("network: " + input.model.network.file + ": " + network_summary(input));
    for (const std::string& note : input.files.notes) {
        line("read: " + note);
    }
}

std::string interrupted_line(const std::string& kept) {
    return "interrupted: by Ctrl-C at " + time_text() + "; " + kept;
}
