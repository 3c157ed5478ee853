#include "commands/reseeding.h"

#include <ctime>

#include "terminal/print.h"

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
        print(out, "Seed {0} (--seed {0} repeats this run)\n", *seed_);
    }
}

void Reseeding::summarise(std::FILE* out) const {
    if (count_ == 0) {
        return;
    }
    if (clock_) {
        print(out, "Random numbers: clock held at second {}\n", *clock_);
    } else if (seed_) {
        print(out, "Random numbers: seed {}, the first of {}\n", *seed_, count_);
    } else if (first_ == last_) {
        print(out,
              "Random numbers: real clock, every reseeding in second {0} (--clock {0} repeats this "
              "run)\n",
              first_);
    } else {
        print(out,
              "Random numbers: real clock, reseeded {} times from second {} to {} (no option "
              "repeats this run; --seed makes one that can be)\n",
              count_, first_, last_);
    }
}
