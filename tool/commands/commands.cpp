#include "commands/commands.h"

#include <algorithm>
#include <array>
#include <vector>

#include "terminal/similar.h"

extern const Command kNewCommand;
extern const Command kConvertCommand;
extern const Command kEstimateCommand;
extern const Command kGofCommand;
extern const Command kCompareCommand;
extern const Command kReportCommand;
extern const Command kRunCommand;
extern const Command kSimulateCommand;
extern const Command kCheckCommand;
extern const Command kBatchCommand;
extern const Command kEffectsCommand;
extern const Command kSelftestCommand;
extern const Command kHelpCommand;

namespace {

constexpr std::array kCommands = {
    &kNewCommand,     &kEstimateCommand, &kGofCommand,     &kSimulateCommand, &kBatchCommand,
    &kCompareCommand, &kReportCommand,   &kConvertCommand, &kEffectsCommand,  &kCheckCommand,
    &kRunCommand,     &kSelftestCommand, &kHelpCommand};

}  // namespace

std::span<const Command* const> command_table() { return kCommands; }

const Command* find_command(const std::string& name) {
    const auto place = std::find_if(kCommands.begin(), kCommands.end(),
                                    [&](const Command* each) { return each->name == name; });
    return place != kCommands.end() ? *place : nullptr;
}

std::string unknown_command(const std::string& name) {
    std::vector<std::string> names;
    names.reserve(kCommands.size());
    for (const Command* command : kCommands) {
        names.emplace_back(command->name);
    }
    return unknown_word("command", name, names, "`ovri help` lists all");
}
