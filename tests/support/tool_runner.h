// Runs the built tool as a person would, and writes setup files for it to read.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "effects/catalogue.h"
#include "support/child_process.h"
#include "support/scratch_directory.h"

struct ToolResult {
    int status = -1;
    std::string out;
    std::string err;
};

// Runs "ovri WORDS" in the directory. A document on standard output is held against its schema.
ToolResult run_tool(const std::vector<std::string>& words, const std::string& directory = ".");

// The same with standard error on a terminal.
ToolResult run_tool_on_terminal(const std::vector<std::string>& words);

// The finding ("FILE:LINE: error: FIELD" and its lines) of that severity and field that holds the
// piece; empty when there is none.
std::string find_finding(const std::string& text, const std::string& severity,
                         const std::string& field, const std::string& piece);

// A setup file, item by item. Starts as an estimation of the edge effect on `network.txt`.
struct ToolSetup {
    int mode = 2;
    int kind = 1;
    std::string name = "net";
    std::string output = "out";
    std::string proposal = "0";
    std::string actors = "5";
    std::string density = "0.4";
    std::string network = "network.txt";
    std::string cap = "0";
    // Numbers of the structural rows that are not off: {"edge", "1 0.0"}.
    std::map<std::string, std::string> effects = {{"edge", "1 0.0"}};
    std::string attributes = "Attributes 0";
    std::string covariates = "Covariates 0";
    std::string covariance = "covariance.txt";
    std::string free_dyads = "Free_dyads 0";
    std::string a_value = "0.1";
    std::string multiplication_factor = "20";
    std::string sub_phases = "3";
    std::string phase3_steps = "100";
    std::string estimation_runs = "1";
    std::string fit_after = "0";
    std::string sample_graphs = "0";
    std::string burn_in = "100";
    std::string iterations = "1000";
    std::string samples = "10";

    std::string text() const;
};

// `text` with its first `from` replaced; fails the test when there is none.
std::string with(const std::string& text, const std::string& from, const std::string& to);

// A scratch directory with a small network, an output directory and a setup file, in which the tool
// is run.
class ToolTest : public ::testing::Test {
  protected:
    ToolTest();

    // Writes the setup file and runs "ovri check" on it; the findings stay in `result`.
    const ToolResult& check(const ToolSetup& setup) { return check_text(setup.text()); }
    const ToolResult& check_text(const std::string& text);

    // A shell in the scratch directory, in which $OVRI stands for the tool and children can be
    // interrupted.
    ChildResult shell(const std::string& script) const;

    // Expects a finding of the last check.
    void expect_error(const std::string& field, const std::string& piece) const;
    void expect_warning(const std::string& field, const std::string& piece) const;
    void expect_nothing() const;

    ScratchDirectory scratch;
    ToolResult result;
};
