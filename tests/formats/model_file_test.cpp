// Model files: what they say, what is wrong with them, and how they are written.
#include "formats/model_file.h"

#include <gtest/gtest.h>

#include "formats/model_writer.h"
#include "formats/study_files.h"
#include "support/scratch_directory.h"

namespace {

const char* const kWhole = R"toml([network]
file     = "karate.csv"
directed = false
nodes    = "members.csv"
threshold = 2

[attributes]
faction  = "categorical"
age      = { type = "continuous", missing = "keep" }

[covariates]
distance = "distance.csv"
cost     = { file = "cost.csv", missing = 0 }

[model]
effects  = ["edge", "AS(2)", "AT(2)", "same(faction)", "covariate(distance)"]
start    = { edge = -2.0 }
fixed    = { "as(2.0)" = 0.5 }

[dyads]
free     = "free.csv"
max_degree = 12

[estimation]
method   = "stochastic-approximation"
attempts = 3
precision = 0.05
bootstrap = 40

[gof]
samples  = 500

[simulation]
samples  = 20
burn_in  = 1000
interval = 50

[run]
seed     = 4294967295
threads  = 2
)toml";

ModelFile read_text(const std::string& text) {
    return read_model_file(text_file_of("dir/model.toml", text));
}

std::string problems_of(const Problems& problems) {
    std::string text;
    for (const Problem& problem : problems) {
        text += problem_text(problem) + "\n";
    }
    return text;
}

// The one problem of a file that is whole but for one line.
Problem problem_of(const std::string& text) {
    const ModelFile model = read_text(text);
    EXPECT_EQ(model.problems.size(), 1U) << text << problems_of(model.problems);
    return model.problems.empty() ? Problem() : model.problems[0];
}

const std::string kLeast = "[network]\nfile = \"a.csv\"\n[model]\neffects = [\"edge\"]\n";

TEST(ModelFile, SaysEverything) {
    const ModelFile model = read_text(kWhole);
    ASSERT_TRUE(model.ok()) << problems_of(model.problems);
    EXPECT_EQ(model.network.file, "dir/karate.csv");
    EXPECT_EQ(model.network.nodes, "dir/members.csv");
    EXPECT_EQ(model.network.options.directed, false);
    EXPECT_EQ(model.network.options.threshold, 2.0);
    ASSERT_EQ(model.attributes.size(), 2U);
    EXPECT_EQ(model.attributes[0].name, "age");
    EXPECT_TRUE(model.attributes[0].keep_missing);
    EXPECT_EQ(model.attributes[1].type, AttributeType::categorical);
    ASSERT_EQ(model.covariates.size(), 2U);
    EXPECT_EQ(model.covariates[0].missing, 0.0);
    EXPECT_EQ(model.covariates[1].file, "dir/distance.csv");
    ASSERT_EQ(model.model.effects.size(), 5U);
    EXPECT_EQ(model.model.effects[0].start, -2.0);
    EXPECT_EQ(model.model.effects[1].fixed, 0.5);
    EXPECT_EQ(model.model.effects[3].expression.argument, "faction");
    EXPECT_EQ(model.effect_places[1].line, 16);
    EXPECT_EQ(model.effect_places[1].column, 22);
    EXPECT_EQ(model.free_dyads, "dir/free.csv");
    EXPECT_EQ(model.max_degree, 12);
    EXPECT_EQ(model.settings.estimation.method, EstimationMethod::stochastic_approximation);
    EXPECT_EQ(model.settings.estimation.attempts, 3);
    EXPECT_EQ(model.settings.estimation.bootstrap, 40);
    EXPECT_EQ(model.settings.gof.samples, 500);
    EXPECT_EQ(model.settings.simulation.interval, 50);
    EXPECT_EQ(model.settings.run.seed, 4294967295U);
}

TEST(ModelFile, IsWrittenAsItReads) {
    const ModelFile model = read_text(kWhole);
    const std::string text = model_text(model, "dir");
    const ModelFile back = read_text(text);
    ASSERT_TRUE(back.ok()) << problems_of(back.problems) << text;
    EXPECT_EQ(model_text(back, "dir"), text);
    EXPECT_EQ(back.network.file, model.network.file);
    EXPECT_EQ(back.covariates[1].file, model.covariates[1].file);
    EXPECT_EQ(back.settings.run.seed, model.settings.run.seed);
    EXPECT_EQ(back.settings.estimation.bootstrap, 40);
    EXPECT_NE(model_text(model, "dir/results").find("file = \"../karate.csv\""), std::string::npos);
    EXPECT_NE(model_text(read_text(kLeast), "").find("attempts = 10"), std::string::npos);
}

