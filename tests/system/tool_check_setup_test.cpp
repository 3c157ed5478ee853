// "ovri check" on setup files that are not read as their writer meant.
#include <filesystem>

#include "support/tool_runner.h"

using ToolCheckSetup = ToolTest;

TEST_F(ToolCheckSetup, AGoodSetupFileHasNoFindings) {
    check({});
    expect_nothing();
    EXPECT_NE(result.out.find("estimation, undirected network of 5 actors, 1 effect (edge)"),
              std::string::npos)
        << result.out;
    EXPECT_EQ(result.err, "");
}

TEST_F(ToolCheckSetup, EveryModeAndKindIsKnown) {
    scratch.write("covariance.txt", "1.0\n");
    for (int mode = 1; mode <= 4; ++mode) {
        for (int kind = 1; kind <= 2; ++kind) {
            ToolSetup setup{.mode = mode, .kind = kind};
            setup.effects = {{kind == 1 ? "edge" : "arc", "1 -1.0"}};
            check(setup);
            expect_nothing();
        }
    }
}

TEST_F(ToolCheckSetup, TheExamplesHaveNoErrors) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(OVRI_SOURCE_DIRECTORY) / "examples")) {
        if (entry.path().extension() != ".setup") {
            continue;
        }
        const ToolResult checked =
            run_tool({"check", entry.path().string(), "--output", scratch.path().string()},
                     OVRI_SOURCE_DIRECTORY);
        // A Bayesian fit reads what an estimation has yet to write.
        const bool bayesian = checked.out.find("Bayesian") != std::string::npos;
        const bool fine =
            checked.status == 0 ||
            (bayesian && checked.out.find("1 error, 0 warnings") != std::string::npos &&
             checked.out.find("error: covariance file") != std::string::npos);
        EXPECT_TRUE(fine) << checked.out;
    }
}

TEST_F(ToolCheckSetup, AMissingSetupFileIsAnError) {
    result = run_tool({"check", "nowhere.setup"}, scratch.path().string());
    expect_error("setup file", "cannot be opened");
}

TEST_F(ToolCheckSetup, ADirectoryIsNoSetupFile) {
    result = run_tool({"check", "out"}, scratch.path().string());
    expect_error("setup file", "it is a directory");
}

TEST_F(ToolCheckSetup, AnEmptySetupFileIsAnError) {
    check_text(" \n\n");
    expect_error("setup file", "an empty file");
}

TEST_F(ToolCheckSetup, ABinarySetupFileIsAnError) {
    check_text(
        std::string("\x7f"
                    "ELF\0\1\2",
                    7));
    expect_error("setup file", "no text file");
}

TEST_F(ToolCheckSetup, ABlankInALabelIsFoundWithItsLineAndTheWordsToJoin) {
    check_text(with(ToolSetup().text(), "Actors 5", "Number of actors 5"));
    expect_error("actor count", "net.setup:5: error");
    expect_error("actor count", "\"of\" behind the label \"Number\"");
    expect_error("actor count", "write \"Number_of_actors\"");
    EXPECT_NE(result.out.find("1 error, 0 warnings"), std::string::npos) << result.out;
}

TEST_F(ToolCheckSetup, ABlankInTheLabelOfAPathIsFound) {
    check_text(with(ToolSetup().text(), "Network network.txt", "Network file network.txt"));
    expect_error("network file", "make the label one word");
}

TEST_F(ToolCheckSetup, ANumberInALabelIsFoundThoughEverythingCanBeRead) {
    check_text(with(ToolSetup().text(), "Phase_3 100", "Phase 3 steps 100"));
    expect_error("steps of phase 3", "two items on one line");
}

TEST_F(ToolCheckSetup, TwoItemsOnALineAreSurprisingWhereNothingIsLeftOver) {
    check_text(with(ToolSetup().text(), "Sub_phases 3\n", "Sub_phases 3 "));
    expect_warning("number of sub-phases", "two items on one line");
}

TEST_F(ToolCheckSetup, AMissingRowIsFoundByItsNeighboursLabel) {
    check_text(with(ToolSetup().text(), "Q10 0 0.0\n", ""));
    expect_error("AS flag", "line 23 is labelled \"Q20\", but the effect read there is \"Q10\"");
}

TEST_F(ToolCheckSetup, ALabelThatNamesAnotherRowIsAnError) {
    check_text(with(with(ToolSetup().text(), "2-star", "x"), "3-star", "2-star"));
    expect_error("3-star flag", "is labelled \"2-star\"");
}

