// The log of an estimation and the covariance file. Each section of the log is opened, added and
// closed, so that a run that is cut off leaves what it had reached.
#pragma once

#include <string>

#include "estimation/estimator.h"
#include "report/output_context.h"

// The head of the log: the network's name and the settings.
void write_estimation_head(const EstimationSettings& settings, const std::string& network,
                           const std::string& path);

// The lines before and behind each run.
void write_estimation_run_head(int number, const std::string& path);
void write_estimation_run_end(const std::string& path);

// Writes what a run tells, and at its end replaces the covariance file. A directed run also shows
// its t-ratios on the console.
class EstimationLog : public EstimationObserver {
  public:
    explicit EstimationLog(const OutputContext& outputs) : outputs_(outputs) {}
    void reached(EstimationEvent event, const EstimationResult& found) const override;

  private:
    OutputContext outputs_;
};
