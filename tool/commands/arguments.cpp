#include "commands/arguments.h"

#include <getopt.h>

#include <array>
#include <limits>

namespace {

// Options without a short form are told apart by values that no character has.
constexpr int kClock = 256;
constexpr int kSeed = 257;
constexpr int kNoCheck = 258;

// Each command takes the options of its own list. The leading ':' has a missing value reported as
// such; '+' ends the options at the first other word.
struct Syntax {
    const char* short_options;
    std::array<option, 7> long_options;
};

constexpr Syntax kGlobalSyntax = {
    "+:hV", {{{"help", no_argument, nullptr, 'h'}, {"version", no_argument, nullptr, 'V'}}}};
constexpr Syntax kRunSyntax = {":ho:q",
                               {{{"clock", required_argument, nullptr, kClock},
                                 {"seed", required_argument, nullptr, kSeed},
                                 {"output", required_argument, nullptr, 'o'},
                                 {"quiet", no_argument, nullptr, 'q'},
                                 {"no-check", no_argument, nullptr, kNoCheck},
                                 {"help", no_argument, nullptr, 'h'}}}};
constexpr Syntax kCheckSyntax = {
    ":ho:", {{{"output", required_argument, nullptr, 'o'}, {"help", no_argument, nullptr, 'h'}}}};
constexpr Syntax kHelpSyntax = {":h", {{{"help", no_argument, nullptr, 'h'}}}};

// A whole number of 32 bits, digits only.
std::optional<std::uint32_t> parse_number(const std::string& text) {
    std::uint64_t value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        value = value * 10 + static_cast<std::uint64_t>(digit - '0');
        if (value > std::numeric_limits<std::uint32_t>::max()) {
            return std::nullopt;
        }
    }
    return text.empty() ? std::nullopt : std::optional(static_cast<std::uint32_t>(value));
}

void take_number(Arguments& arguments, const char* name, std::optional<std::uint32_t>& target) {
    target = parse_number(optarg);
    if (!target) {
        arguments.mistake =
            std::string(name) + " takes a whole number from 0 to 4294967295, not '" + optarg + "'";
    }
}

std::string unknown_option(char** argv) {
    // For a short option the character is known; a long one is the word just passed.
    if (optopt > 0 && optopt < 256) {
        return std::string("there is no option '-") + static_cast<char>(optopt) + "' here";
    }
    return std::string("there is no option '") + argv[optind - 1] + "' here";
}

void take_option(Arguments& arguments, int found, char** argv) {
    switch (found) {
        case 'h':
            arguments.help_topic = arguments.command == Command::run     ? "run"
                                   : arguments.command == Command::check ? "check"
                                                                         : "";
            arguments.command = Command::help;
            break;
        case 'V':
            arguments.command = Command::version;
            break;
        case 'o':
            arguments.output = optarg;
            if (arguments.output.empty()) {
                arguments.mistake = "--output takes the name of a directory";
            }
            break;
        case 'q':
            arguments.quiet = true;
            break;
        case kClock:
            take_number(arguments, "--clock", arguments.clock);
            break;
        case kSeed:
            take_number(arguments, "--seed", arguments.seed);
            break;
        case kNoCheck:
            arguments.check_first = false;
            break;
        case ':':
            arguments.mistake = std::string("the option '") + argv[optind - 1] + "' takes a value";
            break;
        default:
            arguments.mistake = unknown_option(argv);
    }
}

// Takes the options of a command; help wins over everything, the first mistake over the rest.
void take_options(Arguments& arguments, const Syntax& syntax, int argc, char** argv) {
    opterr = 0;
    const Command asked = arguments.command;
    int found = getopt_long(argc, argv, syntax.short_options, syntax.long_options.data(), nullptr);
    while (found != -1) {
        take_option(arguments, found, argv);
        if (!arguments.mistake.empty() || arguments.command != asked) {
            return;
        }
        found = getopt_long(argc, argv, syntax.short_options, syntax.long_options.data(), nullptr);
    }
}

void take_setup(Arguments& arguments, int argc, char** argv, const std::string& command) {
    if (optind >= argc) {
        arguments.mistake = "'ovri " + command + "' takes a setup file";
    } else if (optind + 1 < argc) {
        arguments.mistake = "'ovri " + command + "' takes one setup file; '" + argv[optind + 1] +
                            "' is one too many (a path with blanks needs quotes)";
    } else {
        arguments.setup = argv[optind];
    }
}

void parse_work(Arguments& arguments, int argc, char** argv, const std::string& command) {
    const bool run = command == "run";
    arguments.command = run ? Command::run : Command::check;
    take_options(arguments, run ? kRunSyntax : kCheckSyntax, argc, argv);
    if (!arguments.mistake.empty() || arguments.command == Command::help) {
        return;
    }
    if (arguments.clock && arguments.seed) {
        arguments.mistake =
            "--clock and --seed exclude each other: each decides the random numbers";
        return;
    }
    take_setup(arguments, argc, argv, command);
}

void parse_help(Arguments& arguments, int argc, char** argv) {
    arguments.command = Command::help;
    take_options(arguments, kHelpSyntax, argc, argv);
    if (arguments.mistake.empty() && optind < argc) {
        arguments.help_topic = argv[optind];
        if (!is_command(arguments.help_topic)) {
            arguments.mistake = "there is no command '" + arguments.help_topic + "' to help with";
        }
    }
}

void parse_global(Arguments& arguments, int argc, char** argv) {
    // A command that no option sets: what is left after the options decides.
    arguments.command = Command::run;
    take_options(arguments, kGlobalSyntax, argc, argv);
    if (arguments.help_topic == "run") {
        arguments.help_topic.clear();
    }
    if (arguments.mistake.empty() && arguments.command == Command::run) {
        arguments.mistake = "the command comes first: ovri run SETUP, ovri check SETUP";
    }
}

}  // namespace

bool is_command(const std::string& word) {
    return word == "run" || word == "check" || word == "help";
}

Arguments parse_arguments(int argc, char** argv) {
    Arguments arguments;
    const std::string first = argc > 1 ? argv[1] : "";
    if (first.empty()) {
        arguments.mistake = "a command is missing";
    } else if (first[0] == '-') {
        parse_global(arguments, argc, argv);
    } else if (first == "help") {
        parse_help(arguments, argc - 1, argv + 1);
    } else if (is_command(first)) {
        parse_work(arguments, argc - 1, argv + 1, first);
    } else {
        arguments.mistake = "there is no command '" + first + "'";
    }
    return arguments;
}
