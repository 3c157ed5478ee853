// The files of an installation that are made of the command table.
#pragma once

#include <string>

namespace CLI {
class App;
}

// Writes every manual page and completion script below the directory, where share/ of an
// installation has them: man/man1/, bash-completion/completions/, zsh/site-functions/. False, and
// told on standard error, when a file could not be written.
bool write_pages(const CLI::App& tool, const std::string& directory);
