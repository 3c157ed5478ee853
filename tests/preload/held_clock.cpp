// Preloaded into a process, holds the C library's clock in seconds at the value of the environment
// variable OVRI_HELD_CLOCK, so that a run through the exported function gives the same numbers
// every time. Without the variable, or with one that is not a number, the clock runs.
#include <cstdlib>
#include <ctime>

extern "C" std::time_t time(std::time_t* target) noexcept {
    std::time_t now = 0;
    const char* held = std::getenv("OVRI_HELD_CLOCK");
    char* end = nullptr;
    if (held != nullptr) {
        now = static_cast<std::time_t>(std::strtoll(held, &end, 10));
    }
    if (held == nullptr || end == held) {
        timespec precise{};
        clock_gettime(CLOCK_REALTIME, &precise);
        now = precise.tv_sec;
    }
    if (target != nullptr) {
        *target = now;
    }
    return now;
}
