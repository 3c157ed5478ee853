// The section [host]: what only a host's setup file says.
#include "formats/host_run.h"

#include <gtest/gtest.h>

#include "formats/model_writer.h"

namespace {

constexpr const char* kModel =
    "[network]\nfile = \"net.csv\"\n[model]\neffects = [\"edge\"]\n[host]\n";

ModelFile read_host(const std::string& section) {
    return read_model_file(text_file_of("model.toml", kModel + section));
}

TEST(HostSection, IsReadAndWrittenBack) {
    const ModelFile model = read_host(
        "run = \"simulation\"\nname = \"n\"\noutput = \"out dir\"\nproposal = 1\ndensity = 0.25\n"
        "fit = true\noutputs = [\"sample-graphs\", \"Geodesic_Distribution\"]\nburn_in = 0\n"
        "iterations = 1000.5\ncovariance = \"c.txt\"\nvalues = { \"2-star\" = 0.5 }\n"
        "lambdas = { A2P = 1.5 }\n");
    ASSERT_TRUE(model.ok()) << problem_text(model.problems[0]);
    ASSERT_TRUE(model.host);
    EXPECT_EQ(model.host->mode, RunMode::simulation);
    EXPECT_EQ(model.host->output, "out dir");
    EXPECT_EQ(model.host->proposal_kind, 1);
    EXPECT_TRUE(model.host->fit_after);
    EXPECT_TRUE(model.host->outputs.sample_graphs);
    EXPECT_TRUE(model.host->outputs.geodesic_distribution);
    EXPECT_FALSE(model.host->outputs.degree_distribution);
    EXPECT_EQ(model.host->burn_in, 0.0);
    EXPECT_EQ(model.host->values.at("2-star"), 0.5);
    const std::string text = model_text(model, "");
    EXPECT_EQ(model_text(read_model_file(text_file_of("model.toml", text)), ""), text);
    EXPECT_NE(text.find("iterations = 1000.5\n"), std::string::npos) << text;
    EXPECT_NE(text.find("lambdas = { A2P = 1.5 }\n"), std::string::npos) << text;
}

TEST(HostSection, WithoutItNothingIsWritten) {
    const ModelFile model = read_model_file(text_file_of(
        "model.toml", "[network]\nfile = \"net.csv\"\n[model]\neffects = [\"edge\"]\n"));
    EXPECT_FALSE(model.host);
    EXPECT_EQ(model_text(model, "").find("[host]"), std::string::npos);
}

TEST(HostSection, TellsWhatItDoesNotKnow) {
    for (const char* section :
         {"run = \"guess\"\n", "outputs = [\"everything\"]\n", "density = 2\n", "values = 3\n",
          "proposal = 0.5\n", "fit = 1\n", "unknown = 1\n", "lambdas = { A2P = \"x\" }\n"}) {
        const ModelFile model = read_host(section);
        ASSERT_EQ(model.problems.size(), 1U) << section;
        EXPECT_EQ(model.problems[0].line, 6) << section;
        EXPECT_FALSE(model.problems[0].expected.empty()) << section;
    }
}

TEST(HostSection, ModesAndOutputsHaveNames) {
    EXPECT_EQ(run_mode_of("Bayesian_GOF"), RunMode::bayesian_fit);
    EXPECT_FALSE(run_mode_of(""));
    for (const std::string& name : run_mode_names()) {
        EXPECT_EQ(run_mode_name(*run_mode_of(name)), name);
    }
    EXPECT_EQ(output_switch_names().size(), 7U);
    EXPECT_EQ(output_switch_names().front().name, "sample-graphs");
}

}  // namespace
