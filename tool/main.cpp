#include <cstdio>
#include <exception>

#include "commands/arguments.h"
#include "commands/commands.h"
#include "commands/help.h"
#include "terminal/host_arguments.h"

namespace {

int obey(const Arguments& arguments) {
    if (!arguments.mistake.empty()) {
        std::fprintf(stderr, "ovri: %s\nTry 'ovri help'.\n", arguments.mistake.c_str());
        return kNotUnderstood;
    }
    switch (arguments.command) {
        case Command::run:
            return run_command(arguments);
        case Command::check:
            return check_command(arguments);
        case Command::version:
            print_version(stdout);
            return kDone;
        case Command::help:
            break;
    }
    print_help(arguments.help_topic, stdout);
    return kDone;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        HostArguments words(argc, argv);
        return obey(parse_arguments(words.count(), words.values()));
    } catch (const std::exception&) {
        std::fprintf(stderr, "ovri: memory ran out\n");
        return kNotCompleted;
    }
}
