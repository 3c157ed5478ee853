// The setup file: a positional text file that a host writes for one run.
//
// Every value is preceded by a label token that is read and thrown away; the meaning of a value is
// its position alone. A value that cannot be read leaves its target as it was and the reader goes
// on with the next item: nothing is reported. Whoever wants to explain a file passes a SetupTrace
// and sees what was read where.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "base/text_writer.h"
#include "effects/effect_selection.h"
#include "run/run_settings.h"
#include "run/setup_items.h"

struct SetupFile {
    bool opened = false;
    RunSettings settings;
    EffectSelection selection;
};

// How one item was read. Offsets are in bytes from the file's begin; -1 without a label.
struct ReadItem {
    SetupKey key;
    std::string label;
    long label_offset = -1;
    long value_offset = -1;
    bool read = false;
};

struct SetupTrace {
    std::vector<ReadItem> items;
    // Names the rows of the model; null when the mode or kind is unknown.
    const Catalogue* catalogue = nullptr;
    // Where reading ended, and whether anything but white space stands behind.
    long end_offset = 0;
    bool trailing_text = false;
};

// An attribute count that cannot be true, because the file is smaller than the count.
class ImpossibleCount : public std::runtime_error {
  public:
    ImpossibleCount() : std::runtime_error("an attribute count larger than the setup file") {}
};

// Reads the whole file. An unknown mode or kind ends it after the head. Throws ImpossibleCount.
SetupFile read_setup(const std::string& path, SetupTrace* trace = nullptr);

// The text of a setup file that reads as these settings and this model. Names and paths are written
// as they stand: they must not begin with white space or hold a line feed, and an empty one is
// written as "-", because a line that is read is never empty.
std::string setup_text(const RunSettings& settings, const EffectSelection& selection);

// Writes that text.
void write_setup(const RunSettings& settings, const EffectSelection& selection, TextWriter out);

// The console echoes of the undirected section readers; a directed setup has none.
void echo_sections(const EffectSelection& selection, std::FILE* console);
