// What the documents of commands have in common: how a number that does not exist is written and
// read, and the network that a document is about.
#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "show/result_record.h"

// The number; null where it is not finite.
nlohmann::ordered_json json_number(double value);
// The text; null where it is empty.
nlohmann::ordered_json json_text(const std::string& text);

// Numbers that are read back bit for bit: null where one is NaN, "inf" and "-inf".
nlohmann::ordered_json exact_numbers(const std::vector<double>& values);
// Throws nlohmann::ordered_json::exception where there are no such numbers.
std::vector<double> exact_numbers_at(const nlohmann::ordered_json& json);

// The member `key` of an object: NaN where there is no such number, empty where no such text.
double number_at(const nlohmann::ordered_json& object, const char* key);
std::string text_at(const nlohmann::ordered_json& object, const char* key);

// A key or a verdict for people: "not converged" of "not_converged".
std::string in_words(std::string key);

nlohmann::ordered_json json_network(const ResultNetwork& network);
// Throws nlohmann::ordered_json::exception where a count is not there.
ResultNetwork network_at(const nlohmann::ordered_json& json);

// Hands a document of that "format" to `take`. Nothing is handed on of other texts, and what `take`
// misses in a document ends the reading.
void read_document(const std::string& text, const char* format,
                   const std::function<void(const nlohmann::ordered_json&)>& take);

// A cell of a CSV file: the shortest text that brings the same value back, empty where it is not
// finite.
std::string csv_number(double value);
