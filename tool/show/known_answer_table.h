// Known answers beside what was found, for people and for scripts.
#pragma once

#include <string>
#include <vector>

#include "study/known_answers.h"

// One line an answer below a head.
std::string known_answer_table(const std::vector<KnownAnswer>& answers);

// The document, with a line end behind it; `seconds` is what all of them took.
std::string known_answer_json(const std::vector<KnownAnswer>& answers, double seconds);
