// Nodes files: types guessed and said, missing values, mistakes.
#include "formats/nodes.h"

#include <gtest/gtest.h>

namespace {

NodesFile read_text(const std::string& text, const std::vector<ColumnOption>& options = {}) {
    return read_nodes(text_file_of("nodes.csv", text), options);
}

const NodesColumn& column_of(const NodesFile& nodes, const std::string& name) {
    static const NodesColumn kNone;
    for (const NodesColumn& column : nodes.columns) {
        if (column.attribute.name == name) {
            return column;
        }
    }
    ADD_FAILURE() << "no column " << name
                  << (nodes.ok() ? "" : ": " + problem_text(nodes.problems[0]));
    return kNone;
}

Problem problem_of(const Problems& problems) {
    EXPECT_FALSE(problems.empty());
    return problems.empty() ? Problem() : problems[0];
}

using Values = std::vector<double>;

TEST(Nodes, TypesAreGuessed) {
    const NodesFile nodes = read_text(
        "name,age,sex,dept,smokes\n"
        "ann,31,f,Sales,no\n"
        "bob,29.5,m,\"R, D\",yes\n"
        "cid,44,m,Law,no\n");
    EXPECT_EQ(nodes.actors, (ActorList{"ann", "bob", "cid"}));
    EXPECT_EQ(nodes.actor_column, "name");
    const NodesColumn& age = column_of(nodes, "age");
    EXPECT_EQ(age.attribute.type, AttributeType::continuous);
    EXPECT_EQ(age.attribute.values, (Values{31, 29.5, 44}));
    const NodesColumn& sex = column_of(nodes, "sex");
    EXPECT_EQ(sex.attribute.type, AttributeType::binary);
    EXPECT_EQ(sex.attribute.values, (Values{0, 1, 1}));
    EXPECT_EQ(sex.note, "binary: 1 is `m`, 0 is `f`");
    const NodesColumn& dept = column_of(nodes, "dept");
    EXPECT_EQ(dept.attribute.type, AttributeType::categorical);
    EXPECT_EQ(dept.attribute.values, (Values{3, 2, 1}));
    EXPECT_EQ(dept.note, "categorical, 3 categories: 1 is `Law`, 2 is `R, D`, 3 is `Sales`");
    EXPECT_EQ(column_of(nodes, "smokes").attribute.values, (Values{0, 1, 0}));
}

TEST(Nodes, WhatIsCodedOneIsTheYesTheOneOrTheLarger) {
    const NodesFile nodes = read_text(
        "name,a,b,c\n"
        "x,1,Yes,10\n"
        "y,0,No,9\n");
    EXPECT_EQ(column_of(nodes, "a").attribute.values, (Values{1, 0}));
    EXPECT_EQ(column_of(nodes, "b").attribute.values, (Values{1, 0}));
    EXPECT_EQ(column_of(nodes, "c").attribute.values, (Values{1, 0}));
    EXPECT_EQ(column_of(nodes, "c").note, "binary: 1 is `10`, 0 is `9`");
}

TEST(Nodes, AYesIsCodedOneInOtherLanguagesToo) {
    const std::vector<std::pair<std::string, std::string>> pairs = {{"no", "yes"},
                                                                    {"N", "Y"},
                                                                    {"no", "Y"},
                                                                    {"FALSE", "TRUE"},
                                                                    {"f", "t"},
                                                                    {"nein", "ja"},
                                                                    {"Nein", "Ja"},
                                                                    {"n", "j"},
                                                                    {"non", "oui"},
                                                                    {"no", "S\xC3\xAD"},
                                                                    {"nee", "ja"},
                                                                    {"0", "1"},
                                                                    {"1", "2"},
                                                                    {"0.0", "1.0"},
                                                                    {"f", "m"},
                                                                    {"j", "m"},
                                                                    {"nein", "vielleicht"},
                                                                    {"ja", "vielleicht"},
                                                                    {"A", "b"}};
    for (const auto& [zero, one] : pairs) {
        const NodesFile nodes = read_text("name,a\nx," + one + "\ny," + zero + "\nz," + one + "\n");
        const NodesColumn& column = column_of(nodes, "a");
        EXPECT_EQ(column.attribute.values, (Values{1, 0, 1})) << zero << " " << one;
        EXPECT_EQ(column.note, "binary: 1 is `" + one + "`, 0 is `" + zero + "`");
    }
    // One value throughout, which was said to be one of two.
    const NodesFile nodes =
        read_text("name,a\nx,nein\ny,nein\n", {{"a", AttributeType::binary, false}});
    EXPECT_EQ(column_of(nodes, "a").attribute.values, (Values{0, 0}));
}

TEST(Nodes, TypesCanBeSaid) {
    const NodesFile nodes =
        read_text("name;team\na;10\nb;9\nc;10\n", {{"team", AttributeType::categorical, false}});
    EXPECT_EQ(column_of(nodes, "team").attribute.values, (Values{2, 1, 2}));
    const NodesFile numbers =
        read_text("name;team\na;10\nb;9\nc;10\n", {{"team", AttributeType::continuous, false}});
    EXPECT_EQ(column_of(numbers, "team").attribute.values, (Values{10, 9, 10}));
    const NodesFile three =
        read_text("name,team\na,x\nb,y\nc,z\n", {{"team", AttributeType::binary, false}});
    EXPECT_EQ(problem_of(column_of(three, "team").problems).found, "3 different values");
}

TEST(Nodes, AnOptionForAColumnThatIsNotThereNamesTheNearest) {
    const NodesFile nodes =
        read_text("name,faction\na,1\nb,2\n", {{"fraction", AttributeType::binary, false}});
    EXPECT_EQ(problem_of(nodes.problems).mend, "a similar one is `faction`");
}

TEST(Nodes, MissingNumbersAreKeptOnRequestOnly) {
    const std::string text = "name,age\na,31\nb,NA\nc,\nd,9999\ne,20\n";
    const Problems problems = column_of(read_text(text), "age").problems;
    ASSERT_EQ(problems.size(), 3U);
    EXPECT_EQ(problems[0].line, 3);
    EXPECT_EQ(problems[0].column, 3);
    EXPECT_EQ(problems[0].field, "actor `b`, column `age`");
    EXPECT_NE(problems[0].mend.find("missing = \"keep\""), std::string::npos);
    const NodesFile kept = read_text(text, {{"age", {}, true}});
    EXPECT_TRUE(column_of(kept, "age").problems.empty());
    EXPECT_EQ(missing_values(column_of(kept, "age").attribute), 3);
    EXPECT_EQ(column_of(kept, "age").note, "continuous, 3 missing");
}

TEST(Nodes, MissingCodesAreAProblemWithThreeWaysOut) {
    const NodesFile nodes = read_text("name,dept\na,x\nb,\nc,y\nd,z\n", {{"dept", {}, true}});
    const Problem problem = problem_of(column_of(nodes, "dept").problems);
    EXPECT_EQ(problem.line, 3);
    EXPECT_NE(problem.mend.find("unknown"), std::string::npos);
    EXPECT_NE(problem.mend.find("is for continuous attributes"), std::string::npos);
}

TEST(Nodes, TextsAmongNumbersAreMistakes) {
    const NodesFile nodes = read_text("name,age\na,31\nb,old\nc,20\n");
    const Problem problem = problem_of(column_of(nodes, "age").problems);
    EXPECT_EQ(problem.line, 3);
    EXPECT_EQ(problem.found, "\"old\", a text in a column of numbers");
    const NodesFile comma = read_text("name;age\na;31,5\nb;20,25\nc;20\n");
    EXPECT_EQ(problem_of(column_of(comma, "age").problems).found, "\"31,5\", a decimal comma");
}

TEST(Nodes, ActorsAndColumnsComeOnce) {
    const Problem twice = problem_of(read_text("name,age\na,1\nb,2\na,3\n").problems);
    EXPECT_EQ(twice.line, 4);
    EXPECT_EQ(twice.field, "actor `a`");
    EXPECT_EQ(twice.found, "the actor once more (first on line 2)");
    EXPECT_EQ(problem_of(read_text("name,age,age\na,1,1\n").problems).column, 10);
    EXPECT_EQ(problem_of(read_text("name,age\na,1\n,2\n").problems).found, "no name");
    const Problem ragged = problem_of(read_text("name,age\na,3,5\nb,2\n").problems);
    EXPECT_EQ(ragged.line, 2);
    EXPECT_NE(ragged.mend.find("decimals with a point"), std::string::npos);
}

TEST(Nodes, OneColumnOfNamesWillDo) {
    const NodesFile nodes = read_text("name\nAnn Lee\nBob May\n");
    EXPECT_EQ(nodes.actors, (ActorList{"Ann Lee", "Bob May"}));
    EXPECT_TRUE(nodes.columns.empty());
}

}  // namespace
