// The report of a fit, and the rows that each of its samples adds to files.
#pragma once

#include <optional>
#include <string>

#include "base/text_writer.h"
#include "fit/goodness_of_fit.h"
#include "report/output_context.h"

// The head of the fit log: the parameters of the model and the run's length.
void write_fit_head(const OutputContext& outputs, const double* parameters, double proposals,
                    double interval);

// The head where parameters were drawn: how many sets were asked for, and the proposals before each
// sample.
void write_bayesian_fit_head(const OutputContext& outputs, int sets, double burn_in);

// The rest of the log, and the columns of the sample table.
void write_fit_report(const OutputContext& outputs, const FitResult& found);
void write_bayesian_fit_report(const OutputContext& outputs, const FitResult& found);

// The log's section on geodesic quartiles, and for a digraph on triads.
void write_fit_distributions(TextWriter& out, const FitSamples& samples, NetworkKind kind);

// The log's last section: the distance of the observed network and the share of samples that are
// closer.
void write_fit_distance(TextWriter& out, const FitResult& found, NetworkKind kind);

// Appends every sample to the sample table, all rows of the fit's table in one line.
void write_fit_columns(const FitSamples& samples, const std::string& path);

// Writes the heads of the per-sample files when made, then their rows. Only a directed fit at fixed
// parameters keeps an acceptance file: the share accepted since the sample before.
template <class Network>
class FitSampleFiles : public FitObserver<Network> {
  public:
    // `interval` is the number of proposals between samples; none where parameters are drawn.
    FitSampleFiles(const OutputContext& outputs, const Network& network,
                   std::optional<double> interval);
    void described(Network& network) const override;
    void sampled(Network& network, double number, double accepted) const override;

  private:
    OutputContext outputs_;
    // Set where an acceptance file is kept.
    std::optional<double> interval_;
};