TEST(ModelFile, OddNamesSurviveWriting) {
    ModelFile model = read_text(kLeast);
    model.attributes.push_back({"year of \"birth\"", AttributeType::binary, false});
    add_effects("same(\"1990\"),AT(1.5)", model);
    const ModelFile back = read_text(model_text(model, ""));
    ASSERT_TRUE(back.ok()) << problems_of(back.problems);
    EXPECT_EQ(back.attributes[0].name, "year of \"birth\"");
    EXPECT_EQ(back.model.effects[1].expression.argument, "1990");
    EXPECT_EQ(back.model.effects[2].expression.lambda, 1.5);
}

TEST(ModelFile, UnknownNamesComeWithTheNearest) {
    const Problem key = problem_of(
        "[network]\nfile = \"a.csv\"\ndirectd = true\n[model]\neffects = "
        "[\"edge\"]\n");
    EXPECT_EQ(key.file, "dir/model.toml");
    EXPECT_EQ(key.line, 3);
    EXPECT_EQ(key.column, 1);
    EXPECT_EQ(key.mend, "a similar one is `directed`");
    const Problem section = problem_of(kLeast + "[estimaton]\nattempts = 1\n");
    EXPECT_EQ(section.line, 5);
    EXPECT_EQ(section.mend, "a similar one is `[estimation]`");
    EXPECT_EQ(problem_of("seed = 1\n" + kLeast).found, "the key `seed` outside a section");
    EXPECT_EQ(problem_of(kLeast + "[estimation]\nmethod = \"mcmel\"\n").mend,
              "a similar one is `mcmle`");
    EXPECT_EQ(problem_of(kLeast + "[attributes]\nage = \"continous\"\n").mend,
              "a similar one is `continuous`");
    EXPECT_EQ(problem_of("[network]\nfile = \"a\"\nformat = \"pajke\"\n[model]\neffects = "
                         "[\"edge\"]\n")
                  .mend,
              "a similar one is `pajek`");
}

TEST(ModelFile, ValuesHaveTypesAndRanges) {
    const Problem seed = problem_of(kLeast + "[run]\nseed = -1\n");
    EXPECT_EQ(seed.line, 6);
    EXPECT_EQ(seed.column, 8);
    EXPECT_EQ(seed.field, "`seed` in [run]");
    EXPECT_EQ(seed.expected, "a whole number from 0 to 4294967295");
    EXPECT_EQ(problem_of(kLeast + "[estimation]\nprecision = inf\n").expected, "a finite number");
    const Problem bootstrap = problem_of(kLeast + "[estimation]\nbootstrap = 1000001\n");
    EXPECT_EQ(bootstrap.line, 6);
    EXPECT_EQ(bootstrap.column, 13);
    EXPECT_EQ(bootstrap.field, "`bootstrap` in [estimation]");
    EXPECT_EQ(bootstrap.expected, "a whole number from 0 to 1000000");
    for (const char* line :
         {"[estimation]\nbootstrap = -1\n", "[estimation]\nbootstrap = true\n",
          "[run]\nseed = 1.5\n", "[run]\nseed = \"1\"\n", "[gof]\nsamples = 0\n",
          "[estimation]\nprecision = nan\n", "[estimation]\nattempts = true\n",
          "[dyads]\nfree = 3\n", "[dyads]\nfree = \"\"\n", "[covariates]\nd = 3\n",
          "[attributes]\na = { missing = \"drop\" }\n", "[attributes]\na = 1979-05-27\n"}) {
        problem_of(kLeast + line);
    }
}

TEST(ModelFile, EffectsAreToldByTheirPlace) {
    const std::string head = "[network]\nfile = \"a.csv\"\n[model]\n";
    const Problem open = problem_of(head + "effects = [\"edge\", \"AT(2\"]\n");
    EXPECT_EQ(open.line, 4);
    EXPECT_EQ(open.column, 25);
    problem_of(head + "effects = [\"edge\", 3]\n");
    EXPECT_EQ(read_text(head + "effects = \"edge\"\n").problems[0].field, "`effects` in [model]");
    const Problem start = problem_of(head + "effects = [\"edge\"]\nstart = { egde = 1 }\n");
    EXPECT_EQ(start.line, 5);
    EXPECT_EQ(start.mend, "a similar one is `edge`");
}

