// SPDX-License-Identifier: MIT

// Runs a fuzz target once with every file of its corpus folder. For compilers without libFuzzer.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: " << argv[0] << " CORPUS-FOLDER\n";
        return 2;
    }
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[1])) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream in(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
        const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
        LLVMFuzzerTestOneInput(data.data(), data.size());
        ++files;
    }
    std::cout << files << " inputs\n";
    return files > 0 ? 0 : 1;
}
