#include "run/run.h"

#include "base/text_reader.h"
#include "run/run_context.h"

void read_attribute_files(RunContext& run) {
    EffectSelection& selection = run.selection;
    AttributeTable& table = selection.table;
    const int n = run.settings.actor_count;
    std::FILE* console = run.options.console;
    table.actors = n;
    const auto read = [&](AttributeGroup group, auto reader) {
        const AttributeSelection& chosen = group_of(selection, group);
        if (chosen.attributes != 0) {
            reader(table, n, chosen.attributes, chosen.path, console);
        }
    };
    read(AttributeGroup::binary, attribute_read_binary);
    read(AttributeGroup::continuous, attribute_read_continuous);
    read(AttributeGroup::categorical, attribute_read_categorical);
    read(AttributeGroup::covariate, read_covariates);
}

namespace {

template <class Network>
void dispatch(RunContext& run) {
    switch (static_cast<RunMode>(run.settings.run_mode)) {
        case RunMode::simulation:
            simulation_sequence<Network>(run);
            break;
        case RunMode::estimation:
            estimation_sequence<Network>(run);
            break;
        case RunMode::fit:
            fit_sequence<Network>(run);
            break;
        case RunMode::bayesian_fit:
            bayesian_fit_sequence<Network>(run);
            break;
    }
}

// Networks of more actors than this have tables of terabytes.
constexpr int kMostActors = 1 << 20;
// Reports show a count below zero as it is, with tables that grow as its square.
constexpr int kLeastActors = -1000;

// A count of actors that no network can have makes an empty one, before any table is made for it.
void bound_actors(SetupFile& setup) {
    int& count = setup.settings.actor_count;
    if (count < kLeastActors || count > kMostActors) {
        count = 0;
    }
    setup.selection.actors = count;
}

// False when the host stopped the run; what was written until then is closed.
bool perform(RunContext& run) {
    try {
        if (run.settings.network_kind == static_cast<int>(NetworkKind::directed)) {
            dispatch<Digraph>(run);
        } else {
            dispatch<Graph>(run);
        }
    } catch (const RunStopped&) {
        return false;
    }
    return true;
}

}  // namespace

void run_setup_file(const std::string& path, const HostOptions& options) {
    const CLocaleScope locale;
    FileFailures unseen_failures;
    const FileFailureScope failures(options.file_failures != nullptr ? *options.file_failures
                                                                     : unseen_failures);
    SetupFile setup = read_setup(path);
    if (!setup.opened || setup.selection.catalogue == nullptr) {
        return;
    }
    bound_actors(setup);
    if (!options.output_directory.empty()) {
        setup.settings.output_directory = options.output_directory;
    }
    echo_sections(setup.selection, options.console);
    RunProgress unseen;
    RunContext run{
        options,
        setup.settings,
        setup.selection,
        output_paths(setup.settings.output_directory, setup.settings.network_name,
                     options.path_separator, static_cast<NetworkKind>(setup.settings.network_kind),
                     options.updates_beside_outputs),
        RandomSource{1, options.clock_seconds},
        options.progress != nullptr ? *options.progress : unseen};
    const bool done = perform(run);
    if (options.console != nullptr) {
        std::fflush(options.console);
    }
    if (done) {
        progress_start(run.progress, RunStage::done, 0.0);
    }
}
