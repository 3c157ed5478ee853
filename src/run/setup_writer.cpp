// Setup files written: the reader's way back.
#include <algorithm>
#include <array>
#include <cstdio>

#include "run/setup_walk.h"

namespace {

class SetupWriter {
  public:
    explicit SetupWriter(const EffectSelection& selection) : selection_(selection) {}

    // Numbers have as many digits as bring the same value back.
    bool item(const SetupKey& key, int& value) { return number(key, "%d", value); }
    bool item(const SetupKey& key, float& value) {
        return number(key, "%.9g", static_cast<double>(value));
    }
    bool item(const SetupKey& key, double& value) { return number(key, "%.17g", value); }
    bool item(const SetupKey& key, std::string& value) {
        begin(key);
        text_ += value.empty() ? "-" : value;
        return true;
    }
    void check_count(int) const {}
    const std::string& text() const { return text_; }

  private:
    template <class Value>
    bool number(const SetupKey& key, const char* format, Value value) {
        constexpr std::size_t kLongest = 64;
        std::array<char, kLongest> digits{};
        begin(key);
        std::snprintf(digits.data(), digits.size(), format, value);
        text_ += digits.data();
        return true;
    }

    // A label begins a line; what has none stands behind the value before it.
    void begin(const SetupKey& key) {
        if (setup_item(key.id).lead == SetupLead::label) {
            text_ += (text_.empty() ? "" : "\n") + label(key);
        }
        text_ += " ";
    }

    // One word: a row is labelled by its effect, any other item by its name.
    std::string label(const SetupKey& key) const {
        const SetupPart part = setup_item(key.id).part;
        const auto& names = attribute_names(selection_, key.group);
        const auto attribute = static_cast<std::size_t>(key.attribute);
        std::string text =
            part == SetupPart::structural_row || part == SetupPart::block_row
                ? setup_effect(key, *selection_.catalogue,
                               attribute < names.size() ? names[attribute]
                                                        : std::to_string(key.attribute + 1))
                : setup_name(key, selection_.catalogue);
        std::replace_if(
            text.begin(), text.end(),
            [](char character) {
                return character == ' ' || (character >= '\t' && character <= '\r');
            },
            '_');
        return text;
    }

    const EffectSelection& selection_;
    std::string text_;
};

}  // namespace

std::string setup_text(const RunSettings& settings, const EffectSelection& selection) {
    SetupFile setup{true, settings, selection};
    SetupWriter writer(selection);
    SetupWalk walk(setup, writer);
    walk.head();
    if (selection.catalogue != nullptr) {
        walk.body();
    }
    return writer.text() + "\n";
}

void write_setup(const RunSettings& settings, const EffectSelection& selection, TextWriter out) {
    out.text(setup_text(settings, selection));
}
