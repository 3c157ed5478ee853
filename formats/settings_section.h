// The keys of [estimation] and [run], which model files and plans share.
#pragma once

#include "formats/toml_section.h"

std::vector<std::string> estimation_keys();
void read_estimation_keys(SectionReader& reader, StudyEstimation& estimation);

std::vector<std::string> run_keys();
void read_run_keys(SectionReader& reader, StudyRun& run);
