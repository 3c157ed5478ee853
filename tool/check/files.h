// Questions about files, and places in them. Paths are UTF-8 on every platform.
#pragma once

#include <cstdint>
#include <string>

enum class FileKind { missing, directory, file };

FileKind file_kind(const std::string& path);

// Why the file cannot be opened for reading ("No such file or directory"); empty when it can.
std::string open_problem(const std::string& path);

// Whether files can be made in the directory (whether an existing file can be written).
bool is_writable(const std::string& path);

// "dir/name" of a path below the directory that holds `file`.
std::string beside(const std::string& file, const std::string& path);

// The directory part of a path, "." without one.
std::string parent_directory(const std::string& path);

// Changes whenever the file is written; all zeros while there is none.
struct FileStamp {
    std::int64_t written = 0;
    std::uintmax_t size = 0;
    bool exists = false;
    bool operator==(const FileStamp&) const = default;
};
FileStamp file_stamp(const std::string& path);

// A place in a file: its line, from 1, and the word (up to white space) that stands there.
struct TextPlace {
    int line = 1;
    std::string word;
};

// Reads the file up to the byte offset.
TextPlace place_in_file(const std::string& path, long offset);

// The text of a line, without its end; empty when there is no such line.
std::string line_of_file(const std::string& path, int line);

// A whole file, its bytes as they are; empty when it cannot be read.
std::string bytes_of_file(const std::string& path);

// How many words the text holds.
int count_words(const std::string& text);

bool is_blank(char character);
