#include "commands/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <map>

#include "formats/host_run.h"
#include "formats/text_file.h"

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

std::string wrong_choice(const std::string& value, const std::string& word) {
    return "takes " + listed_choices(value) + ", not `" + word + "`";
}

// Takes one of a value's choices.
std::function<std::string(const std::string&)> taken_choice(const std::string& value,
                                                            std::string& taken) {
    return [value, &taken](const std::string& word) -> std::string {
        const std::vector<std::string> words = choices_of(value);
        taken = word;
        const bool known = std::find(words.begin(), words.end(), word) != words.end();
        return known ? "" : wrong_choice(value, word);
    };
}

// What is wrong with a number of the command line; nothing when it was read.
std::string read_number(const std::string& word, std::uint32_t least,
                        std::optional<std::uint32_t>& number) {
    std::uint32_t value = 0;
    const char* end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, value);
    if (read.ec != std::errc() || read.ptr != end || value < least) {
        return "takes a whole number from " + std::to_string(least) + " to 4294967295, not `" +
               word + "`";
    }
    number = value;
    return "";
}

}  // namespace

std::vector<std::string> choices_of(const std::string& value) {
    if (value == "FORMAT") {
        return {"edge-list", "matrix", "pajek", "graphml", "gml", "dl", "dot"};
    }
    if (value == "WHEN") {
        return {"auto", "always", "never"};
    }
    if (value == "ENGINE") {
        return {"slurm", "parallel", "make"};
    }
    if (value == "RUN") {
        return run_mode_names();
    }
    if (value == "METHOD") {
        return {"auto", "mcmle", "mple", "stochastic-approximation"};
    }
    if (value == "PICTURES") {
        return {"svg", "pdf", "png"};
    }
    return value == "SHELL" ? std::vector<std::string>{"bash", "zsh"} : std::vector<std::string>{};
}

CLI::Option& add_word(CLI::App& app, const std::string& kind, std::string& word,
                      const std::string& text) {
    return *app.add_option(kind, word, text);
}

CLI::Option& add_needed_word(CLI::App& app, const std::string& kind, std::string& word,
                             const std::string& text) {
    return *app.add_option(kind, word, text)->required();
}

CLI::Option& add_words(CLI::App& app, const std::string& kind, std::vector<std::string>& words,
                       const std::string& text) {
    return *app.add_option(kind, words, text)
                ->required()
                ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

CLI::Option& add_text(CLI::App& app, const std::string& name, std::string& value,
                      const std::string& kind, const std::string& text) {
    return *app.add_option(name, value, text)->type_name(kind)->check([](const std::string& word) {
        return word.empty() ? "takes a word that is not empty" : "";
    });
}

CLI::Option& add_checked_text(CLI::App& app, const std::string& name,
                              const std::function<std::string(const std::string&)>& take,
                              const std::string& kind, const std::string& text) {
    const auto checked = [take, name](const std::string& word) {
        if (const std::string mistake = take(word); !mistake.empty()) {
            throw CLI::ValidationError(name, mistake);
        }
    };
    return *app.add_option_function<std::string>(name, checked, text)->type_name(kind);
}

CLI::Option& add_flag(CLI::App& app, const std::string& name, bool& given,
                      const std::string& text) {
    return *app.add_flag(name, given, text);
}

void exclude(CLI::Option& one, CLI::Option& other) { one.excludes(&other); }

void add_setup(CLI::App& app, std::string& path) {
    add_needed_word(app, "SETUP", path, "The setup file; - stands for standard input.");
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
    add_flag(app, "--overwrite", folder.overwrite,
             "Write into the results folder even if it is there; earlier results in it go.");
}

void add_forms(CLI::App& app, bool& json, bool& csv, const std::string& json_file,
               const std::string& csv_file) {
    CLI::Option& in_json = add_flag(
        app, "--json", json, "Print " + json_file + " on standard output, and nothing else.");
    CLI::Option& in_csv =
        add_flag(app, "--csv", csv, "Print " + csv_file + " on standard output, and nothing else.");
    exclude(in_csv, in_json);
}

void add_format(CLI::App& app, const std::string& name, std::optional<NetworkFormat>& format,
                const std::string& text) {
    const auto take = [&format](const std::string& word) -> std::string {
        format = network_format_of(word);
        return format ? "" : wrong_choice("FORMAT", word);
    };
    add_checked_text(app, name, take, "FORMAT", text + " One of " + listed_choices("FORMAT") + ".");
}

void add_shell(CLI::App& app, std::string& shell) {
    add_checked_text(app, "--completion", taken_choice("SHELL", shell), "SHELL",
                     "Print the script by which the shell completes command lines: " +
                         listed_choices("SHELL") + ".");
}

void add_threshold(CLI::App& app, std::optional<double>& threshold) {
    const auto take = [&threshold](const std::string& word) -> std::string {
        threshold = number_of(word);
        return threshold ? "" : "takes a number, not `" + word + "`";
    };
    add_checked_text(app, "--threshold", take, "X",
                     "Weights of at least X are ties, the others are not.");
}

void add_run_mode(CLI::App& app, std::optional<RunMode>& mode) {
    const auto take = [&mode](const std::string& word) -> std::string {
        mode = run_mode_of(word);
        return mode ? "" : wrong_choice("RUN", word);
    };
    add_checked_text(app, "--run", take, "RUN",
                     "What the setup file asks for: " + listed_choices("RUN") +
                         ". Without it what the model file says under [host], else an "
                         "estimation.");
}

CLI::Option& add_engine(CLI::App& app, std::string& engine) {
    return add_checked_text(app, "--emit", taken_choice("ENGINE", engine), "ENGINE",
                            "Do nothing but write what an engine needs to do them all: " +
                                listed_choices("ENGINE") + ".");
}

void add_quiet(CLI::App& app, bool& quiet) {
    add_flag(app, "-q,--quiet", quiet, "Nothing on standard error but errors.");
}

void add_colour(CLI::App& app, ColourChoice& choice) {
    static const std::map<std::string, ColourChoice> kChoices = {{"auto", ColourChoice::automatic},
                                                                 {"always", ColourChoice::always},
                                                                 {"never", ColourChoice::never}};
    const auto take = [&choice](const std::string& word) -> std::string {
        const auto place = kChoices.find(word);
        if (place == kChoices.end()) {
            return wrong_choice("WHEN", word);
        }
        choice = place->second;
        return "";
    };
    add_checked_text(
        app, "--color", take, "WHEN",
        "Colour the words error and warning: auto (on a terminal, unless NO_COLOR is set), "
        "always or never.");
}

CLI::Option& add_number(CLI::App& app, const std::string& name,
                        std::optional<std::uint32_t>& number, const std::string& text,
                        std::uint32_t least) {
    const auto take = [&number, least](const std::string& word) {
        return read_number(word, least, number);
    };
    return add_checked_text(app, name, take, "N", text);
}

void add_threads(CLI::App& app, std::optional<std::uint32_t>& threads) {
    add_number(app, "--threads", threads, "Use at most N threads; results do not change.", 1);
}

void add_method(CLI::App& app, std::string& method) {
    add_checked_text(app, "--method", taken_choice("METHOD", method), "METHOD",
                     "How to estimate: " + listed_choices("METHOD") +
                         ". By default, auto: computed where dyads are independent of each other, "
                         "else mcmle.");
}
