#include <memory>

#include "check/checks.h"
#include "commands/commands.h"
#include "commands/model_options.h"
#include "commands/new_files.h"
#include "commands/options.h"
#include "commands/setup_source.h"
#include "commands/study_input.h"
#include "formats/host_setup.h"
#include "formats/host_text.h"
#include "formats/network_writer.h"
#include "formats/nodes.h"
#include "formats/text_file.h"
#include "show/setup_listing.h"
#include "study/names.h"
#include "terminal/print.h"

namespace {

struct ConvertOptions {
    std::string in;
    std::string out;
    std::string nodes;
    std::optional<NetworkFormat> from;
    std::optional<NetworkFormat> to;
    std::optional<double> threshold;
    std::optional<RunMode> run;
    bool directed = false;
    bool undirected = false;
    bool explain = false;
    bool overwrite = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
};

// The format that is asked for, or that the path names; none where it names none.
std::optional<NetworkFormat> format_of_output(const ConvertOptions& options) {
    const std::string extension = path_extension(options.out);
    if (options.to) {
        return options.to;
    }
    if (options.out == "-" || extension == "csv" || extension == "tsv") {
        return NetworkFormat::edge_list;
    }
    return extension == "txt" ? NetworkFormat::matrix : format_of_path(options.out);
}

NetworkFile read_input(const ConvertOptions& options) {
    NetworkOptions reading{
        .format = options.from, .threshold = options.threshold, .guess_direction = true};
    if (options.directed || options.undirected) {
        reading.directed = options.directed;
    }
    if (options.nodes.empty()) {
        return read_network(options.in, reading, nullptr);
    }
    const NodesFile nodes = read_nodes(options.nodes, {});
    if (!nodes.ok()) {
        NetworkFile none;
        none.problems = nodes.problems;
        return none;
    }
    return read_network(options.in, reading, &nodes.actors);
}

void tell_lines(const std::string& about, const std::vector<std::string>& notes,
                const ConvertOptions& options) {
    for (const std::string& note : notes) {
        if (!options.quiet) {
            print(stderr, "{}: {}\n", about, note);
        }
    }
}

void tell_line(const std::string& about, const std::string& note, const ConvertOptions& options) {
    tell_lines(about, {note}, options);
}

// What OUT cannot hold goes into a nodes file beside it: attributes, and actors without ties where
// OUT is an edge list. Told, with the way to keep it where there is no room for such a file.
void add_nodes_file(const NetworkFile& network, NetworkFormat format, const ConvertOptions& options,
                    std::vector<NewFile>& files) {
    std::vector<std::string> left_out;
    if (format == NetworkFormat::edge_list && network.counts.isolates > 0) {
        const int isolates = network.counts.isolates;
        left_out.push_back(counted(isolates, "actor") + " without ties");
    }
    if (!network.columns.empty()) {
        std::vector<std::string> names;
        for (const ActorColumn& column : network.columns) {
            names.push_back(column.name);
        }
        left_out.push_back("the attributes " + listed_names(names));
    }
    if (left_out.empty()) {
        return;
    }
    const std::string what = left_out.front() + (left_out.size() > 1 ? " and " + left_out[1] : "");
    const std::string lost = std::string(network_format_name(format)) + " leaves out " + what;
    if (!options.nodes.empty() && network.columns.empty()) {
        tell_line(options.out, lost + "; read it with --nodes " + shell_word(options.nodes),
                  options);
    } else if (options.out == "-") {
        tell_line("standard output",
                  lost + "; name a file, and they are kept in a nodes file beside it" +
                      (network.columns.empty() ? ", or add --to graphml" : ""),
                  options);
    } else {
        files.push_back({path_stem(options.out) + "_nodes.csv",
                         nodes_text(network.network.actors, network.columns)});
        tell_line(options.out,
                  lost + "; they are in " + files.back().path + ": read it with --nodes " +
                      shell_word(files.back().path),
                  options);
    }
}

// Tells of names that the format cannot write; false where two of them would become one.
bool tell_names(const StudyNetwork& network, NetworkFormat format, const ConvertOptions& options) {
    if (const std::string name = clashing_name(network, format); !name.empty()) {
        print(stderr,
              "ovri: {}: {} has no sign for quotation marks in names, and without them {} is the "
              "name of two actors; take another format, such as --to graphml, or mend the name\n",
              options.in, network_format_name(format), shown_text(name));
        return false;
    }
    if (const auto names = changed_names(network, format); !names.empty()) {
        tell_line(options.out,
                  fmt::format("{} has no sign for quotation marks and line ends in names: "
                              "apostrophes and blanks stand in their place, as in that of {}; "
                              "graphml keeps them",
                              network_format_name(format), shown_text(names.front())),
                  options);
    }
    return true;
}

int convert_network(const ConvertOptions& options, NetworkFormat format) {
    const NetworkFile network = read_input(options);
    if (!network.ok()) {
        tell_problems(network.problems, screen_on(stderr, options.colour));
        return kErrorsFound;
    }
    tell_lines(options.in, network.notes, options);
    if (!tell_names(network.network, format, options)) {
        return kErrorsFound;
    }
    const char delimiter = path_extension(options.out) == "tsv" ? '\t' : ',';
    std::vector<NewFile> files = {{options.out, network_text(network.network, format, delimiter)}};
    add_nodes_file(network, format, options, files);
    if (files.size() > 1 && tell_existing({files.back().path}, options.overwrite)) {
        return kErrorsFound;
    }
    return write_new_files(files);
}

// Writes all or nothing, and tells the paths.
int write_parts(const HostFiles& made, const ConvertOptions& options) {
    if (!made.ok()) {
        tell_problems(made.problems, screen_on(stderr, options.colour));
        return kErrorsFound;
    }
    std::vector<std::string> paths;
    std::vector<NewFile> files;
    for (const TextPart& part : made.files) {
        paths.push_back(part.path);
        files.push_back({part.path, part.text});
    }
    if (tell_existing(paths, options.overwrite)) {
        return kErrorsFound;
    }
    tell_lines(options.out, made.notes, options);
    const int status = write_new_files(files);
    for (const std::string& path : paths) {
        if (status == kDone) {
            print(stdout, "{}\n", path);
        }
    }
    return status;
}

int convert_model(const ConvertOptions& options) {
    ModelOptions words;
    words.model = options.in;
    words.nodes = options.nodes;
    words.directed = options.directed;
    words.undirected = options.undirected;
    StudyInput input = read_study(model_of(words));
    if (!input.ok()) {
        tell_problems(input.problems, screen_on(stderr, options.colour));
        return kErrorsFound;
    }
    if (!options.quiet) {
        tell_notes(input, screen_on(stderr, options.colour));
    }
    if (options.run) {
        HostRun& host = input.model.host ? *input.model.host : input.model.host.emplace(HostRun{});
        host.mode = *options.run;
    }
    return write_parts(setup_of_study(input.model, input.files.study, input.resolved, options.out),
                       options);
}

// What keeps the setup file from being read as meant; what only its run would stumble over is left
// to the check of the run.
Findings reading_errors(SetupView& view) {
    Findings findings;
    check_setup(view, findings);
    if (count_findings(findings, Severity::error) > 0 ||
        view.setup.selection.catalogue == nullptr) {
        return findings;
    }
    const RunSettings& settings = view.setup.settings;
    if (find_item(view, SetupId::network_file) != nullptr) {
        check_network(view, SetupId::network_file, settings.network_path, findings);
    }
    if (find_item(view, SetupId::free_dyads_file) != nullptr) {
        check_network(view, SetupId::free_dyads_file, settings.free_dyads_path, findings);
    }
    check_attributes(view, findings);
    check_covariates(view, findings);
    return findings;
}

int convert_setup(const ConvertOptions& options) {
    const SetupSource source(options.in);
    SetupView view = read_view(source.path(), "", source.name());
    const Findings findings = reading_errors(view);
    if (count_findings(findings, Severity::error) > 0) {
        print_findings(findings, false, screen_on(stderr, options.colour));
        return kErrorsFound;
    }
    return write_parts(model_of_setup(view.setup, view.path, options.out), options);
}

int explain_setup(const ConvertOptions& options) {
    const SetupSource source(options.in);
    SetupView view = read_view(source.path(), "", source.name());
    if (!view.problem.empty()) {
        print(stderr, "ovri: {}: {}\n", view.path, view.problem);
        return kErrorsFound;
    }
    Findings findings;
    check_setup(view, findings);
    return write_new_files({{options.out, setup_listing(view, findings)}});
}

// What is wrong with the names of IN and OUT together; empty when they say what to make.
std::string name_mistake(const ConvertOptions& options) {
    const bool from_model = path_extension(options.in) == "toml";
    const bool to_model = path_extension(options.out) == "toml";
    if (options.explain) {
        return "";
    }
    if ((from_model || to_model) && options.out == "-") {
        return "a setup file has data files beside it: name OUT, such as net.setup";
    }
    const std::string extension = path_extension(options.out);
    if (from_model && (format_of_path(options.out) || extension == "csv" || extension == "tsv")) {
        return "`" + options.in +
               "` is a model file, which becomes a setup file: name OUT so, "
               "such as net.setup; or convert the network's own file";
    }
    if (!from_model && !to_model && !format_of_output(options)) {
        return "the name of OUT, `" + options.out +
               "`, tells no format; end it in .csv or .tsv (edge list), .txt or .matrix (matrix), "
               ".net, .graphml, .gml, .dl, .dot or .toml (model file), or add --to FORMAT";
    }
    return "";
}

int convert(const ConvertOptions& options) {
    if (const std::string mistake = name_mistake(options); !mistake.empty()) {
        print(stderr, "ovri: {}\n", mistake);
        return kNotUnderstood;
    }
    if (tell_existing({options.out}, options.overwrite)) {
        return kErrorsFound;
    }
    if (options.explain) {
        return explain_setup(options);
    }
    return path_extension(options.in) == "toml" ? convert_model(options)
           : path_extension(options.out) == "toml"
               ? convert_setup(options)
               : convert_network(options, *format_of_output(options));
}

std::function<int()> declare_convert(CLI::App& app) {
    const auto options = std::make_shared<ConvertOptions>();
    add_needed_word(app, "IN", options->in,
                    "The network, model file or setup file to read, or - for standard input.");
    add_needed_word(app, "OUT", options->out, "The file to write, or - for standard output.");
    add_format(app, "--from", options->from, "Format of IN, where its name does not tell.");
    add_format(app, "--to", options->to, "Format of OUT, where its name does not tell.");
    add_text(app, "--nodes", options->nodes, "FILE", "The actors, with those that have no ties.");
    add_direction(app, options->directed, options->undirected);
    add_threshold(app, options->threshold);
    add_run_mode(app, options->run);
    add_flag(app, "--explain", options->explain,
             "Write the setup file IN with a comment on every line.");
    add_flag(app, "--overwrite", options->overwrite, "Write files even if they are there.");
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return convert(*options); };
}

}  // namespace

