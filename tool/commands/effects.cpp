#include <algorithm>
#include <memory>

#include "commands/commands.h"
#include "commands/options.h"
#include "encyclopaedia/effect_entries.h"
#include "show/effect_document.h"
#include "show/effect_text.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"
#include "terminal/similar.h"
#include "terminal/terminal.h"

namespace {

// Lines longer than this are hard to read, however wide the terminal is.
constexpr std::size_t kWidestLine = 100;
// A name that fits more effects than this gives a list.
constexpr std::size_t kMostArticles = 3;

struct EffectsOptions {
    std::string name;
    std::string search;
    bool directed = false;
    bool undirected = false;
    bool json = false;
    bool csv = false;
};

std::optional<NetworkKind> kind_of(const EffectsOptions& options) {
    return options.directed     ? std::optional(NetworkKind::directed)
           : options.undirected ? std::optional(NetworkKind::undirected)
                                : std::nullopt;
}

std::string unknown_effect(const std::string& name, std::optional<NetworkKind> kind) {
    if (const auto others = find_entries(name, std::nullopt); !others.empty()) {
        return fmt::format("`{}` is an effect of {} networks", name,
                           kind_name(others.front()->kind));
    }
    const std::string bare = name.substr(0, name.find('('));
    return unknown_word("effect", bare, entry_names(kind),
                        "`ovri effects` lists all, `ovri effects --search WORDS` finds some");
}

int effects(const EffectsOptions& options) {
    const std::optional<NetworkKind> kind = kind_of(options);
    const bool named = !options.name.empty();
    const auto found =
        named ? find_entries(options.name, kind) : search_entries(options.search, kind);
    if (named && found.empty()) {
        print(stderr, "ovri: {}\n", unknown_effect(options.name, kind));
        return kNotUnderstood;
    }
    outlive_failed_writes();
    const std::size_t width = std::min(terminal_width(stdout), kWidestLine);
    if (options.json) {
        print(stdout, "{}", effect_document(found));
    } else if (options.csv) {
        print(stdout, "{}", effect_csv(found));
    } else if (named && found.size() <= kMostArticles) {
        print(stdout, "{}", effect_articles(found, width));
    } else {
        print(stdout, "{}", effect_list(found, width));
    }
    if (found.empty()) {
        print(stderr, "no effect has `{}` in its names, its meaning or its keywords\n",
              options.search);
    }
    return lost_output(stdout) ? kNotCompleted : kDone;
}

std::function<int()> declare_effects(CLI::App& app) {
    const auto options = std::make_shared<EffectsOptions>();
    CLI::Option& name = add_word(app, "NAME", options->name, "The effect, in any spelling.");
    exclude(add_text(app, "--search", options->search, "WORDS",
                     "List the effects whose names, meaning or keywords hold all these words."),
            name);
    CLI::Option& directed =
        add_flag(app, "--directed", options->directed, "Of directed networks only.");
    exclude(add_flag(app, "--undirected", options->undirected, "Of undirected networks only."),
            directed);
    CLI::Option& json =
        add_flag(app, "--json", options->json, "Print a JSON document with every field instead.");
    exclude(add_flag(app, "--csv", options->csv, "Print a table with a line an effect instead."),
            json);
    return [options] { return effects(*options); };
}

}  // namespace

extern const Command kEffectsCommand = {.name = "effects",
                                        .summary = "what the effects are",
                                        .examples = R"(
  ovri effects
  ovri effects AT
  ovri effects 030T
  ovri effects gwesp --undirected
  ovri effects --search "closure popularity" --directed
)",
                                        .details = R"(
Without a NAME, lists every effect with its meaning. With one, tells what the
effect counts, with a drawing, its formulas, what lambda does, what it costs, what
is odd about it, what hosts' files call it, and its names in the literature and in
other packages, parameters converted. NAME may be any of these names.
)",
                                        .statuses = R"(
Exit status: 0 done; 2 the command line was not understood, or no effect has that
name; 3 standard output could not be written.
)",
                                        .declare = declare_effects};
