// Starts the Java machine with the library built here and a clock that stands still.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/golden_cases.h"
#include "support/sanitized.h"

#ifdef OVRI_JAVA

inline constexpr bool kJavaIsThere = true;

// What stands between "java" and the name of a class or "-jar": the library, and a small heap of a
// fixed size that is taken at once, so that what a process grows by is the library's.
inline std::vector<std::string> java_command(const std::vector<std::string>& rest) {
    std::vector<std::string> command = {OVRI_JAVA,
                                        "-Xms16m",
                                        "-Xmx16m",
                                        "-XX:+UseSerialGC",
                                        "-XX:+AlwaysPreTouch",
                                        "-XX:TieredStopAtLevel=1",
                                        "-Xcheck:jni",
                                        std::string("-Dovri.library=") + OVRI_LIBRARY_PATH};
    command.insert(command.end(), rest.begin(), rest.end());
    return command;
}

inline std::vector<std::pair<std::string, std::string>> java_environment() {
    std::string preload = OVRI_HELD_CLOCK_PATH;
#ifdef OVRI_SANITIZER_RUNTIME
    preload = std::string(OVRI_SANITIZER_RUNTIME ":") + preload;
#endif
    return {{"LD_PRELOAD", preload},
            {"OVRI_HELD_CLOCK", std::to_string(kGoldenClock)},
            // File names of any script reach the machine's command line only in a UTF-8 locale.
            {"LC_ALL", "C.UTF-8"},
            // The Java machine handles faults of its own and keeps memory until its end.
            {"ASAN_OPTIONS", "handle_segv=0:detect_leaks=0"}};
}

// The host that is shipped, on the setup files.
inline ChildResult run_host(const std::filesystem::path& directory,
                            const std::vector<std::string>& setups) {
    std::vector<std::string> rest = {"-jar", OVRI_JAR_PATH};
    rest.insert(rest.end(), setups.begin(), setups.end());
    return run_child({java_command(rest), directory, java_environment()});
}

// A probe of these tests.
inline ChildResult run_probe(const std::filesystem::path& directory,
                             const std::vector<std::string>& arguments,
                             const std::string& probe = "CallProbe") {
    std::vector<std::string> rest = {"-cp", std::string(OVRI_JAR_PATH ":") + OVRI_PROBE_JAR_PATH,
                                     probe};
    rest.insert(rest.end(), arguments.begin(), arguments.end());
    ChildSetting setting{java_command(rest), directory, java_environment()};
    setting.limit = std::chrono::hours(2);
    return run_child(setting);
}

#else

inline constexpr bool kJavaIsThere = false;

inline ChildResult run_host(const std::filesystem::path&, const std::vector<std::string>&) {
    return {};
}
inline ChildResult run_probe(const std::filesystem::path&, const std::vector<std::string>&,
                             const std::string& = "") {
    return {};
}

#endif

// Skips every test when there was no JDK to build the Java side with.
class JavaTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!kJavaIsThere) {
            GTEST_SKIP() << "no JDK was found when the build was configured";
        }
    }
};
