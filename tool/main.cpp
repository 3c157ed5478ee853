#include <exception>
#include <new>

#include "commands/command_line.h"
#include "commands/commands.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"
#include "terminal/terminal.h"

namespace {

// A command is not done before what it printed has left. A run tells so itself.
int check_output(int status) {
    if ((status == kDone || status == kErrorsFound) && lost_output(stdout)) {
        print(stderr, "ovri: not everything could be written to standard output\n");
        return kNotCompleted;
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        prepare_terminal();
        return check_output(obey(argc, argv));
    } catch (const std::bad_alloc&) {
        std::fputs("ovri: memory ran out\n", stderr);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "ovri: %s\n", problem.what());
    }
    return kNotCompleted;
}