TEST_F(ToolCheckSetup, ALabelOfAnAttributeThatNamesAnotherRowIsAnError) {
    const std::string block =
        "Attributes 1\nBinary 0\nContinuous 1\n1\nFile wealth.txt\nw_sum 1 0\nw_diff 0 0\n"
        "w_prod 0 0\nCategorical 0";
    scratch.write("wealth.txt", "wealth\n1\n2\n3\n4\n5\n");
    check({.attributes = block});
    expect_nothing();
    check({.attributes = with(block, "w_sum", "w_prod")});
    expect_error("continuous attribute 1: _sum_of_Continuous flag", "is labelled \"w_prod\"");
    // A label of no row is free.
    check({.attributes = with(block, "w_sum", "product_of_wealth_and_more")});
    expect_nothing();
}

TEST_F(ToolCheckSetup, ANumberTooManyIsFoundOnItsLine) {
    check_text(with(ToolSetup().text(), "edge 1 0.0", "edge 1 0.0 2.0"));
    expect_error("2-star flag", "net.setup:9: error");
    expect_error("2-star flag", "remove \"2.0\" from line 9");
}

TEST_F(ToolCheckSetup, ASecondCapOfADirectedNetworkIsExplained) {
    ToolSetup setup{.kind = 2, .cap = "1\n3 2"};
    setup.effects = {{"arc", "1 0.0"}};
    check(setup);
    expect_error("structural section flag", "in-degrees cannot be capped");
}

TEST_F(ToolCheckSetup, AMissingLambdaIsFoundOnItsLine) {
    check_text(with(ToolSetup().text(), "AT 0 0.0 2.0", "AT 0 0.0"));
    expect_error("AT lambda", "nothing behind \"AT value\"; the reader went on to \"AT2\"");
}

TEST_F(ToolCheckSetup, AMissingValueIsFoundOnTheLineOfItsLabel) {
    check_text(with(ToolSetup().text(), "Actors 5", "Actors"));
    expect_error("actor count", "net.setup:5: error");
    expect_error("actor count", "nothing behind the label \"Actors\"");
}

TEST_F(ToolCheckSetup, AMissingPathIsFoundThoughTheNextLineIsTaken) {
    check_text(with(ToolSetup().text(), "Network network.txt", "Network"));
    expect_error("network file", "nothing stands there, so the next line was taken");
}

TEST_F(ToolCheckSetup, AWordInPlaceOfANumberIsAnError) {
    check_text(with(ToolSetup().text(), "Actors 5", "Actors five"));
    expect_error("actor count", "\"five\" behind the label \"Actors\"");
}

TEST_F(ToolCheckSetup, AFractionInPlaceOfAWholeNumberIsAnError) {
    check_text(with(ToolSetup().text(), "Actors 5", "Actors 5.5"));
    expect_error("actor count", "write a whole number");
}

TEST_F(ToolCheckSetup, ANumberBeyond32BitsIsAnError) {
    check_text(with(ToolSetup().text(), "Actors 5", "Actors 5000000000"));
    expect_error("actor count", "from -2147483648 to 2147483647");
}

TEST_F(ToolCheckSetup, ADecimalCommaIsAnError) {
    check_text(with(ToolSetup().text(), "A_value 0.1", "A_value 0,1"));
    expect_error("starting a-value", "decimal comma");
}

TEST_F(ToolCheckSetup, AFileThatEndsEarlyTellsWhereAndHowMuchFollows) {
    const std::string text = ToolSetup().text();
    check_text(text.substr(0, text.find("Factor")));
    expect_error("multiplication factor",
                 "the end of the file, behind the item \"starting a-value\"; 3 further items");
}

TEST_F(ToolCheckSetup, UnknownModeAndKindAreErrors) {
    check_text(with(ToolSetup().text(), "Mode_and_kind 2 1", "Mode_and_kind 5 3"));
    expect_error("run mode", "3 goodness of fit");
    expect_error("network kind", "2 directed");
}

TEST_F(ToolCheckSetup, AnImpossibleAttributeCountIsAnError) {
    check({.attributes = "Attributes 1\nBinary 1\n1000000000\nFile x.txt"});
    expect_error("binary attribute count", "more than the file has characters");
}

TEST_F(ToolCheckSetup, ANegativeAttributeCountIsAnError) {
    check({.attributes = "Attributes 1\nBinary 1\n-1\nFile x.txt\nContinuous 0\nCategorical 0"});
    expect_error("binary attribute count", "0 or more");
}

TEST_F(ToolCheckSetup, TrailingTextIsSurprising) {
    check_text(ToolSetup().text() + "\nmore 1\n");
    expect_warning("end of the file", "\"more\"");
}

