// The checks of a setup file and of the files it names. Each looks at what it can trust and adds
// its findings.
#pragma once

#include <optional>

#include "check/findings.h"
#include "check/setup_view.h"
#include "check/ties.h"

// Everything below, in order. Finds out how much of the view is sound.
Findings check_view(SetupView& view);

// The setup file itself: can it be read, and was every value read where it was meant?
void check_setup(SetupView& view, Findings& findings);

// The output directory and the names of the output files.
void check_outputs(const SetupView& view, Findings& findings);

// A network matrix; its ties when it could be read in full.
std::optional<Ties> check_network(const SetupView& view, SetupId id, const std::string& path,
                                  Findings& findings);

// Attribute files, covariates and the covariance of a Bayesian fit.
void check_attributes(const SetupView& view, Findings& findings);
void check_covariates(const SetupView& view, Findings& findings);
void check_covariance(const SetupView& view, Findings& findings);

// The selected effects, their values and lambdas.
void check_model(const SetupView& view, Findings& findings);

// Whether an estimation can find the parameters of the model from these data. `observed` and
// `free_dyads` as in check_moves; to be called behind all that look at files and selections.
void check_estimability(const SetupView& view, const Ties* observed, const Ties* free_dyads,
                        Findings& findings);

// Counts and lengths of the run.
void check_settings(const SetupView& view, Findings& findings);

// Whether the machine has the memory that the run needs. False when it is too small for the tables
// of the network; then nothing may be read that is as large.
bool check_memory(const SetupView& view, Findings& findings);

// Whether the run would take more time than anybody has. `observed` is null in a simulation and
// when its file could not be read.
void check_sizes(const SetupView& view, const Ties* observed, Findings& findings);

// Whether proposals, caps and free dyads let the network change at all. `observed` is null in a
// simulation, and any of the two when its file could not be read.
void check_moves(const SetupView& view, const Ties* observed, const Ties* free_dyads,
                 Findings& findings);

// True when the file can be opened; else adds the error. `expected` tells what the file holds.
bool check_readable(const SetupView& view, const SetupKey& key, const std::string& path,
                    const std::string& expected, Findings& findings);

// True when the setup has an actor count to check a file against.
bool has_actor_count(const SetupView& view);
