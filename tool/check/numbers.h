// Blocks of numbers in the files that a setup file names, read as a run reads them.
//
// A number that cannot be read may swallow a part of the word that stands there ("NA" begins like
// "nan"), and then reading goes on behind it; or it swallows nothing, and no further number can be
// read. Both are told as a run would have them.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/text_reader.h"
#include "check/files.h"

// What could not be read of a block.
struct Breakoff {
    long long unread = 0;
    // Of the first number that could not be read: how many numbers stand before it, its place, and
    // whether the file ended there.
    long long index = 0;
    TextPlace place;
    bool at_end = false;
};

template <class Value>
struct NumberBlock {
    // As a run would have them; numbers that could not be read are 0.
    std::vector<Value> values;
    Breakoff end;
    // The offset at which the block begins.
    long begin = 0;
    bool complete() const { return end.unread == 0; }
};

// The place of the number that stands behind `index` others from the offset `begin` on.
template <class Value>
TextPlace place_of_number(const std::string& path, long begin, long long index,
                          bool (*read)(TextReader&, Value&)) {
    TextReader reader = reader_open(path);
    if (!reader.opened()) {
        return {};
    }
    std::fseek(reader.file.get(), begin, SEEK_SET);
    Value ignored = Value();
    for (long long k = 0; k < index && read(reader, ignored); ++k) {
    }
    reader_skip_space(reader);
    return place_in_file(path, reader_offset(reader));
}

// Reads `wanted` numbers from where the reader stands.
template <class Value>
NumberBlock<Value> read_numbers(TextReader& reader, const std::string& path, long long wanted,
                                bool (*read)(TextReader&, Value&)) {
    NumberBlock<Value> block;
    block.begin = reader_offset(reader);
    Breakoff& end = block.end;
    long stuck_at = -1;
    for (long long k = 0; k < wanted; ++k) {
        Value value = Value();
        if (read(reader, value)) {
            block.values.push_back(value);
            continue;
        }
        if (end.unread == 0) {
            end.index = k;
            end.place = place_of_number(path, block.begin, k, read);
            end.at_end = end.place.word.empty();
        }
        const long offset = reader_offset(reader);
        if (offset == stuck_at || reader_at_end(reader)) {
            end.unread += wanted - k;
            return block;
        }
        stuck_at = offset;
        ++end.unread;
        block.values.push_back(Value());
    }
    return block;
}

// Counts the numbers that are left, up to the end or the first text.
long long count_surplus(TextReader& reader);

// The root of a square number; nothing when it is none.
std::optional<int> whole_root(long long number);
