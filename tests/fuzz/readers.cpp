#include <cstdlib>
#include <iterator>

#include "base/matrix_file.h"
#include "effects/attribute_table.h"
#include "fit/parameter_draws.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/readers.h"
#include "network/network_files.h"
#include "run/setup_file.h"

namespace {

constexpr int kMostActors = 40;

void expect(bool promise) {
    if (!promise) {
        std::abort();
    }
}

}  // namespace

void fuzz_setup(const std::uint8_t* data, std::size_t size) {
    static MemoryFile file;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string& path = file.write(text);
    try {
        SetupTrace trace;
        const SetupFile traced = read_setup(path, &trace);
        const SetupFile plain = read_setup(path);
        expect(plain.opened && trace.end_offset <= static_cast<long>(size));
        // Whoever explains a file reads what the engine reads.
        expect(plain.settings.run_mode == traced.settings.run_mode &&
               plain.settings.actor_count == traced.settings.actor_count &&
               plain.settings.sample_count == traced.settings.sample_count &&
               plain.selection.structural_count == traced.selection.structural_count);
    } catch (const ImpossibleCount&) {
        // More attributes than the file has characters.
    }
}

void fuzz_attributes(const std::uint8_t* data, std::size_t size) {
    static MemoryFile file;
    FuzzInput input(data, size);
    const int group = input.below(3);
    const int actors = input.below(kMostActors);
    const int count = input.below(6);
    const std::string& path = file.write(input.rest());
    AttributeTable table;
    table.actors = actors;
    if (group == 0) {
        attribute_read_binary(table, actors, count, path, nullptr);
        expect(table.binary_names.size() == static_cast<std::size_t>(count));
    } else if (group == 1) {
        attribute_read_continuous(table, actors, count, path, nullptr);
        expect(table.continuous_names.size() == static_cast<std::size_t>(count));
    } else {
        attribute_read_categorical(table, actors, count, path, nullptr);
        expect(table.categorical_names.size() == static_cast<std::size_t>(count));
    }
}

void fuzz_covariates(const std::uint8_t* data, std::size_t size) {
    static MemoryFile file;
    FuzzInput input(data, size);
    const int actors = input.below(kMostActors);
    const int count = input.below(4);
    AttributeTable table;
    table.actors = actors;
    read_covariates(table, actors, count, file.write(input.rest()), nullptr);
    expect(table.covariate_names.size() == static_cast<std::size_t>(count));
}

void fuzz_matrix(const std::uint8_t* data, std::size_t size) {
    static MemoryFile file;
    FuzzInput input(data, size);
    const int actors = input.below(kMostActors);
    const std::string& path = file.write(input.rest());
    const Graph graph = graph_read_matrix(path, actors, 1, 8);
    const Digraph digraph = digraph_read_matrix(path, actors, 1);
    expect(graph_read_dyads(path, actors).words == graph.adjacency.words);
    expect(digraph_read_dyads(path, actors).words == digraph.adjacency.words);
    // An undirected reader sees the cells above the diagonal of what a directed one sees.
    for (int i = 0; i < actors; ++i) {
        for (int j = i + 1; j < actors; ++j) {
            expect(graph_has_edge(graph, i, j) == digraph_has_arc(digraph, i, j));
        }
    }
}

void fuzz_covariance(const std::uint8_t* data, std::size_t size) {
    static MemoryFile file;
    FuzzInput input(data, size);
    const int p = input.below(12);
    const Matrix matrix = matrix_read(file.write(input.rest()), p);
    expect(matrix.cells.size() == static_cast<std::size_t>(p) * static_cast<std::size_t>(p));
    RandomSource random{1, [] { return 20000; }};
    const std::vector<double> means(static_cast<std::size_t>(p), 0.5);
    expect(draw_parameters(means, matrix, 3, random).rows == 3);
}
