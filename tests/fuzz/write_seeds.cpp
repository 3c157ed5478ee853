// Writes the seed inputs of every target into a folder of its name: write_seeds DIRECTORY
#include <filesystem>
#include <fstream>
#include <iostream>

#include "fuzz/corpus.h"
#include "fuzz/targets.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: write_seeds DIRECTORY\n";
        return 2;
    }
    for (const FuzzTarget& target : fuzz_targets()) {
        const std::filesystem::path directory = std::filesystem::path(argv[1]) / target.name;
        std::filesystem::create_directories(directory);
        int number = 0;
        for (const std::string& input : seed_inputs(target.name)) {
            std::ofstream(directory / ("seed" + std::to_string(++number)), std::ios::binary)
                << input;
        }
    }
    return 0;
}
