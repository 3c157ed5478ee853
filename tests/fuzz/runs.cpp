#include "fuzz/runs.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/fuzz_input.h"
#include "run/run.h"
#include "run/setup_file.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"

namespace {

constexpr int kMostActors = 9;
constexpr std::array<const char*, 12> kValues = {"0",   "1",    "-1",   "0.5",  "-2.5",   "30",
                                                 "-30", "1e30", "-1e9", "0.01", "9999.0", "nan"};
constexpr std::array<float, 8> kLambdas = {2.0F, 1.0F, 0.0F, -1.0F, 0.5F, 1e30F, 3.0F, 1e-30F};

double value_of(FuzzInput& input) {
    constexpr std::array<double, 8> values = {0.0, 0.5, -0.5, -2.0, 1e-3, 40.0, -1e300, 1e300};
    return values[static_cast<std::size_t>(input.below(values.size()))];
}

std::string text_of(FuzzInput& input) {
    return kValues[static_cast<std::size_t>(input.below(kValues.size()))];
}

// What the bytes choose of the model; ends with the input.
void choose_effects(FuzzInput& input, SetupText& setup) {
    const Catalogue& catalogue = catalogue_of(setup.kind);
    const int count = input.below(6);
    for (int k = 0; k < count; ++k) {
        const auto place =
            static_cast<std::size_t>(input.below(static_cast<int>(catalogue.setup_order.size())));
        const int id = catalogue.setup_order[place];
        setup.effects.push_back({catalogue.effects[static_cast<std::size_t>(id)].row,
                                 value_of(input),
                                 kLambdas[static_cast<std::size_t>(input.below(kLambdas.size()))]});
    }
    if (input.below(2) == 1) {
        setup.attributes = attribute_section(setup.kind, input.below(3), text_of(input));
    }
    if (input.below(2) == 1) {
        setup.covariates = covariate_section(setup.kind, input.below(3), text_of(input));
    }
}

SetupText choose_setup(FuzzInput& input, int mode) {
    SetupText setup;
    setup.mode = mode;
    setup.kind = input.below(2) == 1 ? NetworkKind::directed : NetworkKind::undirected;
    setup.proposal = input.below(4);
    setup.actors = input.below(kMostActors + 1);
    setup.density = text_of(input);
    setup.cap = input.below(4);
    choose_effects(input, setup);
    setup.free_dyads = input.below(3) == 1 ? "free.txt" : "";
    for (int& flag : setup.switches) {
        flag = input.below(2);
    }
    setup.burn_in = std::to_string(input.below(20));
    setup.iterations = std::to_string(input.below(60));
    setup.samples = std::to_string(input.below(12) - 1);
    setup.sub_phases = input.below(3);
    setup.a_value = text_of(input);
    setup.factor = input.below(3);
    setup.phase3_steps = input.below(20);
    setup.runs = input.below(3);
    // A fit that follows an estimation makes a million proposals, whatever the settings say.
    setup.fit = 0;
    return setup;
}

void write_file(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

void run_mode(const std::uint8_t* data, std::size_t size, int mode) {
    static const ScratchDirectory scratch;
    static const std::filesystem::path inputs = scratch.path();
    static const std::filesystem::path outputs = scratch.path() / "out";
    FuzzInput input(data, size);
    const SetupText setup = choose_setup(input, mode);
    for (const auto& [name, text] : attribute_files(setup.actors)) {
        write_file(inputs / name, input.below(4) == 0 ? input.text(60) : text);
    }
    write_file(inputs / "free.txt", input.text(60));
    write_file(inputs / "covariance.txt", input.text(60));
    write_file(inputs / "network.txt", input.rest());
    write_file(inputs / "run.setup", setup_text(setup));
    std::filesystem::remove_all(outputs);
    std::filesystem::create_directory(outputs);
    std::filesystem::current_path(inputs);
    HostOptions options;
    options.path_separator = '/';
    options.updates_beside_outputs = true;
    options.console = nullptr;
    options.clock_seconds = [] { return 20000; };
    FileFailures failures;
    options.file_failures = &failures;
    try {
        run_setup_file("run.setup", options);
    } catch (const ImpossibleCount&) {
        // More attributes than the file has characters.
    }
    for (const FileFailure& failure : failures.files) {
        if (!failure.reading) {
            std::abort();
        }
    }
}

}  // namespace

void fuzz_simulation(const std::uint8_t* data, std::size_t size) { run_mode(data, size, 1); }
void fuzz_estimation(const std::uint8_t* data, std::size_t size) { run_mode(data, size, 2); }
void fuzz_fit(const std::uint8_t* data, std::size_t size) { run_mode(data, size, 3); }
void fuzz_bayesian_fit(const std::uint8_t* data, std::size_t size) { run_mode(data, size, 4); }
