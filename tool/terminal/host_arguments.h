// The words of the command line in UTF-8, on every platform.
#pragma once

#include <string>
#include <vector>

class HostArguments {
  public:
    HostArguments(int argc, char** argv);

    int count() const { return static_cast<int>(words_.size()); }
    // As main takes them; a null pointer stands behind the last.
    char** values() { return pointers_.data(); }

  private:
    std::vector<std::string> words_;
    std::vector<char*> pointers_;
};
