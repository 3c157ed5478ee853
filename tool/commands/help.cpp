#include "commands/help.h"

namespace {

constexpr const char* kOverview =
    R"(ovri - simulate, estimate and test exponential random graph models

Usage:
  ovri run SETUP [options]     perform the run that a setup file describes
  ovri check SETUP [options]   explain what is wrong or surprising in a setup file
  ovri help [COMMAND]          show this page, or the page of a command
  ovri --version               show the version

A setup file names a network, a model and a kind of run: a simulation, an
estimation, a goodness of fit or a Bayesian goodness of fit. Results are text
files in its output directory. For a first run, from the root of the source tree:

  mkdir -p results
  ovri check examples/florentine/florentine.setup
  ovri run examples/florentine/florentine.setup

Exit status: 0 done; 1 the check found errors; 2 the command line was not
understood; 3 a run began and could not be completed.
)";

constexpr const char* kRun =
    R"(ovri run SETUP - perform the run that a setup file describes

Usage:
  ovri run SETUP [--clock N | --seed N] [--output DIR] [--quiet] [--no-check]

The setup file and every file it names are checked first (see 'ovri help check').
Errors stop the run before anything is written; warnings are shown and stop
nothing. Then the run writes its results into the output directory, and the files
with the estimates (update files) beside them. Some results are added to the end
of a file that an earlier run has left; the summary names every file.

Options:
  --seed N        Draw from seed N. A run reseeds its random numbers several
                  times: the first time with N, then with N + 1, and so on, so
                  its parts do not repeat each other. The seed is always shown.
  --clock N       Hold the clock at second N: every reseeding uses N.
  -o, --output DIR
                  Write into the directory DIR, which must exist, in place of
                  the one the setup file names. Files that are read stay where
                  they are.
  -q, --quiet     Show no warnings, no progress and no summary; errors and the
                  seed of --seed are shown all the same.
  --no-check      Run without the check. Values that cannot be read then keep
                  their defaults, silently.
  -h, --help      Show this page.

N is a whole number from 0 to 4294967295. With neither --seed nor --clock every
reseeding takes the second of the real clock. The same setup, data and --seed (or
--clock) give the same results.

The run's own text goes to standard output, and nothing else does. Warnings,
errors, progress and the summary go to standard error; progress is shown only
when that is a terminal. With the run's text on a terminal too, it comes at the
end.

Exit status: 0 the run is done; 1 the check found errors; 2 the command line was
not understood; 3 the run could not be completed (memory ran out, or nothing
could be written).
)";

constexpr const char* kCheck =
    R"(ovri check SETUP - explain what is wrong or surprising in a setup file

Usage:
  ovri check SETUP [--output DIR]

Reads the setup file and every file it names just as a run reads them, and writes
nothing. A setup file is read by position: each value stands behind a label of
one word, and the label is for people only. So a label with a blank in it, a
number too few or a row too many moves everything behind it to the wrong place,
and the run itself would not notice.

Each finding tells file, line and item, then what was found, what is expected and
how to mend it:

  error      the run would not do what the file says: files that are missing,
             values that cannot be read, counts that do not match, an output
             directory that cannot be written, settings under which the network
             could never change
  warning    legal but surprising: cells that are ignored, a lambda that switches
             its effect off, settings that give no samples

Findings go to standard output. 'ovri run' makes the same check first.

Options:
  -o, --output DIR
                  Check DIR as the output directory, as 'ovri run --output DIR'
                  would use it.
  -h, --help      Show this page.

Exit status: 0 no errors (there may be warnings); 1 errors; 2 the command line
was not understood.
)";

}  // namespace

void print_help(const std::string& topic, std::FILE* out) {
    const char* page = topic == "run" ? kRun : topic == "check" ? kCheck : kOverview;
    std::fputs(page, out);
}

void print_version(std::FILE* out) { std::fprintf(out, "ovri %s\n", OVRI_VERSION); }
