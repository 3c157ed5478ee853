// What a run does.
#pragma once

enum class RunMode { simulation = 1, estimation = 2, fit = 3, bayesian_fit = 4 };

// Sets of modes, for tables that tell in which modes a thing stands.
using RunModes = unsigned;
constexpr RunModes modes_of(RunMode mode) { return 1U << static_cast<unsigned>(mode); }
constexpr RunModes operator|(RunMode a, RunMode b) { return modes_of(a) | modes_of(b); }
constexpr RunModes operator|(RunModes a, RunMode b) { return a | modes_of(b); }
constexpr bool has_mode(RunModes modes, RunMode mode) { return (modes & modes_of(mode)) != 0; }
