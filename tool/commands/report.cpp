#include <filesystem>

#include "base/native_path.h"
#include "commands/commands.h"
#include "commands/new_files.h"
#include "commands/options.h"
#include "commands/results_model.h"
#include "commands/study_input.h"
#include "formats/text_file.h"
#include "show/gof_document.h"
#include "show/pooled_page.h"
#include "show/report_page.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"
#include "terminal/process.h"

namespace {

namespace fs = std::filesystem;

enum class FigureFiles { none, svg, pdf, png };

struct ReportOptions {
    std::vector<std::string> folders;
    std::string output;  // directory; empty for the folder of the results
    FigureFiles figures = FigureFiles::none;
    bool open = false;
    bool overwrite = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
};

std::string text_of(const std::string& path) {
    const TextFile file = read_text_file(path);
    return file.ok() ? file.text : "";
}

// The study of the folder's model, or why there is none.
void add_study(const std::string& folder, ReportSource& source) {
    ModelOptions words;
    words.model = folder + "/model.toml";
    StudyInput input = read_study(model_of(words));
    if (input.ok()) {
        source.study = std::move(input.files.study);
        return;
    }
    source.missing = "The network is not drawn: " + problem_text(input.problems[0]);
}

// One folder, read. Problems are those of result.json and gof.json: the rest may be missing.
ReportSource read_source(const std::string& folder, Problems& problems) {
    ReportSource source;
    source.name = folder;
    const std::optional<ResultRecord> result = read_result(folder, problems);
    if (!result) {
        return source;
    }
    source.result = *result;
    source.samples = read_samples(text_of(folder + "/sample.csv"));
    source.model_text = text_of(folder + "/model.toml");
    source.log_text = text_of(folder + "/run.log");
    add_study(folder, source);
    if (const std::string gof = text_of(folder + "/gof.json"); !gof.empty()) {
        source.gof = read_gof_json(gof);
        if (!source.gof) {
            problems.push_back({.file = folder + "/gof.json",
                                .found = "another document",
                                .expected = "what `ovri gof` writes",
                                .mend = "run `ovri gof " + folder + "` again, or delete the file"});
        }
    }
    return source;
}

// Millimetres on paper: one column of a journal, or two for what is seen whole.
double paper_width(FigurePart part) {
    constexpr double kOneColumn = 88.0;
    constexpr double kTwoColumns = 180.0;
    return part == FigurePart::network ? kTwoColumns : kOneColumn;
}

// Makes a PDF or PNG of an SVG file; false, after a message, when it cannot.
bool convert_figure(const std::string& svg, const std::string& target, bool pdf) {
    const std::vector<std::string> words =
        pdf ? std::vector<std::string>{"rsvg-convert", "--format", "pdf", "--output", target, svg}
            : std::vector<std::string>{
                  "rsvg-convert", "--format",           "png",   "--zoom", "4", "--output",
                  target,         "--background-color", "white", svg};
    const int status = run_program(words);
    if (status == 0) {
        return true;
    }
    if (status < 0) {
        print(stderr,
              "ovri: the program rsvg-convert was not found, which makes PDF and PNG of figures; "
              "install it (on Debian: apt-get install librsvg2-bin) or take --figures svg\n");
    } else {
        print(stderr, "ovri: {} could not be written\n", target);
    }
    return false;
}

// Writes each figure into figures/; false after a message.
bool write_figures(const std::vector<NamedFigure>& figures, const std::string& directory,
                   FigureFiles kind) {
    const std::string folder = directory + "/figures";
    std::error_code problem;
    fs::create_directories(native_path(folder), problem);
    for (const NamedFigure& figure : figures) {
        const std::string stem = folder + "/" + figure.name;
        const std::string svg = stem + ".svg";
        if (!replace_file(svg, figure.drawing.document(paper_width(figure.part)))) {
            print(stderr, "ovri: {} could not be written\n", svg);
            return false;
        }
        if (kind == FigureFiles::svg) {
            continue;
        }
        const bool pdf = kind == FigureFiles::pdf;
        const bool made = convert_figure(svg, stem + (pdf ? ".pdf" : ".png"), pdf);
        fs::remove(native_path(svg), problem);
        if (!made) {
            return false;
        }
    }
    return true;
}

// The directory of the page, made when it is asked for. Empty, after a message, when there is none.
std::string page_directory(const ReportOptions& options) {
    if (!options.output.empty()) {
        std::error_code problem;
        fs::create_directories(native_path(options.output), problem);
        if (!fs::is_directory(native_path(options.output), problem)) {
            print(stderr, "ovri: the directory `{}` cannot be made\n", options.output);
            return "";
        }
        return options.output;
    }
    return options.folders.size() == 1 ? folder_word(options.folders[0]) : ".";
}

// No page and no figure that is there is replaced unasked.
bool may_write(const ReportOptions& options, const std::string& page,
               const std::string& directory) {
    const std::string figures = options.figures == FigureFiles::none ? "" : directory + "/figures";
    std::error_code problem;
    for (const std::string& path : {page, figures}) {
        if (!options.overwrite && !path.empty() && fs::exists(native_path(path), problem)) {
            print(stderr, "ovri: {} exists; add --overwrite, or name another directory by -o\n",
                  path);
            return false;
        }
    }
    return true;
}

struct Report {
    std::string page;
    std::vector<NamedFigure> figures;
};

// Whether the folder is one of many runs.
bool holds_jobs(const std::string& folder) {
    std::error_code problem;
    return fs::exists(native_path(folder + "/jobs"), problem) &&
           !fs::exists(native_path(folder + "/result.json"), problem);
}

Report report_of_jobs(const std::string& folder, Problems& problems) {
    const TextFile file = read_text_file(folder + "/summary.json");
    const std::optional<SummaryRecord> summary =
        file.ok() ? read_summary_json(file.text) : std::nullopt;
    if (!summary) {
        problems.push_back({.file = folder + "/summary.json",
                            .found = file.ok() ? "another document" : "no such file",
                            .expected = "the summary of `ovri batch`",
                            .mend = "merge the jobs: ovri batch PLAN --collect -o " + folder});
        return {};
    }
    std::vector<NamedFigure> figures = pooled_figures(*summary);
    std::string page = pooled_page(folder, *summary, figures);
    return {std::move(page), std::move(figures)};
}

Report report_of_results(const ReportOptions& options, Problems& problems) {
    std::vector<ReportSource> sources;
    for (const std::string& folder : options.folders) {
        if (!names_folder(folder)) {
            problems.push_back({.file = folder,
                                .found = "no results folder",
                                .expected = "a folder that `ovri estimate` has written",
                                .mend = "run `ovri estimate` first"});
            continue;
        }
        sources.push_back(read_source(folder_word(folder), problems));
    }
    if (!problems.empty()) {
        return {};
    }
    std::vector<NamedFigure> figures = report_figures(sources);
    std::string page = report_page(sources, figures);
    return {std::move(page), std::move(figures)};
}

int report(const ReportOptions& options) {
    outlive_failed_writes();
    const Screen screen = screen_on(stderr, options.colour);
    Problems problems;
    const bool jobs = options.folders.size() == 1 && holds_jobs(options.folders[0]);
    const Report made = jobs ? report_of_jobs(folder_word(options.folders[0]), problems)
                             : report_of_results(options, problems);
    if (!problems.empty()) {
        tell_problems(problems, screen);
        return kErrorsFound;
    }
    const std::string directory = page_directory(options);
    if (directory.empty()) {
        return kErrorsFound;
    }
    const std::string page = directory == "." ? "report.html" : directory + "/report.html";
    if (!may_write(options, page, directory)) {
        return kErrorsFound;
    }
    if (!replace_file(page, made.page)) {
        print(stderr, "ovri: {} could not be written\n", page);
        return kNotCompleted;
    }
    if (options.figures != FigureFiles::none &&
        !write_figures(made.figures, directory, options.figures)) {
        return kNotCompleted;
    }
    if (!options.quiet) {
        print(stderr, "report: {}\n", page);
    }
    if (options.open && !open_with_system(page)) {
        print(stderr, "{}: nothing on this system opens {}\n",
              painted(screen, Colour::yellow, "warning"), page);
    }
    return kDone;
}

void add_figures(CLI::App& app, FigureFiles& figures) {
    const auto take = [&figures](const std::string& word) -> std::string {
        figures = word == "svg"   ? FigureFiles::svg
                  : word == "pdf" ? FigureFiles::pdf
                  : word == "png" ? FigureFiles::png
                                  : FigureFiles::none;
        return figures == FigureFiles::none ? "takes svg, pdf or png, not `" + word + "`" : "";
    };
    add_checked_text(app, "--figures", take, "PICTURES",
                     "Write each figure into figures/, too: svg, pdf or png.");
}

std::function<int()> declare_report(CLI::App& app) {
    const auto options = std::make_shared<ReportOptions>();
    add_words(app, "RESULTS", options->folders, "Results folders of `ovri estimate`.");
    add_figures(app, options->figures);
    add_flag(app, "--open", options->open, "Open the page.");
    add_output(app, options->output,
               "The directory of the page, in place of the results folder (of several: the "
               "current directory).");
    add_flag(app, "--overwrite", options->overwrite, "Replace a page and figures that are there.");
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return report(*options); };
}

}  // namespace

extern const Command kReportCommand = {.name = "report",
                                       .summary = "one HTML page of a results folder",
                                       .examples = R"(
  ovri report karate.results --open
  ovri report karate.results --figures pdf
  ovri report first.results second.results -o comparison
  ovri report villages
)",
                                       .details = R"(
Makes report.html in the results folder: the verdict and what it means, the estimates
with their intervals, the network, the networks simulated at the estimates, goodness
of fit where `ovri gof` has been there, a paragraph for a paper, and all that is needed
to repeat the run. The page needs no network, no script and no other file. Of several
results it shows the same things side by side, on the same axes. Of a folder of
`ovri batch` it shows how the jobs ended and each parameter over the networks, as a
forest plot with the pooled mean.

A page that is there is replaced only by --overwrite.

--figures writes the figures as files, too: 88 mm wide (the network 180 mm), with
letters that print. PDF and PNG are made by the program rsvg-convert.
)",
                                       .statuses = R"(
Exit status: 0 done; 1 a folder is no results folder, or a page is there already; 2 the
command line was not understood; 3 begun and not completed.
)",
                                       .declare = declare_report};
