#include "support/tool_runner.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <sstream>
#include <utility>

#include "support/json_schema.h"

namespace {

std::string structural_rows(const ToolSetup& setup) {
    std::string text;
    const Catalogue& catalogue = catalogue_of(static_cast<NetworkKind>(setup.kind));
    for (const int id : catalogue.setup_order) {
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        const auto chosen = setup.effects.find(effect.row);
        const char* off = effect.traits.alternating ? "0 0.0 2.0" : "0 0.0";
        text += std::string(effect.row) + " " +
                (chosen != setup.effects.end() ? chosen->second : off) + "\n";
    }
    return text;
}

// Reads what the tool writes on the other end of a terminal, until it closes it.
std::string read_terminal(int terminal) {
    std::string text;
    std::array<char, 4096> buffer{};
    ssize_t count = ::read(terminal, buffer.data(), buffer.size());
    while (count > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
        count = ::read(terminal, buffer.data(), buffer.size());
    }
    return text;
}

}  // namespace

ToolResult run_tool(const std::vector<std::string>& words, const std::string& directory) {
    ChildSetting setting;
    setting.command = {OVRI_TOOL_PATH};
    setting.command.insert(setting.command.end(), words.begin(), words.end());
    setting.directory = directory;
    ChildResult child = run_child(setting);
    if (is_document(child.output)) {
        for (const std::string& fault : document_faults(child.output)) {
            ADD_FAILURE() << "ovri " << words.front()
                          << " prints a document against its schema: " << fault;
        }
    }
    return {child.status, std::move(child.output), std::move(child.errors)};
}

ToolResult run_tool_on_terminal(const std::vector<std::string>& words) {
    const ScratchDirectory captured;
    const std::string out = (captured.path() / "out").string();
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0) {
        return {};
    }
    const std::string other_end = ::ptsname(terminal);
    std::vector<std::string> copies = {OVRI_TOOL_PATH};
    copies.insert(copies.end(), words.begin(), words.end());
    std::vector<char*> pointers;
    for (std::string& word : copies) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(::open(other_end.c_str(), O_RDWR | O_NOCTTY), STDERR_FILENO);
        ::dup2(::open(out.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
        ::execv(pointers[0], pointers.data());
        ::_exit(127);
    }
    ToolResult result;
    result.err = read_terminal(terminal);
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(terminal);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.out = file_text(out);
    return result;
}

std::string find_finding(const std::string& text, const std::string& severity,
                         const std::string& field, const std::string& piece) {
    std::istringstream lines(text);
    std::string line;
    std::string block;
    const std::string head = ": " + severity + ": " + field + "\n";
    const auto matches = [&] {
        return block.find(head) != std::string::npos && block.find(piece) != std::string::npos;
    };
    while (std::getline(lines, line)) {
        if (!line.starts_with("    ")) {
            if (matches()) {
                return block;
            }
            block.clear();
        }
        block += line + "\n";
    }
    return matches() ? block : "";
}

std::string ToolSetup::text() const {
    std::string text = "Name " + name + "\nOutput " + output + "\nProposal " + proposal +
                       "\nMode_and_kind " + std::to_string(mode) + " " + std::to_string(kind) +
                       "\nActors " + actors + "\n";
    text += mode == 1 ? "Density " + density + "\n" : "Network " + network + "\n";
    text += "Cap " + cap + "\nStructural 1\n" + structural_rows(*this);
    text += attributes + "\n" + covariates + "\n";
    text += mode == 4 ? "Covariance " + covariance + "\n" : "";
    text += free_dyads + "\n";
    if (mode == 2) {
        return text + "Sub_phases " + sub_phases + "\nA_value " + a_value + "\nFactor " +
               multiplication_factor + "\nPhase_3 " + phase3_steps + "\nRuns " + estimation_runs +
               "\nFit_after " + fit_after + "\n";
    }
    text += "Sample_graphs " + sample_graphs + "\nDegrees 0\nGeodesics 0\nClusters 0\n";
    text += "Triangles 0\nTwo_paths 0\nEdge_triangles 0\nBurn_in " + burn_in + "\n";
    text += mode == 4 ? "" : "Iterations " + iterations + "\n";
    return text + "Samples " + samples + "\n";
}

std::string with(const std::string& text, const std::string& from, const std::string& to) {
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << "no " << from;
    return place == std::string::npos
               ? text
               : text.substr(0, place) + to + text.substr(place + from.size());
}

ToolTest::ToolTest() {
    std::filesystem::create_directory(scratch.path() / "out");
    scratch.write("network.txt", "0 1 1 0 0\n1 0 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
}

ChildResult ToolTest::shell(const std::string& script) const {
    ChildSetting setting;
    setting.command = {"bash", "-c", "set -m\n" + script};
    setting.directory = scratch.path();
    setting.environment = {{"OVRI", OVRI_TOOL_PATH}};
    return run_child(setting);
}

const ToolResult& ToolTest::check_text(const std::string& text) {
    scratch.write("net.setup", text);
    result = run_tool({"check", "net.setup"}, scratch.path().string());
    return result;
}

void ToolTest::expect_error(const std::string& field, const std::string& piece) const {
    EXPECT_NE(find_finding(result.out, "error", field, piece), "") << result.out << result.err;
    EXPECT_EQ(result.status, 1);
}

void ToolTest::expect_warning(const std::string& field, const std::string& piece) const {
    EXPECT_NE(find_finding(result.out, "warning", field, piece), "") << result.out << result.err;
    EXPECT_EQ(result.status, 0) << result.out;
}

void ToolTest::expect_nothing() const {
    EXPECT_NE(result.out.find("no errors, no warnings"), std::string::npos) << result.out;
    EXPECT_EQ(result.status, 0);
}
