// A setup file as the engine read it, beside its text: what a check looks at.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/findings.h"
#include "run/setup_file.h"

struct SetupView {
    // As messages name it.
    std::string path;
    // Why the file cannot be opened; empty when it can.
    std::string problem;
    // The bytes of the file, and the offset at which each line begins.
    std::string text;
    std::vector<long> line_starts;
    SetupFile setup;
    SetupTrace trace;
    // Reading ended early because a count cannot be true; the last item of the trace is that count.
    bool impossible_count = false;
    // How many items stand before the first one that was not read as its writer must have meant it.
    // Only they are worth a further look.
    std::size_t sound_items = 0;
    // The output directory of the command line; empty for the setup file's own.
    std::string output;
};

// Reads the file at `path`, which messages call `name`.
SetupView read_view(const std::string& path, const std::string& output, const std::string& name);

const std::string& output_directory(const SetupView& view);

// The files that the run may write, and their paths; none when the mode or kind is unknown.
std::vector<const OutputFile*> files_of(const SetupView& view);
OutputPaths paths_of(const SetupView& view, char separator);

// The line of an offset, from 1.
int line_at(const SetupView& view, long offset);

// The word at an offset, up to white space.
std::string word_at(const SetupView& view, long offset);

std::string line_text(const SetupView& view, int line);

bool is_directed(const SetupView& view);
bool is_mode(const SetupView& view, RunMode mode);

// The item when it was read as meant, else null.
const ReadItem* find_item(const SetupView& view, const SetupKey& key);

// "edge value".
std::string name_of(const SetupView& view, const SetupKey& key);

// What stands in an item's place, in quotation marks.
std::string quoted_value(const SetupView& view, const ReadItem& item);

// The line of an item's value.
Where where_item(const SetupView& view, const ReadItem& item);

// The same for a key; the file as a whole when the setup has no such item.
Where where_key(const SetupView& view, const SetupKey& key);

// Whether the whole file was read as meant.
bool is_sound(const SetupView& view);

// The number that a word begins with, as the engine reads it, and whether the word is nothing else.
struct NumberWord {
    bool number = false;
    bool whole_word = false;
    double value = 0.0;
};
NumberWord integer_word(const std::string& word);
NumberWord real_word(const std::string& word);
