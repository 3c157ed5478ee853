#include <cstdlib>
#include <cstring>
#include <string>

#include "run/run.h"

int main(int argc, char** argv) {
    HostOptions options;
    options.path_separator = '/';
    options.updates_beside_outputs = true;
    std::string setup;
    for (int a = 2; a < argc; ++a) {
        const std::string word = argv[a];
        if (word == "--clock" && a + 1 < argc) {
            const long long seconds = std::strtoll(argv[++a], nullptr, 10);
            options.clock_seconds = [seconds] { return seconds; };
        } else if (word == "--output" && a + 1 < argc) {
            options.output_directory = argv[++a];
        } else if (word[0] != '-') {
            setup = word;
        }
    }
    run_setup_file(setup, options);
    return 0;
}
