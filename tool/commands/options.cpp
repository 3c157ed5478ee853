#include "commands/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <map>

namespace {

// "auto, always or never".
std::string listed_choices(const std::string& value) {
    const std::vector<std::string> words = choices_of(value);
    std::string text;
    for (std::size_t k = 0; k < words.size(); ++k) {
        text += k == 0 ? "" : k + 1 < words.size() ? ", " : " or ";
        text += words[k];
    }
    return text;
}

CLI::ValidationError wrong_choice(const std::string& option, const std::string& value,
                                  const std::string& word) {
    return CLI::ValidationError(option, "takes " + listed_choices(value) + ", not `" + word + "`");
}

}  // namespace

std::vector<std::string> choices_of(const std::string& value) {
    if (value == "FORMAT") {
        return {"edge-list", "matrix", "pajek", "graphml", "gml", "dl", "dot"};
    }
    if (value == "WHEN") {
        return {"auto", "always", "never"};
    }
    return value == "SHELL" ? std::vector<std::string>{"bash", "zsh"} : std::vector<std::string>{};
}

void add_setup(CLI::App& app, std::string& path) {
    app.add_option("SETUP", path, "The setup file; - stands for standard input.")->required();
}

void add_output(CLI::App& app, std::string& directory, const std::string& text) {
    app.add_option("-o,--output", directory, text)
        ->type_name("DIR")
        ->check([](const std::string& name) {
            return name.empty() ? "takes the name of a directory" : "";
        });
}

void add_folder(CLI::App& app, FolderOptions& folder) {
    add_output(app, folder.directory,
               "The results folder, in place of NAME.results in the current directory.");
    app.add_flag("--overwrite", folder.overwrite,
                 "Write into the results folder even if it is there; earlier results in it go.");
}

void add_forms(CLI::App& app, bool& json, bool& csv) {
    CLI::Option* in_json =
        app.add_flag("--json", json, "Print result.json on standard output, and nothing else.");
    app.add_flag("--csv", csv, "Print estimates.csv on standard output, and nothing else.")
        ->excludes(in_json);
}

void add_format(CLI::App& app, const std::string& name, std::optional<NetworkFormat>& format,
                const std::string& text) {
    const auto take = [&format, name](const std::string& word) {
        format = network_format_of(word);
        if (!format) {
            throw wrong_choice(name, "FORMAT", word);
        }
    };
    app.add_option_function<std::string>(name, take,
                                         text + " One of " + listed_choices("FORMAT") + ".")
        ->type_name("FORMAT");
}

void add_shell(CLI::App& app, std::string& shell) {
    const auto take = [&shell](const std::string& word) {
        const std::vector<std::string> words = choices_of("SHELL");
        if (std::find(words.begin(), words.end(), word) == words.end()) {
            throw wrong_choice("--completion", "SHELL", word);
        }
        shell = word;
    };
    app.add_option_function<std::string>(
           "--completion", take,
           "Print the script by which the shell completes command lines: " +
               listed_choices("SHELL") + ".")
        ->type_name("SHELL");
}

void add_quiet(CLI::App& app, bool& quiet) {
    app.add_flag("-q,--quiet", quiet, "Nothing on standard error but errors.");
}

void add_colour(CLI::App& app, ColourChoice& choice) {
    static const std::map<std::string, ColourChoice> kChoices = {{"auto", ColourChoice::automatic},
                                                                 {"always", ColourChoice::always},
                                                                 {"never", ColourChoice::never}};
    const auto take = [&choice](const std::string& word) {
        const auto place = kChoices.find(word);
        if (place == kChoices.end()) {
            throw wrong_choice("--color", "WHEN", word);
        }
        choice = place->second;
    };
    app.add_option_function<std::string>(
           "--color", take,
           "Colour the words error and warning: auto (on a terminal, unless NO_COLOR is set), "
           "always or never.")
        ->type_name("WHEN");
}

CLI::Option& add_number(CLI::App& app, const std::string& name,
                        std::optional<std::uint32_t>& number, const std::string& text) {
    const auto take = [&number, name](const std::string& word) {
        std::uint32_t value = 0;
        const char* end = word.data() + word.size();
        const auto read = std::from_chars(word.data(), end, value);
        if (read.ec != std::errc() || read.ptr != end) {
            throw CLI::ValidationError(
                name, "takes a whole number from 0 to 4294967295, not `" + word + "`");
        }
        number = value;
    };
    return *app.add_option_function<std::string>(name, take, text)->type_name("N");
}
