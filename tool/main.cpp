#include <exception>
#include <new>

#include "commands/command_line.h"
#include "commands/commands.h"
#include "terminal/terminal.h"

int main(int argc, char** argv) {
    try {
        prepare_terminal();
        return obey(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("ovri: memory ran out\n", stderr);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "ovri: %s\n", problem.what());
    }
    return kNotCompleted;
}
