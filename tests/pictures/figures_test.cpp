// Drawings as SVG: well-formed, within their frame, hostile names as text, the same every time.
#include "pictures/figures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <regex>

#include "pictures/axis.h"
#include "support/scratch_directory.h"
#include "support/small_studies.h"

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

const std::vector<std::string> kHostile = {"<script>alert(1)</script>",
                                           "\"quoted\" & 'single'",
                                           "]]>--><!--",
                                           "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xE2\x80\xAE"
                                           "abc",  // right to left
                                           std::string(200, 'x'),
                                           "bell\x07 and \xFF no text",
                                           ""};

std::string without_ends(const std::string& path) {
    return std::filesystem::exists(path) ? path : "";
}

// Empty when xmllint finds the text well-formed, or is not there.
std::string lint(const std::string& text) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("drawing.svg", text);
    const std::string tool = without_ends("/usr/bin/xmllint");
    if (tool.empty()) {
        return "";
    }
    const std::string said = scratch.path().string() + "/said";
    const std::string command = tool + " --noout " + path + " 2> " + said;
    return std::system(command.c_str()) == 0 ? "" : file_text(said) + text.substr(0, 500);
}

GofDistribution distribution_of(int entries, bool words) {
    GofDistribution distribution{"degree", {}, true};
    for (int k = 0; k < entries; ++k) {
        GofRow row;
        row.at = words ? kHostile[static_cast<std::size_t>(k) % kHostile.size()] + "!"
                       : std::to_string(k);
        if (!words) {
            row.number = k;
        }
        row.observed = 3.0 + k;
        row.mean = 2.5 + k;
        row.q05 = k;
        row.q25 = 1.0 + k;
        row.median = 2.0 + k;
        row.q75 = 4.0 + k;
        row.q95 = 9.0 + k;
        distribution.rows.push_back(row);
    }
    return distribution;
}

DrawnSample sample_of(const std::string& effect, int chains, int draws) {
    std::mt19937 random(5);
    DrawnSample sample{{"one.results", true, "converged"}, effect, 52.0, {}};
    for (int chain = 0; chain < chains; ++chain) {
        sample.chains.emplace_back();
        for (int draw = 0; draw < draws; ++draw) {
            sample.chains.back().push_back(40.0 + static_cast<int>(random() % 20));
        }
    }
    return sample;
}

DrawnPath path_of(const std::string& effect, int steps) {
    DrawnPath path{
        {"one.results", true, "converged"}, effect, -1.0, {"newton", "approximation"}, {}};
    path.values.resize(2);
    for (int step = 0; step < steps; ++step) {
        path.values[static_cast<std::size_t>(2 * step / steps)].push_back(-1.0 - 1.0 / (step + 1));
    }
    return path;
}

std::vector<Drawing> hostile_drawings(const std::string& name) {
    Study study = ring_study(9, true, "arc");
    study.network.actors[0] = name;
    StudyAttribute attribute{name, AttributeType::categorical, {}, {"", name, "other"}};
    for (int k = 0; k < 9; ++k) {
        attribute.values.push_back(k == 3 ? kMissingValue : 1 + k % 2);
    }
    const ResultLabel label{name, false, "not converged"};
    GofDistribution distribution = distribution_of(7, true);
    distribution.name = "mixing(" + name + ")";
    GofStatistic statistic{.name = name};
    statistic.t_ratio = 17.0;
    DrawnSample sample = sample_of(name, 2, 30);
    sample.label = label;
    DrawnPath path = path_of(name, 9);
    path.label = label;
    path.stages[0] = name;
    return {forest_figure({{label, {{name, 1.0, 0.5, 1.5, false}, {"edge", kNone, 0, 0, false}}},
                           {label, {}}}),
            network_figure(study.network, network_places(study.network), &attribute),
            path_figure(path),
            trace_figure(sample),
            histogram_figure(sample),
            distribution_figure(distribution, label),
            statistics_figure({statistic}, label)};
}

TEST(Figures, AreWellFormedWhateverTheNames) {
    for (const std::string& name : kHostile) {
        for (const Drawing& drawing : hostile_drawings(name)) {
            EXPECT_EQ(lint(drawing.document(88.0)), "") << drawing.title();
            EXPECT_EQ(drawing.element("f").find("<script"), std::string::npos);
        }
    }
}

TEST(Figures, SayThatAResultIsNotToBeUsed) {
    for (const Drawing& drawing : hostile_drawings("effect")) {
        // The network is the observed one: nothing in it is estimated.
        if (drawing.title() != "The network") {
            EXPECT_NE(drawing.element("f").find("not converged: do not use"), std::string::npos)
                << drawing.title();
        }
    }
}

