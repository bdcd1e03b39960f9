// Plays the corpus of a fuzzer where libFuzzer is not: each file is one input.
//
//   fuzz_<name>_corpus                  the committed corpus
//   fuzz_<name>_corpus <file> ...       these inputs
#include "fuzzer.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

int main(int argc, char **argv)
{
    std::vector<std::filesystem::path> files(argv + 1, argv + argc);
    if (files.empty()) {
        for (const auto &entry : std::filesystem::directory_iterator(MOX_CORPUS))
            files.push_back(entry.path());
        std::sort(files.begin(), files.end());
    }
    for (const auto &path : files) {
        std::ifstream file(path, std::ios::binary);
        if (!file) {
            std::fprintf(stderr, "%s cannot be read\n", path.c_str());
            return 1;
        }
        const std::string input(std::istreambuf_iterator<char>(file), {});
        // Named before it is played: a fault ends the process.
        std::printf("%s\n", path.filename().c_str());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
    }
    if (files.empty())
        std::fprintf(stderr, "there is nothing in %s\n", MOX_CORPUS);
    return files.empty() ? 1 : 0;
}
