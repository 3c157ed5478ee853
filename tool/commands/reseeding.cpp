#include "commands/reseeding.h"

#include <cinttypes>
#include <ctime>

Reseeding::Reseeding(const Arguments& arguments) : clock_(arguments.clock), seed_(arguments.seed) {}

ClockSeconds Reseeding::clock() {
    return [this] { return next(); };
}

std::int64_t Reseeding::next() {
    std::int64_t second = 0;
    if (clock_) {
        second = *clock_;
    } else if (seed_) {
        second = std::int64_t{*seed_} + count_;
    } else {
        second = static_cast<std::int64_t>(std::time(nullptr));
    }
    first_ = count_ == 0 ? second : first_;
    last_ = second;
    ++count_;
    return second;
}

void Reseeding::announce(std::FILE* out) const {
    if (seed_) {
        std::fprintf(out, "Seed %" PRIu32 " (--seed %" PRIu32 " repeats this run)\n", *seed_,
                     *seed_);
    }
}

void Reseeding::summarise(std::FILE* out) const {
    if (count_ == 0) {
        return;
    }
    if (clock_) {
        std::fprintf(out, "Random numbers: clock held at second %" PRIu32 "\n", *clock_);
    } else if (seed_) {
        std::fprintf(out, "Random numbers: seed %" PRIu32 ", the first of %" PRId64 "\n", *seed_,
                     count_);
    } else if (first_ == last_) {
        std::fprintf(out,
                     "Random numbers: real clock, every reseeding in second %" PRId64
                     " (--clock %" PRId64 " repeats this run)\n",
                     first_, first_);
    } else {
        std::fprintf(out,
                     "Random numbers: real clock, reseeded %" PRId64 " times from second %" PRId64
                     " to %" PRId64 " (no option repeats this run; --seed makes one that can be)\n",
                     count_, first_, last_);
    }
}
