// Runs a target over inputs, for compilers without a fuzzer and for the ordinary tests. Each argument is an
// input, a folder of inputs, or an archive of them (.tar). Fails when there is no input, when an archive has
// none, and when a target ends the process.
#include "Archive.h"
#include "FuzzInput.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Path = std::filesystem::path;

// Counts every input that a target came back from.
std::size_t runs = 0;
bool hasFinished = false;

// A target that ends the process leaves the inputs after it unseen.
void FailUnlessFinished()
{
    if (!hasFinished)
        std::_Exit(1);
}

std::vector<Path> InputsOf(const Path& path)
{
    std::vector<Path> inputs;
    if (!std::filesystem::is_directory(path)) {
        inputs.push_back(path);
        return inputs;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
        if (entry.is_regular_file())
            inputs.push_back(entry.path());
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

std::string BytesOf(const Path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::filesystem::filesystem_error("cannot be read", path, std::error_code());
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Run(const std::string& name, std::string_view bytes)
{
    std::fprintf(stderr, "%s\n", name.c_str());
    // As many bytes as there are, so that a read past them is one past the block.
    const std::unique_ptr<std::uint8_t[]> input(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), input.get());
    LLVMFuzzerTestOneInput(input.get(), bytes.size());
    ++runs;
}

void RunArchive(const Path& path)
{
    const std::string bytes = BytesOf(path);
    const std::vector<ArchiveEntry> entries = ReadArchive(bytes);
    if (entries.empty())
        throw std::runtime_error("the archive has no input");
    for (const ArchiveEntry& entry : entries)
        Run(entry.name, entry.bytes);
    std::fprintf(stderr, "%s: %zu inputs\n", path.filename().string().c_str(), entries.size());
}

void RunArgument(const Path& path)
{
    if (path.extension() == ".tar") {
        RunArchive(path);
        return;
    }
    for (const Path& input : InputsOf(path))
        Run(input.filename().string(), BytesOf(input));
}

} // namespace

int main(int argc, char** argv)
{
    std::atexit(FailUnlessFinished);
    try {
        std::vector<Path> paths;
        for (int i = 1; i < argc; ++i)
            paths.push_back(std::filesystem::absolute(argv[i])); // a target may change the folder
        for (const Path& path : paths)
            RunArgument(path);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    std::fprintf(stderr, "%zu inputs\n", runs);
    hasFinished = true;
    return runs == 0 ? 1 : 0;
}
