// The section of a model file that says what of a host's setup file a study has no word for.
#pragma once

#include "formats/model_file.h"
#include "formats/toml_section.h"

// Reads [host]. `file` is the model file's own.
void read_host_section(SectionReader reader, const TomlFile& file, HostRun& host);
