// Model files written: the model as it was run, every default filled in.
#pragma once

#include <string>

#include "formats/model_file.h"

// The text of a model file that stands in `directory`: paths are as seen from there. Reading it
// gives the same record back (places aside).
std::string model_text(const ModelFile& model, const std::string& directory);

// A path as seen from `directory` ("" is the working directory); "-" and "" stay as they are.
std::string path_from(const std::string& directory, const std::string& path);

// A text as TOML writes it, in quotation marks.
std::string toml_text(const std::string& text);

// A key as TOML writes it: bare where that is allowed, else in quotation marks.
std::string toml_key(const std::string& key);