TEST_F(ToolCheckSetup, AFlagOtherThanZeroAndOneIsSurprising) {
    check({.effects = {{"edge", "1 0.0"}, {"Triangle", "2 0.1"}}});
    expect_warning("Triangle flag", "every value but 1 is read as off");
}

TEST_F(ToolCheckSetup, ABlankInTheNetworkNameIsSurprising) {
    check({.name = "my net"});
    expect_warning("network name", "\"my net\"");
}

TEST_F(ToolCheckSetup, CarriageReturnsAreExplained) {
    std::string text;
    for (const char character : ToolSetup().text()) {
        text += character == '\n' ? std::string("\r\n") : std::string(1, character);
    }
    check_text(text);
    expect_error("network file", "Unix line ends");
    expect_error("output directory", "Unix line ends");
}

TEST_F(ToolCheckSetup, AMissingOutputDirectoryIsAnError) {
    check({.output = "elsewhere"});
    expect_error("output directory", "does not exist");
}

TEST_F(ToolCheckSetup, AFileInPlaceOfTheOutputDirectoryIsAnError) {
    check({.output = "network.txt"});
    expect_error("output directory", "is not a directory");
}

TEST_F(ToolCheckSetup, TheOutputOptionIsCheckedInPlaceOfTheSetupFilesDirectory) {
    scratch.write("net.setup", ToolSetup{.output = "elsewhere"}.text());
    result = run_tool({"check", "net.setup", "--output", "out"}, scratch.path().string());
    expect_nothing();
    result = run_tool({"check", "net.setup", "--output", "nowhere"}, scratch.path().string());
    expect_error("output directory", "\"nowhere\", which does not exist");
}

TEST_F(ToolCheckSetup, AnOutputFileThatCannotBeWrittenIsAnError) {
    std::filesystem::create_directory(scratch.path() / "out" / "estimation_net.txt");
    check({});
    expect_error("output directory", "estimation_net.txt, which is a directory");
}

TEST_F(ToolCheckSetup, EveryFileOfTheRunIsLookedAt) {
    // By mode and kind: names of files that such a run writes.
    const std::map<std::pair<int, int>, std::vector<const char*>> names = {
        {{1, 1}, {"start_statistics_net.txt", "parameter_net.txt", "sim_net.sps", "pajek_net.paj"}},
        {{2, 1},
         {"stupdate.ovri", "covupdate.ovri", "logodds_net.txt", "change_statistics_net.txt"}},
        {{2, 2}, {"distupdate.ovri", "dicatupdate.ovri", "covariance_net.txt"}},
        {{3, 2}, {"accept_net.txt", "gof_net.txt", "simulation_net.txt"}}};
    for (const auto& [run, files] : names) {
        for (const char* file : files) {
            const std::filesystem::path path = scratch.path() / "out" / file;
            std::filesystem::create_directory(path);
            ToolSetup setup{.mode = run.first, .kind = run.second, .sample_graphs = "1"};
            setup.effects = {{run.second == 1 ? "edge" : "arc", "1 -1.0"}};
            check(setup);
            expect_error("output directory", std::string(file) + ", which is a directory");
            std::filesystem::remove(path);
        }
    }
}

TEST_F(ToolCheckSetup, FilesThatTheRunDoesNotWriteMayStandThere) {
    for (const char* file : {"distupdate.ovri", "gof_net.txt", "accept_net.txt", "pajek_net.paj",
                             "simulation_net.txt", "sample_statistics_net"}) {
        std::filesystem::create_directory(scratch.path() / "out" / file);
    }
    check({});
    expect_nothing();
    check({.fit_after = "1"});
    expect_error("output directory", "gof_net.txt, which is a directory");
}

TEST_F(ToolCheckSetup, ANetworkNameThatLeadsElsewhereIsAnError) {
    check({.name = "a/b"});
    expect_error("network name", "into another directory");
}

TEST_F(ToolCheckSetup, AnOverlongNetworkNameIsAnError) {
    check({.name = std::string(240, 'n')});
    expect_error("network name", "240 characters");
}

TEST_F(ToolCheckSetup, BlanksAndForeignLettersInPathsAreFine) {
    std::filesystem::create_directory(scratch.path() / "Ergebnisse für später");
    scratch.write("Daten von Zoë/Netz 1.txt", scratch.read("network.txt"));
    check({.output = "Ergebnisse für später", .network = "Daten von Zoë/Netz 1.txt"});
    expect_nothing();
}

TEST_F(ToolCheckSetup, CheckingWritesNothing) {
    check({});
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path() / "out"));
}
