// One call is one whole run: read the setup file, act on it, write the outputs.
#pragma once

#include <string>

#include "base/host_options.h"

// Performs the run that the setup file describes, on the calling thread, in the "C" locale. A setup
// file that cannot be opened, or that names an unknown mode or kind, writes nothing. A run that its
// host stops returns early, its files closed. Throws only what memory allocation throws.
void run_setup_file(const std::string& path, const HostOptions& options);