TEST(ModelFile, MustNameNetworkAndEffects) {
    EXPECT_EQ(problem_of("[model]\neffects = [\"edge\"]\n").found, "no `file`");
    EXPECT_EQ(problem_of("[network]\nfile = \"a.csv\"\n").found, "no `effects`");
}

TEST(ModelFile, WhatIsNoTomlHasALine) {
    const Problem problem = problem_of("[network]\nfile = a.csv\n");
    EXPECT_EQ(problem.line, 2);
    EXPECT_FALSE(problem.found.empty());
    EXPECT_EQ(problem_of("a,b\nc,d\n").line, 1);
    problem_of("[network]\nfile = \"a\"\nfile = \"b\"\n");
}

class StudyFromFiles : public testing::Test {
  protected:
    std::string write(const std::string& name, const std::string& text) {
        return directory_.write(name, text);
    }
    StudyFiles load(const std::string& text) {
        return load_study(read_model_file(write("model.toml", text)));
    }
    ScratchDirectory directory_;
};

const char* const kPeople = R"toml([network]
file = "ties.csv"
nodes = "people.csv"
directed = false
[model]
effects = ["edge", "same(dept)"]
)toml";

TEST_F(StudyFromFiles, HasEverythingByActor) {
    write("ties.csv", "ann,bob\nbob,cid\n");
    write("people.csv", "name,age,dept\ncid,30,x\nann,NA,y\nbob,20,x\ndan,40,z\n");
    write("d.csv", "ann,bob,1\n");
    write("free.csv", "dan,ann\n");
    const StudyFiles files =
        load(std::string(kPeople) +
             "[covariates]\nd = { file = \"d.csv\", missing = 0 }\n[dyads]\nfree = \"free.csv\"\n");
    ASSERT_TRUE(files.ok()) << problems_of(files.problems);
    EXPECT_EQ(files.study.network.actors, (ActorList{"cid", "ann", "bob", "dan"}));
    EXPECT_EQ(files.study.network.ties, (std::vector<ActorTie>{{0, 2}, {1, 2}}));
    // The age that is missing matters to nobody.
    ASSERT_EQ(files.study.attributes.size(), 1U);
    EXPECT_EQ(files.study.attributes[0].values, (std::vector<double>{1, 2, 1, 3}));
    EXPECT_EQ(files.study.covariates.at(0).values[2][1], 1.0F);
    EXPECT_TRUE(files.study.dyads.restricted);
    EXPECT_EQ(files.study.dyads.free, (std::vector<ActorTie>{{1, 3}}));
    EXPECT_EQ(files.counts.isolates, 1);
}

TEST_F(StudyFromFiles, AMissingValueThatIsUsedIsAProblem) {
    write("ties.csv", "ann,bob\n");
    write("people.csv", "name,dept\nann,x\nbob,\ncid,y\ndan,z\n");
    const StudyFiles files = load(kPeople);
    ASSERT_EQ(files.problems.size(), 1U) << problems_of(files.problems);
    EXPECT_EQ(files.problems[0].line, 3);
}

TEST_F(StudyFromFiles, AFileThatIsNotThereIsTheModelFilesMistake) {
    const StudyFiles files =
        load("[network]\nfile = \"none.csv\"\n[model]\neffects = [\"edge\"]\n");
    ASSERT_EQ(files.problems.size(), 1U);
    EXPECT_EQ(files.problems[0].line, 2);
    EXPECT_NE(files.problems[0].file.find("model.toml"), std::string::npos);
}

TEST_F(StudyFromFiles, EffectsThatAreNoneAreToldByTheirPlace) {
    write("ties.csv", "ann,bob\nbob,cid\n");
    const ModelFile model = read_model_file(
        write("m.toml",
              "[network]\nfile = \"ties.csv\"\ndirected = false\n[model]\neffects = [\"edge\",\n  "
              "\"triangel\"]\n"));
    const StudyFiles files = load_study(model);
    ASSERT_TRUE(files.ok()) << problems_of(files.problems);
    const StudySelection resolved = study_selection(files.study);
    const Problems problems = placed_problems(model, resolved.problems, resolved.faulty_effects);
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].line, 6);
    EXPECT_EQ(problems[0].column, 4);
    EXPECT_EQ(problems[0].file, model.path);
}

