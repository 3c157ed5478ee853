// Which output files a run has written.
#pragma once

#include <string>
#include <vector>

#include "check/files.h"
#include "check/setup_view.h"

// The files that a run may write, as they were before it.
class Results {
  public:
    Results(const SetupView& view, char separator);

    // Paths of the files that have been made or written since.
    std::vector<std::string> written() const;

    // Of a written path: "added to the end" or "replaced", what became of an earlier file of that
    // name; null when there was none.
    const char* earlier_file(const std::string& path) const;

    // The prefix of the reports of single samples; empty when the setup asks for none.
    const std::string& sample_prefix() const { return sample_prefix_; }

  private:
    struct Before {
        std::string path;
        OutputGrowth growth;
        FileStamp stamp;
    };
    std::vector<Before> before_;
    std::string sample_prefix_;
};
