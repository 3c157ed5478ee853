#include "run/simulation_run.h"

#include <cmath>

#include "base/text_writer.h"
#include "measures/descriptives.h"
#include "network/network_verbs.h"

namespace {

struct SimulationTexts {
    const char* parameter_head;  // one integer: the actors
    const char* proposed;        // two numbers: proposals, interval
    const char* accept_head;
    const char* accepted;  // one number
};

constexpr SimulationTexts kGraphTexts = {
    "Simulation started for graph with %d vertices\nParameter Values:\n",
    "Proposed %.0f graphs.\nSamples are picked up at 1 per %.0f graphs.\n",
    "Acceptance Rate (non-Digraph)\n",
    "Accepted %.0f proposed graphs.",
};
constexpr SimulationTexts kDigraphTexts = {
    "Simulation result for digraph with %d of vertices.\nParameter Values of:\n",
    "Proposed %.0lf digraphs.\nSamples are picked up at 1 per %.0f digraphs.\n",
    "Acceptance Rate(Digraph)\n",
    "Accepted %.0f proposed digraphs.",
};

template <class Network>
constexpr const SimulationTexts& kTexts = kDirected<Network> ? kDigraphTexts : kGraphTexts;

template <class Network>
void write_heads(const Chain<Network>& chain, const OutputContext& outputs, double iterations,
                 double sample_interval) {
    const SimulationTexts& texts = kTexts<Network>;
    {
        TextWriter out = writer_replace(outputs.paths.parameter);
        out.print(texts.parameter_head, chain.network.vertices);
        for (const OutputRow& row : output_rows(outputs.selection, Output::parameter)) {
            out.text(row.label + "\t");
            out.number(row.format, chain.parameters[row.position]);
            out.text("\n");
        }
        out.print(texts.proposed, iterations, sample_interval);
    }
    write_sample_head(outputs.selection, outputs.paths.simulation);
    writer_replace(outputs.paths.accept).text(texts.accept_head);
    write_distribution_heads(chain.network, outputs.switches, outputs.paths);
}

// Snapshots are refreshed where something written shows them.
template <class Network>
void refresh_for_sample(Network& network, const OutputSwitches& switches) {
    // Directed clustering is of the network as it is now.
    const bool clustering = switches.cluster_giant && !kDirected<Network>;
    if (switches.geodesic_distribution || clustering || switches.sample_graphs) {
        refresh_descriptives(network);
    }
}

template <class Network>
void write_sample(Chain<Network>& chain, const OutputContext& outputs, double point) {
    Network& network = chain.network;
    TextWriter(outputs.console).print("%.0f\t", point);
    recount_uncarried(network, outputs.selection);
    write_sample_row(outputs.selection, network.statistics, point, outputs.paths.simulation);
    refresh_for_sample(network, outputs.switches);
    write_distribution_rows(network, outputs.selection, outputs.switches, outputs.paths);
}

}  // namespace

template <class Network>
void simulation_run(Chain<Network>& chain, const OutputContext& outputs, RunProgress& progress,
                    double iterations, double sample_interval) {
    const SimulationTexts& texts = kTexts<Network>;
    random_reseed(chain.random);
    write_heads(chain, outputs, iterations, sample_interval);
    progress_start(progress, RunStage::simulation, iterations);
    double total = 0.0;
    double accepted = 0.0;
    double sample_point = sample_interval;
    for (double counter = 0.0; counter < iterations;) {
        const double steps = steps_to_sample(counter, sample_point, iterations);
        accepted +=
            chain_run(chain, steps, [&](double made) { progress_work(progress, counter + made); });
        counter += std::ceil(steps);
        if (counter != sample_point) {
            continue;
        }
        write_sample(chain, outputs, sample_point);
        writer_append(outputs.paths.accept)
            .print("%8.0f\t%8.4f\n", sample_point, accepted / sample_interval);
        total += accepted;
        accepted = 0.0;
        if (outputs.switches.sample_graphs) {
            write_sample_graph(chain.network, outputs.selection, sample_point, outputs.paths);
        }
        sample_point += sample_interval;
    }
    TextWriter(outputs.console).print("Accepted %.0f changes.\n", total);
    writer_append(outputs.paths.parameter).print(texts.accepted, total);
    writer_append(outputs.paths.accept).print(texts.accepted, total);
}

template void simulation_run<Graph>(Chain<Graph>&, const OutputContext&, RunProgress&, double,
                                    double);
template void simulation_run<Digraph>(Chain<Digraph>&, const OutputContext&, RunProgress&, double,
                                      double);