TEST_F(StudyFromFiles, ANodesFileWithoutAHeadIsFound) {
    write("ties.csv", "ann,bob\nbob,cid\n");
    write("people.csv", "ann,1\nbob,2\ncid,3\n");
    const StudyFiles files = load(kPeople);
    ASSERT_FALSE(files.ok());
    EXPECT_NE(problems_of(files.problems).find("a head line"), std::string::npos);
}

TEST(ModelFile, TheFormatOfDrawnNetworksGoesThereAndBack) {
    const ModelFile model = read_text(
        "[network]\nfile = \"a.csv\"\n[model]\neffects = [\"edge\"]\n[simulation]\nformat = "
        "\"dot\"\n");
    ASSERT_TRUE(model.ok()) << problems_of(model.problems);
    EXPECT_EQ(model.simulation_format, NetworkFormat::dot);
    EXPECT_NE(model_text(model, "dir").find("format = \"dot\"\n"), std::string::npos);
    const ModelFile wrong = read_text(
        "[network]\nfile = \"a.csv\"\n[model]\neffects = [\"edge\"]\n[simulation]\nformat = "
        "\"pajeck\"\n");
    ASSERT_FALSE(wrong.ok());
    EXPECT_EQ(wrong.problems[0].mend, "a similar one is `pajek`");
}

TEST(ModelFile, AnOptionOfNoColumnIsAMistakeOfItsLine) {
    const ScratchDirectory directory;
    directory.write("net.csv", "from,to\nann,bob\n");
    directory.write("nodes.csv", "name,team\nann,red\nbob,blue\n");
    const std::string path =
        directory.write("model.toml",
                        "[network]\nfile = \"net.csv\"\ndirected = false\nnodes = \"nodes.csv\"\n"
                        "[attributes]\ntem = \"categorical\"\n[model]\neffects = [\"edge\"]\n");
    const StudyFiles files = load_study(read_model_file(path));
    ASSERT_EQ(files.problems.size(), 1U) << problems_of(files.problems);
    EXPECT_EQ(files.problems[0].file, path);
    EXPECT_EQ(files.problems[0].line, 6);
    EXPECT_EQ(files.problems[0].mend, "a similar one is `team`");
    EXPECT_NE(files.problems[0].expected.find("nodes.csv: one of `team`"), std::string::npos)
        << files.problems[0].expected;
}

TEST(ModelFile, ABoundThatAnActorIsBeyondIsNamed) {
    const ScratchDirectory directory;
    directory.write("net.csv", "from,to\nann,bob\nann,cid\nbob,cid\nann,dan\n");
    const auto problems = [&](const std::string& directed, const std::string& most) {
        const std::string path = directory.write(
            "model.toml", "[network]\nfile = \"net.csv\"\ndirected = " + directed +
                              "\n[model]\neffects = [\"edge\"]\n[dyads]\nmax_degree = " + most +
                              "\n");
        return load_study(read_model_file(path)).problems;
    };
    const Problems found = problems("false", "2");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].line, 7);
    EXPECT_EQ(found[0].found, "2, and the actor `ann` has 3 ties");
    EXPECT_TRUE(problems("false", "3").empty());
    EXPECT_EQ(problems("true", "2").at(0).found, "2, and the actor `ann` has 3 out-going ties");
}

TEST(ModelFile, DataAreToldFromModels) {
    EXPECT_TRUE(looks_like_data("karate.csv", "from,to\n"));
    EXPECT_TRUE(looks_like_data("karate.net", "*Vertices 3\n"));
    EXPECT_TRUE(looks_like_data("karate.txt", "0 1 0\n1 0 0\n"));
    EXPECT_FALSE(looks_like_data("karate.toml", "0"));
    EXPECT_FALSE(looks_like_data("model", "# mine\n[network]\n"));
    EXPECT_FALSE(looks_like_data("net.setup", "Session_name karate\n"));
    const ModelFile model = read_model_file(text_file_of("karate.csv", "from,to\na,b\n"));
    ASSERT_EQ(model.problems.size(), 1U);
    EXPECT_NE(model.problems[0].mend.find("`ovri new karate.csv`"), std::string::npos);
}

}  // namespace
