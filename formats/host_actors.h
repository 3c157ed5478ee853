// Names of actors, for which a setup file has no place: one a line in a file beside it.
#pragma once

#include <string>
#include <vector>

// The path of that file: the setup file's name with _actors.txt.
std::string host_actors_path(const std::string& setup_path);

std::string host_actors_text(const std::vector<std::string>& actors);

// The names beside a setup file, or the actors' numbers from 1 where no file is there, or it has
// not a name for each of `count` actors, each once. A note tells what was found.
std::vector<std::string> host_actors(const std::string& setup_path, int count,
                                     std::vector<std::string>& notes);
