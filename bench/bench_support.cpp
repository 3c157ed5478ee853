#include "bench_support.h"

#include <cstdint>
#include <utility>

#include "base/text_writer.h"
#include "network/network_files.h"

namespace {

constexpr float kLambda = 2.0F;

// Attribute values drawn from a fixed stream: two thirds ordinary values, no missing ones.
void fill_attributes(AttributeTable& table, int actors) {
    RandomSource random = seeded_random();
    std::vector<int> binary;
    std::vector<int> codes;
    std::vector<float> reals;
    for (int actor = 0; actor < actors; ++actor) {
        binary.push_back(random_below(random, 2));
        codes.push_back(1 + random_below(random, 5));
        reals.push_back(static_cast<float>(random_below(random, 100)) / 4.0F);
    }
    FloatTable covariate(actors, actors);
    for (int i = 0; i < actors; ++i) {
        for (int j = i + 1; j < actors; ++j) {
            covariate[i][j] = static_cast<float>(random_below(random, 8));
            covariate[j][i] = covariate[i][j];
        }
    }
    table.actors = actors;
    table.binary = {coded_attribute(std::move(binary))};
    table.categorical = {coded_attribute(std::move(codes))};
    table.continuous = {continuous_attribute(std::move(reals))};
    table.covariates = {std::move(covariate)};
    table.binary_names = {"binary"};
    table.categorical_names = {"category"};
    table.continuous_names = {"real"};
    table.covariate_names = {"covariate"};
}

EffectSelection empty_selection(NetworkKind kind, int actors) {
    EffectSelection selection = selection_create(kind);
    selection.structural_flag = 1;
    selection.actors = actors;
    for (StructuralChoice& choice : selection.structural) {
        choice.lambda = kLambda;
    }
    return selection;
}

double row_checksum(const BitMatrix& adjacency, int actors) {
    std::uint64_t sum = 0;
    for (int i = 0; i < actors; ++i) {
        row_for_each(adjacency[i], adjacency.words_per_row, [&](int j) {
            sum = (sum * 31 + static_cast<std::uint64_t>(i * actors + j)) % 1000003;
        });
    }
    return static_cast<double>(sum);
}

}  // namespace

RandomSource seeded_random() {
    return {1, [] { return std::int64_t{1}; }};
}

Graph random_graph(int actors, int mean_degree, int statistic_count, int clique_depth) {
    RandomSource random = seeded_random();
    return graph_random_with_edges(actors, actors * mean_degree / 2, statistic_count, clique_depth,
                                   random);
}

Digraph random_digraph(int actors, int mean_out_degree, int statistic_count) {
    RandomSource random = seeded_random();
    return digraph_random_with_arcs(actors, actors * mean_out_degree, statistic_count, random);
}

template <class Network>
BenchModel<Network>::BenchModel(EffectSelection filled)
    : selection(std::move(filled)),
      parameters(assemble_parameters(selection)),
      active(active_model<Network>(selection)) {}

template struct BenchModel<Graph>;
template struct BenchModel<Digraph>;

EffectSelection structural_selection(NetworkKind kind, int actors,
                                     const std::vector<NamedValue>& effects) {
    EffectSelection selection = empty_selection(kind, actors);
    const auto rows = selection.catalogue->effects;
    for (const int id : selection.catalogue->setup_order) {
        const auto index = static_cast<std::size_t>(id);
        for (const NamedValue& effect : effects) {
            if (effect.row == rows[index].row) {
                selection.structural[index].position = selection.structural_count++;
                selection.structural[index].value = effect.value;
            }
        }
    }
    return selection;
}

void for_each_effect(NetworkKind kind, int actors,
                     const std::function<void(const std::string&, const EffectSelection&)>& visit) {
    const Catalogue& catalogue = catalogue_of(kind);
    for (std::size_t id = 0; id < catalogue.effects.size(); ++id) {
        EffectSelection selection = empty_selection(kind, actors);
        selection.structural[id].position = selection.structural_count++;
        selection.structural[id].value = 1.0;
        visit(catalogue.effects[id].row, selection);
    }
    AttributeTable table;
    fill_attributes(table, actors);
    for (const AttributeGroup group : kAllGroups) {
        const auto effects = group_catalogue(catalogue, group).effects;
        for (std::size_t row = 0; row < effects.size(); ++row) {
            EffectSelection selection = empty_selection(kind, actors);
            selection.table = table;
            selection_resize_group(selection, group, 1);
            AttributeSelection& chosen = group_of(selection, group);
            chosen.flag = 1;
            chosen.attributes = 1;
            chosen.selected = 1;
            chosen.choices[row][0] = {1, 1.0};
            const std::string& name = attribute_names(selection, group)[0];
            visit(text_with_name(effects[row].update, name), selection);
        }
    }
}

double checksum(const Graph& graph) { return row_checksum(graph.adjacency, graph.vertices); }
double checksum(const Digraph& digraph) {
    return row_checksum(digraph.adjacency, digraph.vertices);
}

OutputPaths discarded_outputs() {
    OutputPaths paths = output_paths("", "", '/');
    for (const OutputFile& file : output_files()) {
        paths.*file.path = "/dev/null";
    }
    return paths;
}

int run_benchmarks(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
