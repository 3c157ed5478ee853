// The words a person typed, from the table of commands to an exit status.
#pragma once

#include <string>

// Performs the command that the words name. A command line that cannot be understood ends in a
// message on standard error and status 2.
int obey(int argc, char** argv);

// The words that are being obeyed, fit to be pasted into a shell: "ovri estimate karate.toml -o r".
const std::string& command_text();
