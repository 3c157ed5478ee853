#include "show/report_source.h"

#include <map>
#include <nlohmann/json.hpp>

#include "formats/csv.h"
#include "formats/text_file.h"
#include "pictures/axis.h"
#include "show/document_pieces.h"
#include "show/result_json.h"

namespace {

using Json = nlohmann::ordered_json;

// Whole numbers whole, others with the few digits that say something.
std::string value_text(const Json& json) {
    return json.is_string()         ? json.get<std::string>()
           : json.is_number_float() ? number_for_people(json.get<double>(), 3)
                                    : json.dump();
}

void add_lines(const std::string& path, const Json& json, std::vector<std::string>& lines) {
    if (json.is_object()) {
        for (const auto& [key, value] : json.items()) {
            add_lines(path.empty() ? in_words(key) : path + ", " + in_words(key), value, lines);
        }
    } else if (json.is_array() && !json.empty() && json[0].is_structured()) {
        for (const Json& each : json) {
            add_lines(path, each, lines);
        }
    } else if (json.is_array()) {
        std::string list;
        for (const Json& each : json) {
            list += (list.empty() ? "" : ", ") + value_text(each);
        }
        lines.push_back(path + ": " + list);
    } else if (!json.is_null()) {
        lines.push_back(path + ": " + value_text(json));
    }
}

}  // namespace

std::vector<SampledStatistic> read_samples(const std::string& text) {
    std::vector<SampledStatistic> samples;
    CsvScanner scanner(text, ',');
    if (!scanner.next() || scanner.fields().size() < 3 || scanner.fields()[0].text != "chain") {
        return samples;
    }
    for (std::size_t k = 2; k < scanner.fields().size(); ++k) {
        samples.push_back({std::string(scanner.fields()[k].text), {}});
    }
    std::map<std::string, std::size_t> chains;
    while (scanner.next() && scanner.fields().size() == samples.size() + 2) {
        const auto [place, added] =
            chains.emplace(std::string(scanner.fields()[0].text), chains.size());
        for (std::size_t k = 0; k < samples.size(); ++k) {
            if (added) {
                samples[k].chains.emplace_back();
            }
            samples[k].chains[place->second].push_back(
                number_of(scanner.fields()[k + 2].text).value_or(kNoNumber));
        }
    }
    return samples;
}

std::vector<std::string> diagnosis_lines(const ResultRecord& result) {
    std::vector<std::string> lines;
    if (result.diagnosis) {
        add_lines("", diagnosis_json(result.diagnosis), lines);
    }
    return lines;
}
