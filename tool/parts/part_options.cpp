#include "parts/part_options.h"

#include <fmt/core.h>

#include "commands/options.h"

void add_parts(CLI::App& app, PartOptions& options, const std::string& pieces) {
    add_number(app, "--parts", options.parts,
               "Divide the " + pieces +
                   " among N parts with random numbers of their own, which may be carried out "
                   "apart. Parts that are there are kept.",
               1);
    CLI::Option& part =
        add_number(app, "--part", options.part, "Carry out part N alone, from 1 on.");
    CLI::Option& collect = add_flag(app, "--collect", options.collect,
                                    "Carry out no part; merge those that are there.");
    CLI::Option& engine = add_engine(app, options.engine);
    exclude(collect, part);
    exclude(collect, engine);
    exclude(part, engine);
}

std::string part_mistake(const PartOptions& options) {
    if ((options.apart() || !options.engine.empty()) && !options.parts) {
        return fmt::format("`{}` needs `--parts N`, the number of parts in all",
                           options.part      ? "--part"
                           : options.collect ? "--collect"
                                             : "--emit");
    }
    if (options.part && (*options.part < 1 || *options.part > *options.parts)) {
        return fmt::format("`--part` takes a number from 1 to {}, not {}", *options.parts,
                           *options.part);
    }
    return "";
}

std::string part_mistake(const PartOptions& options, int pieces, const StudyInput& input) {
    if (options.parts && *options.parts > static_cast<std::uint32_t>(pieces)) {
        return fmt::format("`--parts {}` are more than there are networks to draw, {}; take fewer",
                           *options.parts, pieces);
    }
    if (options.apart() && !input.files.study.settings.run.seed) {
        return fmt::format(
            "`{}` needs the seed that all parts share: add --seed N, the same for "
            "every part",
            options.part ? "--part" : "--collect");
    }
    if (!options.engine.empty() && input.model.network.file == "-") {
        return "`--emit` needs the network in a file, which each part reads";
    }
    return "";
}

FolderOptions folder_of(FolderOptions folder, const PartOptions& options, bool seed) {
    folder.parts = options.divided() && (seed || !options.engine.empty()) ? FolderParts::added
                                                                          : FolderParts::none;
    if (options.apart()) {
        folder.parts = options.collect ? FolderParts::merged : FolderParts::added;
        folder.overwrite = false;
    }
    return folder;
}
