// Long work as a person watches it.
#pragma once

#include <functional>

#include "base/host_options.h"

// Performs work that tells how far it is, by a line on standard error if it is wanted, and that
// Ctrl-C ends. False when it has ended by RunStopped.
bool watched(bool with_progress, const std::function<void(RunProgress& progress)>& work);
