#include "fit/goodness_of_fit.h"

#include "base/conversions.h"
#include "fit/fit_samples.h"
#include "measures/descriptives.h"

namespace {

const FitTexts& texts_of(const RunSetting& setting) {
    return fit_texts(setting.selection.catalogue->kind);
}

// Only a directed fit keeps an acceptance file: the share accepted since the sample before.
class AcceptFile {
  public:
    AcceptFile(const RunSetting& setting, double interval)
        : path_(setting.paths.accept),
          kept_(setting.selection.catalogue->kind == NetworkKind::directed),
          interval_(interval) {
        if (kept_) {
            writer_replace(path_).text("Acceptance Rate(Digraph)\n");
        }
    }
    void count(int accepted) { block_ += accepted; }
    void write(double proposal) {
        if (kept_) {
            writer_append(path_).print("%8d %8.4f\n", truncate_to_int(proposal),
                                       block_ / interval_);
        }
        block_ = 0.0;
    }

  private:
    const std::string& path_;
    bool kept_;
    double interval_;
    double block_ = 0.0;
};

template <class Network>
void write_run_head(const Chain<Network>& chain, const RunSetting& setting, double proposals,
                    double interval) {
    TextWriter log = writer_append(setting.paths.gof);
    log.text("\n\n GOODNESS OF FIT\n\nParameter Values:\n");
    for (const OutputRow& row : output_rows(setting.selection, Output::fit_parameter)) {
        log.text(row.label + "\t");
        log.number(row.format, chain.parameters[row.position]);
        log.text("\n");
    }
    log.print(texts_of(setting).run_head, proposals, interval);
}

template <class Network>
void write_sample_heads(const Network& network, const RunSetting& setting) {
    write_sample_head(setting.selection, setting.paths.simulation);
    write_distribution_heads(network, setting.switches, setting.paths);
}

// The sample's rows show the ET counts as they were before this sample's recount: it follows them.
template <class Network>
void take_sample(Chain<Network>& chain, const RunSetting& setting, FitSamples& samples,
                 double number) {
    Network& network = chain.network;
    refresh_descriptives(network);
    write_distribution_rows(network, setting.selection, setting.switches, setting.paths);
    recount_uncarried(network, setting.selection);
    if (setting.switches.sample_graphs) {
        write_sample_graph(network, setting.selection, number, setting.paths);
    }
    fit_samples_add(samples, network, setting.selection);
}

}  // namespace

template <class Network>
void fit_run(Chain<Network>& chain, Network& observed, const RunSetting& setting, double proposals,
             double interval) {
    const FitTexts& texts = texts_of(setting);
    random_reseed(chain.random);
    refresh_descriptives(observed);
    FitSamples samples =
        fit_samples_create(observed, setting.selection, truncate_to_int(proposals / interval));
    write_run_head(chain, setting, proposals, interval);
    write_sample_heads(chain.network, setting);
    AcceptFile accept(setting, interval);
    progress_start(setting.progress, RunStage::fit, proposals);
    double total = 0.0;
    double due = interval;
    for (double counter = 1.0; counter <= proposals; counter += 1.0) {
        const int accepted = chain_step(chain);
        total += accepted;
        accept.count(accepted);
        progress_work(setting.progress, counter);
        if (counter == due) {
            take_sample(chain, setting, samples, counter);
            accept.write(counter);
            due += interval;
        }
    }
    TextWriter(setting.console).print("Accepted %.0f changes.\n", total);
    TextWriter log = writer_append(setting.paths.gof);
    log.print(texts.accepted, total);
    write_fit_table(log, samples, setting.selection, Output::fit);
    log.print("\nACCEPTANCE RATE: %.4f\n\n", total / proposals);
    write_fit_distributions(log, samples, texts);
    write_fit_distance(log, samples, texts, setting.paths.simulation);
}

template <class Network>
void bayesian_fit_run(Chain<Network>& chain, Network& observed, const RunSetting& setting,
                      const Matrix& parameter_sets, int planned, double burn_in) {
    const FitTexts& texts = texts_of(setting);
    random_reseed(chain.random);
    refresh_descriptives(observed);
    FitSamples samples = fit_samples_create(observed, setting.selection, parameter_sets.rows);
    {
        TextWriter log = writer_append(setting.paths.gof);
        log.text("BAYESIAN GOODNESS OF FIT\n");
        log.print("Proposed %d parameter sets.\nSamples were picked up with burnin %.0lf\n",
                  planned, burn_in);
    }
    write_sample_heads(chain.network, setting);
    for (int set = 0; set < parameter_sets.rows; ++set) {
        chain.parameters = parameter_sets[set];
        progress_start(setting.progress, RunStage::bayesian_fit, burn_in);
        progress_step(setting.progress, set, parameter_sets.rows);
        burn_in_run(chain, burn_in, setting.progress);
        recount_uncarried(chain.network, setting.selection);
        refresh_descriptives(chain.network);
        write_distribution_rows(chain.network, setting.selection, setting.switches, setting.paths);
        if (setting.switches.sample_graphs) {
            write_sample_graph(chain.network, setting.selection, set + 1, setting.paths);
        }
        fit_samples_add(samples, chain.network, setting.selection);
    }
    TextWriter log = writer_append(setting.paths.gof);
    write_fit_table(log, samples, setting.selection, Output::bayes_fit);
    write_fit_distributions(log, samples, texts);
    write_fit_distance(log, samples, texts, setting.paths.simulation);
}

template void fit_run<Graph>(Chain<Graph>&, Graph&, const RunSetting&, double, double);
template void fit_run<Digraph>(Chain<Digraph>&, Digraph&, const RunSetting&, double, double);
template void bayesian_fit_run<Graph>(Chain<Graph>&, Graph&, const RunSetting&, const Matrix&, int,
                                      double);
template void bayesian_fit_run<Digraph>(Chain<Digraph>&, Digraph&, const RunSetting&, const Matrix&,
                                        int, double);
