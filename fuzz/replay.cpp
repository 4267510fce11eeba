// Stands in for the fuzzer: runs a target once on each of the files given, or on the files of the folders given.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) __attribute__((weak));

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> inputsOf(const fs::path& path) {
    if (!fs::is_directory(path)) return {path};
    std::vector<fs::path> inputs;
    for (const auto& entry : fs::directory_iterator(path)) inputs.push_back(entry.path());
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

}  // namespace

int main(int argc, char** argv) {
    if (LLVMFuzzerInitialize != nullptr) LLVMFuzzerInitialize(&argc, &argv);
    std::vector<fs::path> inputs;
    // A target may change the working directory.
    for (int i = 1; i < argc; ++i) {
        const std::vector<fs::path> found = inputsOf(fs::absolute(argv[i]));
        inputs.insert(inputs.end(), found.begin(), found.end());
    }
    for (const fs::path& input : inputs) {
        std::ifstream file(input, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        if (!file) {
            std::fprintf(stderr, "%s: cannot be read\n", input.c_str());
            return 1;
        }
        std::printf("%s\n", input.c_str());
        std::fflush(stdout);
        // Of exactly that size on the heap, so that a sanitizer sees what is read behind it.
        const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
    }
    if (inputs.empty()) std::fprintf(stderr, "replay: no input was given\n");
    return inputs.empty() ? 1 : 0;
}