extern const Command kConvertCommand = {
    .name = "convert",
    .summary = "networks between formats; a model file to a setup file and back",
    .examples = R"(
  ovri convert karate.csv karate.graphml
  ovri convert examples/karate/karate.txt karate.net
  ovri convert karate.gml - --to edge-list
  ovri convert karate.toml karate.setup
  ovri convert examples/karate/karate.setup karate.toml
  ovri convert examples/karate/karate.setup - --explain
)",
    .details = R"(
Networks: the formats are told by the names' extensions, by content, or by
--from and --to. A .csv is written as an edge list, as is standard output, a .tsv
with tabs, a .txt as a matrix. Without a word on direction it is guessed from the
ties. Actors keep their names. What OUT cannot hold is told and goes into a nodes
file beside it, OUT_nodes.csv: attributes, and actors without ties where OUT is an
edge list.

Where IN ends in .toml it is a model file, and OUT becomes a host's setup file;
where OUT ends in .toml, IN is a setup file. Data files are written beside OUT,
with its name: OUT_network.txt and so on. The way there and back asks for the
same run, byte for byte: what only a setup file says stands in the model file's
section [host]. Actors are called as in SETUP_actors.txt, where it stands beside
the setup file, else by their numbers. Paths in a setup file are as seen from the
current directory.

--explain writes a setup file for reading: each line with the names of its
values and what they mean, and what is wrong or surprising behind the last.
)",
    .statuses = R"(
Exit status: 0 done; 1 IN cannot be read or OUT exists, and nothing was written;
2 the command line was not understood; 3 OUT could not be written.
)",
    .declare = declare_convert};
