// Replays fuzz corpora through the targets, without libFuzzer: "ui_fuzz_replay TARGET DIR...".
// Any crash or abort fails the test that runs it.
#include "Fuzz.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

int main(int argc, char** argv) {
    if (argc < 3 || !fuzz::targets().count(argv[1])) {
        std::cerr << "usage: ui_fuzz_replay TARGET DIR...; targets:";
        for (const auto& [name, target] : fuzz::targets())
            std::cerr << " " << name;
        std::cerr << "\n";
        return 2;
    }
    const fuzz::Target target = fuzz::targets()[argv[1]];
    int inputs = 0;
    for (int i = 2; i < argc; ++i)
        for (const auto& file : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream in(file.path(), std::ios::binary);
            const std::vector<uint8_t> data{std::istreambuf_iterator<char>(in),
                                            std::istreambuf_iterator<char>()};
            target(data.data(), data.size());
            ++inputs;
        }
    std::cout << "replayed " << inputs << " inputs through " << argv[1] << "\n";
    return inputs > 0 ? 0 : 1;
}
