#include "support/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

#include "support/scratch_directory.h"

namespace {

void redirect(const std::string& path, int target) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file >= 0) {
        ::dup2(file, target);
    }
}

[[noreturn]] void become(const ChildSetting& setting, const std::string& output,
                         const std::string& errors) {
    redirect(output, STDOUT_FILENO);
    redirect(errors, STDERR_FILENO);
    // Tests may be started by a shell that has its children ignore Ctrl-C.
    ::signal(SIGINT, SIG_DFL);
    if (::chdir(setting.directory.c_str()) != 0) {
        ::_exit(127);
    }
    for (const auto& [name, value] : setting.environment) {
        ::setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char*> words;
    for (const std::string& word : setting.command) {
        words.push_back(const_cast<char*>(word.c_str()));
    }
    words.push_back(nullptr);
    ::execvp(words[0], words.data());
    ::_exit(127);
}

// Waits for the child's end; past the limit ends it.
int wait_for(pid_t child, std::chrono::microseconds limit, bool& timed_out) {
    const auto end = std::chrono::steady_clock::now() + limit;
    int status = 0;
    while (::waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) {
            timed_out = true;
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
            break;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

ChildResult run_child(const ChildSetting& setting) {
    const ScratchDirectory scratch;
    const std::string output = (scratch.path() / "output").string();
    const std::string errors = (scratch.path() / "errors").string();
    ChildResult result;
    const pid_t child = ::fork();
    if (child == 0) {
        become(setting, output, errors);
    }
    if (child > 0) {
        result.status = wait_for(child, setting.limit, result.timed_out);
        result.output = file_text(output);
        result.errors = file_text(errors);
    }
    return result;
}
