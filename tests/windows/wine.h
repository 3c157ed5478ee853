// Runs the Windows build under wine, and says why when it cannot.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/golden_cases.h"

inline std::filesystem::path windows_build() { return OVRI_WINDOWS_BUILD; }

// A Windows program under wine. Paths given to it are taken from the directory; wine
// shows the root of the file system as drive Z.
inline ChildResult run_wine_program(const std::filesystem::path& directory,
                                    const std::filesystem::path& program,
                                    const std::vector<std::string>& arguments) {
    std::vector<std::string> command = {OVRI_WINE, program.string()};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run_child({command,
                      directory,
                      {{"WINEPREFIX", OVRI_WINE_PREFIX},
                       {"WINEDEBUG", "-all"},
                       // Neither a browser nor a .NET runtime is asked for at the first start.
                       {"WINEDLLOVERRIDES", "mscoree=;mshtml="},
                       // File names of any script.
                       {"LC_ALL", "C.UTF-8"}}});
}

// A program of the Windows build.
inline ChildResult run_wine(const std::filesystem::path& directory, const std::string& program,
                            const std::vector<std::string>& arguments) {
    return run_wine_program(directory, windows_build() / program, arguments);
}

// The stand-in host, at the clock of the golden runs.
inline ChildResult run_loader(const std::filesystem::path& directory,
                              const std::vector<std::string>& setups) {
    std::vector<std::string> arguments = {"Z:" + (windows_build() / "ovri.dll").string(),
                                          std::to_string(kGoldenClock)};
    arguments.insert(arguments.end(), setups.begin(), setups.end());
    return run_wine(directory, "loader.exe", arguments);
}

// Why nothing of the Windows build can be looked at; "" when it can.
inline std::string no_windows_build() {
    for (const char* file : {"ovri.dll", "ovri.exe", "loader.exe"}) {
        if (!std::filesystem::exists(windows_build() / file)) {
            return (windows_build() / file).string() + " is not there: build the preset windows";
        }
    }
    return "";
}

// Why nothing can be run under wine; "" when it can.
inline std::string no_wine() {
    if (std::string(OVRI_WINE).empty()) {
        return "wine was not found when the build was configured";
    }
    const std::string missing = no_windows_build();
    if (!missing.empty()) {
        return missing;
    }
    static const ChildResult trial = run_wine("/", "loader.exe", {});
    return trial.status == 2 ? ""
                             : "wine cannot run a program here (status " +
                                   std::to_string(trial.status) + "): " + trial.errors;
}
