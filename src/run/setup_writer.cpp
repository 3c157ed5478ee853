// Setup files written: the reader's way back.
#include <algorithm>

#include "run/setup_walk.h"

namespace {

class SetupWriter {
  public:
    SetupWriter(const EffectSelection& selection, TextWriter out)
        : selection_(selection), out_(std::move(out)) {}

    // Numbers have as many digits as bring the same value back.
    bool item(const SetupKey& key, int& value) { return number(key, "%d", value); }
    bool item(const SetupKey& key, float& value) {
        return number(key, "%.9g", static_cast<double>(value));
    }
    bool item(const SetupKey& key, double& value) { return number(key, "%.17g", value); }
    bool item(const SetupKey& key, std::string& value) {
        begin(key);
        out_.text(value.empty() ? "-" : value);
        return true;
    }
    void check_count(int) const {}
    void finish() { out_.text("\n"); }

  private:
    template <class Value>
    bool number(const SetupKey& key, const char* format, Value value) {
        begin(key);
        out_.print(format, value);
        return true;
    }

    // A label begins a line; what has none stands behind the value before it.
    void begin(const SetupKey& key) {
        if (setup_item(key.id).lead == SetupLead::label) {
            out_.text(first_ ? "" : "\n");
            out_.text(label(key));
            first_ = false;
        }
        out_.text(" ");
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
    TextWriter out_;
    bool first_ = true;
};

}  // namespace

void write_setup(const RunSettings& settings, const EffectSelection& selection, TextWriter out) {
    SetupFile setup{true, settings, selection};
    SetupWriter writer(selection, std::move(out));
    SetupWalk walk(setup, writer);
    walk.head();
    if (selection.catalogue != nullptr) {
        walk.body();
    }
    writer.finish();
}
