#include <cstdio>

#include "check/checks.h"
#include "check/overview.h"
#include "commands/commands.h"

int check_command(const Arguments& arguments) {
    SetupView view = read_view(arguments.setup, arguments.output);
    const Findings findings = check_view(view);
    if (const std::string text = describe_setup(view); !text.empty()) {
        std::printf("%s: %s\n", view.path.c_str(), text.c_str());
    }
    print_findings(findings, true, stdout);
    std::printf(
        "%s: %s\n", view.path.c_str(),
        findings.list.empty() ? "no errors, no warnings" : findings_summary(findings).c_str());
    return count_findings(findings, Severity::error) > 0 ? kErrorsFound : kDone;
}
