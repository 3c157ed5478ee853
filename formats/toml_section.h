// One table of a TOML file and what its keys hold, for readers of model files and plans.
//
// It includes the TOML library, so only sources of this folder include it.
#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/model_file.h"
#include "formats/toml_library.h"

FilePlace toml_place(const toml::source_region& region);

// The problem of a text that is no TOML.
Problem no_toml(const std::string& path, const toml::parse_result& document);

// Sections come in the order of their names; people read problems from the top.
void sort_by_place(Problems& problems);

// Where a reader leaves the places of keys and the problems that it finds.
struct TomlFile {
    const std::string& path;
    std::map<std::string, FilePlace>& places;
    Problems& problems;
};

struct NumberRange {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
};

// One section of the file, or with an empty name the keys before the first. A key that is not there
// leaves its target; each value of another type, or out of its range, is a problem.
class SectionReader {
  public:
    SectionReader(const toml::table& table, std::string section, TomlFile file)
        : table_(table), section_(std::move(section)), file_(file) {}

    // Notes the places of the keys and complains of those that are not among `keys`.
    void check_keys(const std::vector<std::string>& keys);

    void text(const char* key, std::string& target);
    // A path, which must not be empty; a relative one becomes as seen from the working directory.
    void path(const char* key, std::string& target);
    void flag(const char* key, std::optional<bool>& target);
    std::optional<double> number(const char* key, const NumberRange& range = {});
    std::optional<std::int64_t> whole(const char* key, const NumberRange& range);

    template <class Target>
    void whole(const char* key, Target& target, const NumberRange& range) {
        if (const auto value = whole(key, range)) {
            target = static_cast<Target>(*value);
        }
    }
    void number(const char* key, double& target, const NumberRange& range) {
        target = number(key, range).value_or(target);
    }

    // Null where the key is not there.
    const toml::node* find(std::string_view key) const { return table_.get(key); }

    // Adds the problem of a value; the mend is to write what is expected, where it is not told.
    void wrong_value(const std::string& key, const toml::node& node, const std::string& expected,
                     const std::string& mend = "");

    const toml::table& table() const { return table_; }

  private:
    std::string full_name(const std::string& key) const {
        return section_.empty() ? key : section_ + "." + key;
    }
    void unknown_key(const std::string& name, const std::vector<std::string>& keys);

    const toml::table& table_;
    std::string section_;
    TomlFile file_;
};
