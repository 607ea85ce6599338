// Runs a fuzz target over files and directories of inputs named on the command line, each once:
// what libFuzzer's own main does without its search, for compilers that don't have it.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> inputsOf(const fs::path& place) {
    std::vector<fs::path> inputs;
    if (!fs::is_directory(place)) {
        inputs.push_back(place);
        return inputs;
    }
    for (const auto& entry : fs::recursive_directory_iterator(place)) {
        if (entry.is_regular_file()) {
            inputs.push_back(entry.path());
        }
    }
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

bool run(const fs::path& input) {
    std::ifstream file(input, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    if (file.bad() || !file.is_open()) {
        std::fprintf(stderr, "cannot read %s\n", input.string().c_str());
        return false;
    }
    // A copy of exactly that size, so that a sanitizer sees a read past its end.
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& input : inputsOf(argv[i])) {
            // Named before it runs: a crash ends the program, and the last name is the culprit.
            std::printf("%s\n", input.string().c_str());
            std::fflush(stdout);
            if (!run(input)) {
                return 1;
            }
            ++count;
        }
    }
    std::printf("%zu inputs\n", count);
    return count == 0 ? 1 : 0;
}
