// The folder that a command leaves its results in: complete when it holds result.json.
#pragma once

#include <string>
#include <vector>

// What becomes of the parts of a run in the folder.
enum class FolderParts {
    none,
    added,  // by several commands at a time: a folder that holds parts is taken up as it is
    merged  // they are there already
};

struct FolderOptions {
    std::string directory;  // -o; empty for NAME.results
    bool overwrite = false;
    // Files that the run reads: a folder that holds one of them is not overwritten.
    std::vector<std::string> inputs = {};
    // Whether the folder's place is the command's own, so that whatever stands in it is too.
    bool own = false;
    // With parts the folder's name is NAME.results, or the one that is asked for.
    FolderParts parts = FolderParts::none;
};

class ResultsFolder {
  public:
    // Makes the folder: the one that is asked for, else NAME.results, NAME.results.2 and so on, the
    // first that is not there. What stands in a folder that is to be overwritten goes, as far as
    // commands have written it; a folder without results is left alone.
    ResultsFolder(const FolderOptions& options, const std::string& name);

    // Why there is no folder; empty when there is one.
    const std::string& mistake() const { return mistake_; }
    const std::string& directory() const { return directory_; }
    std::string path(const std::string& file) const { return directory_ + "/" + file; }

    // Makes a folder inside, or takes the one that is there; false when it cannot.
    bool make(const std::string& folder);
    // Writes a file of the folder whole.
    void write(const std::string& file, const std::string& text);
    // What is no longer true goes, as a part is done again: all but parts and networks.
    void reopen();
    // The last file, by rename; left out when one before could not be written.
    void finish(const std::string& result_json);
    // Files that could not be written, as seen from the working directory.
    const std::vector<std::string>& failures() const { return failures_; }

  private:
    void take(const FolderOptions& options);
    void take_next(const std::string& name);

    std::string directory_;
    std::string mistake_;
    std::vector<std::string> failures_;
};

// Tells that the folder is incomplete, and why; the exit status of that. `kept` says what is there
// all the same: "holds the 3 networks drawn so far".
int tell_interrupted(const ResultsFolder& folder, const std::string& kept = "");
int tell_failures(const ResultsFolder& folder);
