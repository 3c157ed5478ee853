#include "run/setup_file.h"

#include <stdexcept>

#include "base/text_reader.h"
#include "run/setup_walk.h"

namespace {

class SetupReader {
  public:
    SetupReader(const std::string& path, SetupTrace* trace)
        : reader_(reader_open(path)), trace_(trace) {
        if (reader_.opened()) {
            std::fseek(reader_.file.get(), 0, SEEK_END);
            size_ = std::ftell(reader_.file.get());
            std::rewind(reader_.file.get());
        }
    }

    bool opened() const { return reader_.opened(); }

    bool item(const SetupKey& key, int& target) { return number(key, target, reader_int); }
    bool item(const SetupKey& key, float& target) { return number(key, target, reader_float); }
    bool item(const SetupKey& key, double& target) { return number(key, target, reader_double); }
    bool item(const SetupKey& key, std::string& target) {
        ReadItem read = begin(key);
        target = reader_line(reader_);
        return end(std::move(read), !target.empty());
    }

    // A count that no file of this size can follow up is not worth trying to make room for.
    void check_count(int count) const {
        if (count > 0 && count > size_) {
            throw ImpossibleCount();
        }
    }

    void finish() {
        if (trace_ != nullptr) {
            trace_->end_offset = reader_offset(reader_);
            trace_->trailing_text = !reader_at_end(reader_);
        }
    }

  private:
    template <class Value>
    bool number(const SetupKey& key, Value& target, bool (*read)(TextReader&, Value&)) {
        ReadItem item = begin(key);
        return end(std::move(item), read(reader_, target));
    }

    // Reads the label and notes where the value will stand. Only a trace asks for offsets; then
    // white space is skipped that the number behind it would have skipped.
    ReadItem begin(const SetupKey& key) {
        ReadItem item{key, "", -1, -1, false};
        const SetupItem& row = setup_item(key.id);
        if (row.lead == SetupLead::label) {
            if (trace_ != nullptr) {
                reader_skip_space(reader_);
                item.label_offset = reader_offset(reader_);
            }
            item.label = reader_label(reader_);
        }
        if (trace_ != nullptr) {
            if (row.value != SetupValue::line) {
                reader_skip_space(reader_);
            }
            item.value_offset = reader_offset(reader_);
        }
        return item;
    }

    bool end(ReadItem item, bool read) {
        item.read = read;
        if (trace_ != nullptr) {
            trace_->items.push_back(std::move(item));
        }
        return read;
    }

    TextReader reader_;
    SetupTrace* trace_;
    long size_ = 0;
};

void echo_block(TextWriter& out, const AttributeSelection& group, const char* name,
                int last_count) {
    if (group.flag != 1) {
        return;
    }
    out.print("%s attributes\n", name);
    out.print("%d %s attributes\n", group.attributes, name);
    if (group.attributes != 0) {
        out.text(group.path + "\n");
        out.print("%d %s attributes\n", last_count, name);
    }
}

}  // namespace

SetupFile read_setup(const std::string& path, SetupTrace* trace) {
    SetupReader reader(path, trace);
    SetupFile setup;
    setup.opened = reader.opened();
    if (!setup.opened) {
        return setup;
    }
    SetupWalk walk(setup, reader);
    walk.head();
    const RunSettings& settings = setup.settings;
    if (settings.run_mode >= 1 && settings.run_mode <= 4 &&
        (settings.network_kind == 1 || settings.network_kind == 2)) {
        setup.selection = selection_create(static_cast<NetworkKind>(settings.network_kind));
        if (trace != nullptr) {
            trace->catalogue = setup.selection.catalogue;
        }
        walk.body();
        setup.selection.actors = settings.actor_count;
    }
    reader.finish();
    return setup;
}

void echo_sections(const EffectSelection& selection, std::FILE* console) {
    if (selection.catalogue->kind == NetworkKind::directed) {
        return;
    }
    TextWriter out(console);
    const AttributeSelection& binary = group_of(selection, AttributeGroup::binary);
    const AttributeSelection& continuous = group_of(selection, AttributeGroup::continuous);
    const AttributeSelection& categorical = group_of(selection, AttributeGroup::categorical);
    echo_block(out, binary, "binary", binary.attributes);
    // The last line of this block counts the binary attributes; consoles have always shown it.
    echo_block(out, continuous, "continuous", binary.attributes);
    if (categorical.flag == 1 && categorical.attributes != 0) {
        out.text(categorical.path + "\n");
        out.print("%d categorical attributes\n", categorical.attributes);
    }
}
