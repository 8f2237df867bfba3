// Runs a target over files, for compilers without a fuzzer and for the ordinary tests: each argument is an
// input, or a folder of inputs. Fails when there is none.
#include "FuzzInput.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

namespace {

using PATHS = std::vector<std::filesystem::path>;

void AddInputs(const std::filesystem::path& path, PATHS& inputs)
{
    if (!std::filesystem::is_directory(path)) {
        inputs.push_back(std::filesystem::absolute(path)); // a target may change the folder
        return;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
        if (entry.is_regular_file())
            inputs.push_back(std::filesystem::absolute(entry.path()));
}

void Run(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::filesystem::filesystem_error("cannot be read", path, std::error_code());
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // As many bytes as there are, so that a read behind them is one behind the block.
    const std::unique_ptr<std::uint8_t[]> input(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), input.get());
    LLVMFuzzerTestOneInput(input.get(), bytes.size());
}

} // namespace

int main(int argc, char** argv)
{
    PATHS inputs;
    try {
        for (int i = 1; i < argc; ++i)
            AddInputs(argv[i], inputs);
        std::sort(inputs.begin(), inputs.end());
        for (const std::filesystem::path& path : inputs) {
            std::fprintf(stderr, "%s\n", path.filename().string().c_str());
            Run(path);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    std::fprintf(stderr, "%zu inputs\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
