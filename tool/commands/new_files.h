// Files that a command writes besides results: never in place of one that is there, unless it may.
#pragma once

#include <string>
#include <vector>

struct NewFile {
    std::string path;  // "-" is standard output
    std::string text;
};

// Tells of the first file that is there already, with the way out; true when there is one.
bool tell_existing(const std::vector<std::string>& paths, bool overwrite,
                   const std::string& mend = "name another file, or add --overwrite");

// Writes the files in their order and gives the exit status; told when one cannot be written. The
// files before it stay.
int write_new_files(const std::vector<NewFile>& files);

// Writes a file whole, in place of the one that is there, or leaves that as it is.
bool replace_file(const std::string& path, const std::string& text);