TEST(Figures, ShowNoIntervalOfWhatIsNotToBeUsed) {
    const std::vector<DrawnEstimate> estimates = {{"edge", -2.0, -2.5, -1.5, false}};
    const std::string good = forest_figure({{{"a", true, ""}, estimates}}).element("f");
    const std::string bad = forest_figure({{{"a", false, "degenerate"}, estimates}}).element("f");
    EXPECT_NE(good.find("class=\"interval"), std::string::npos);
    EXPECT_EQ(bad.find("class=\"interval"), std::string::npos);
    EXPECT_NE(bad.find("degenerate: do not use"), std::string::npos);
}

TEST(Figures, ShowTheDecimalsThatTheErrorSupports) {
    const std::vector<DrawnEstimate> estimates = {{"edge", -2.03456, -2.54321, -1.52345, false, 1}};
    const std::string drawn = forest_figure({{{"a", true, ""}, estimates}}).element("f");
    EXPECT_NE(drawn.find("edge: \xE2\x88\x92"
                         "2.0 (\xE2\x88\x92"
                         "2.5 to \xE2\x88\x92"
                         "1.5)"),
              std::string::npos)
        << drawn;
    DrawnPath path = path_of("edge", 5);
    path.estimate = 0.123456;
    path.decimals = 2;
    const std::string way = path_figure(path).element("f");
    EXPECT_NE(way.find("dashed: estimate, 0.12<"), std::string::npos) << way;
}

TEST(Figures, StayWithinTheirFrame) {
    std::vector<Drawing> drawings = {distribution_figure(distribution_of(70, false), {}),
                                     distribution_figure(distribution_of(0, false), {}),
                                     trace_figure(sample_of("edge", 8, 1000)),
                                     histogram_figure(sample_of("edge", 8, 1000)),
                                     histogram_figure(sample_of("edge", 0, 0)),
                                     path_figure(path_of("edge", 0)),
                                     path_figure(path_of("edge", 300))};
    for (const int n : {0, 1, 5, 60, 200}) {
        const Study study = ring_study(n, false, "edge");
        drawings.push_back(
            n < 3 ? network_figure({study.network.actors, false, {}},
                                   std::vector<Point>(static_cast<std::size_t>(n)), nullptr)
                  : network_figure(study.network, network_places(study.network), nullptr));
    }
    const std::regex place(" (x|y|x1|x2|y1|y2|cx|cy)=\"([^\"]*)\"");
    for (const Drawing& drawing : drawings) {
        const std::string text = drawing.element("f");
        EXPECT_EQ(text.find("nan"), std::string::npos);
        EXPECT_EQ(text.find("inf"), std::string::npos);
        for (std::sregex_iterator match(text.begin(), text.end(), place), end; match != end;
             ++match) {
            const double value = std::stod((*match)[2]);
            const bool across = (*match)[1].str().find('x') != std::string::npos;
            EXPECT_GE(value, -0.5) << drawing.title() << match->str();
            EXPECT_LE(value, (across ? drawing.width() : drawing.height()) + 0.5)
                << drawing.title() << match->str();
        }
    }
}

TEST(Figures, TellColourByShapeToo) {
    Study study = ring_study(6, false, "edge");
    const StudyAttribute attribute{
        "group", AttributeType::categorical, {1, 1, 2, 2, 3, 3}, {"", "a", "b", "c"}};
    const std::string text =
        network_figure(study.network, network_places(study.network), &attribute).element("f");
    // Circles for the first, paths for the others; the key names all three.
    EXPECT_NE(text.find("<circle"), std::string::npos);
    EXPECT_NE(text.find("class=\"s1\""), std::string::npos);
    EXPECT_NE(text.find("class=\"s2\""), std::string::npos);
    for (const char* name : {">a</text>", ">b</text>", ">c</text>", ">group</text>"}) {
        EXPECT_NE(text.find(name), std::string::npos) << name;
    }
}

TEST(Figures, TellAPointerWhatStandsThere) {
    DrawnSample sample = sample_of("edge", 1, 2);
    sample.chains = {{50.0, 50.0, 51.0}};
    const std::string bars = histogram_figure(sample).element("f");
    EXPECT_NE(bars.find("<title>50: 2 networks</title>"), std::string::npos) << bars;
    EXPECT_NE(bars.find("<title>51: 1 network</title>"), std::string::npos);
    const std::string boxes = distribution_figure(distribution_of(3, false), {}).element("f");
    EXPECT_NE(boxes.find("<title>1: observed 4; simulated median 3, mean 3.500, 90% from 1 to "
                         "10</title>"),
              std::string::npos)
        << boxes;
    const std::string steps = path_figure(path_of("edge", 12)).element("f");
    EXPECT_NE(steps.find("<title>step 2: \xE2\x88\x92"
                         "1.500</title>"),
              std::string::npos);
}

DrawnPool pool_of(int networks) {
    DrawnPool pool{"closure.toml", {}, {"AT(2)", 0.5, 0.3, 0.7, false}, 2};
    for (int k = 0; k < networks; ++k) {
        const double estimate = 0.1 * (k % 9);
        pool.networks.push_back({kHostile[static_cast<std::size_t>(k) % kHostile.size()] + "!",
                                 estimate, estimate - 0.5, estimate + 0.4, false});
    }
    return pool;
}

TEST(Figures, PoolNetworksAboveADiamond) {
    for (const int networks : {0, 1, 12, 60, 61, 2000}) {
        const Drawing drawing = pooled_figure(pool_of(networks));
        EXPECT_EQ(lint(drawing.document(88.0)), "");
        const std::string text = drawing.element("f");
        EXPECT_NE(text.find("<title>AT(2): " + number_for_people(0.5) + " (" +
                            number_for_people(0.3) + " to " + number_for_people(0.7) + ")</title>"),
                  std::string::npos);
        EXPECT_NE(text.find("left out, without estimates to be used: 2"), std::string::npos);
        EXPECT_EQ(text.find(">]]&gt;--&gt;&lt;!--!</text>") != std::string::npos,
                  networks > 2 && networks <= 60);
        EXPECT_LT(drawing.height(), 5000.0);
    }
}

TEST(Figures, NameActorsUpToSixty) {
    for (const int n : {60, 61}) {
        const Study study = ring_study(n, false, "edge");
        const std::string text =
            network_figure(study.network, network_places(study.network), nullptr).element("f");
        EXPECT_EQ(text.find("<text") != std::string::npos, n == 60);
        EXPECT_NE(text.find("<title>17</title>"), std::string::npos);
    }
}

TEST(Figures, HaveTitlesAndDescriptionsForReaders) {
    const std::string text =
        forest_figure({{{"a", true, ""}, {{"edge", -2.0, -2.5, -1.5, false}}}}).element("f7");
    EXPECT_NE(text.find("aria-labelledby=\"f7-title f7-desc\""), std::string::npos);
    EXPECT_NE(text.find("<desc id=\"f7-desc\">a: edge \xE2\x88\x92"
                        "2 from \xE2\x88\x92"
                        "2.500 to \xE2\x88\x92"
                        "1.500; </desc>"),
              std::string::npos)
        << text;
}

TEST(Labels, LieOnNothing) {
    LabelPlaces places(100.0, 100.0);
    std::vector<Area> areas;
    for (int k = 0; k < 12; ++k) {
        const LabelPlaces::Place place = places.find(50.0, 50.0, 4.0, 20.0);
        if (!place.found) {
            continue;
        }
        const double left = place.anchor == Anchor::start ? place.x
                            : place.anchor == Anchor::end ? place.x - 20.0
                                                          : place.x - 10.0;
        const Area area{left, place.y - 8.0, left + 20.0, place.y + 2.0};
        for (const Area& other : areas) {
            EXPECT_FALSE(overlap(area, other));
        }
        areas.push_back(area);
    }
    EXPECT_GE(areas.size(), 4U);
    EXPECT_LT(areas.size(), 12U);
}

TEST(Texts, AreShortenedAtCharacters) {
    EXPECT_EQ(shortened("short", 100.0), "short");
    const std::string text = shortened("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", 40.0);
    EXPECT_TRUE(text.ends_with("\xE2\x80\xA6"));
    EXPECT_EQ(text.size() % 2, 1U);
    EXPECT_LE(text_length(text), 41.0);
}

// With OVRI_RENEW_FIGURES=1 the files are written instead.
void expect_golden(const std::string& name, const Drawing& drawing) {
    const std::string path = OVRI_SOURCE_DIRECTORY "/tests/pictures/expected/" + name + ".svg";
    const std::string text = drawing.document(88.0);
    const char* renew = std::getenv("OVRI_RENEW_FIGURES");
    if (renew != nullptr && *renew == '1') {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        ASSERT_NE(file, nullptr) << path;
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
        return;
    }
    EXPECT_EQ(text, file_text(path)) << name;
}

TEST(Figures, LookAsTheyDid) {
    const std::vector<DrawnEstimate> estimates = {{"edge", -3.0155, -3.509, -2.522, false},
                                                  {"AT(2)", 0.68, 0.41, 0.95, false},
                                                  {"AS(2)", 0.5, kNone, kNone, true}};
    expect_golden("estimates", forest_figure({{{"karate.results", true, "converged"}, estimates}}));
    expect_golden("estimates_of_two",
                  forest_figure({{{"karate.results", true, "converged"}, estimates},
                                 {{"other.results", false, "not converged"}, estimates}}));
    expect_golden("trace", trace_figure(sample_of("edge", 3, 40)));
    expect_golden("histogram", histogram_figure(sample_of("edge", 3, 40)));
    expect_golden("pooled", pooled_figure({"closure.toml", estimates, estimates[1], 1}));
    expect_golden("path", path_figure(path_of("edge", 12)));
    expect_golden("degree", distribution_figure(distribution_of(12, false), {"a", true, ""}));
}

}  // namespace
