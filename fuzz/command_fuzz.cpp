// The command, in process: any arguments and any file end with one of its exit codes, and what is drawn is
// well-formed XML.
//
// It knows nothing of the command but RunCommand. It runs in a folder of its own, and no argument leads out
// of that.
//
// Input: a byte for the number of arguments, the arguments, the drawing "in.dxf". An argument is a byte for
// one of the words below, or 255, a length and a text.
#include "FuzzInput.h"
#include "WellFormed.h"

#include "cli/command.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr const char* kWords[] = {
    "in.dxf", "-o",        "out.svg",     "-q",      "--background",     "none", "#fff",       "--",
    "--help", "--version", "-oout.svg",   "--quiet", "--output=out.svg", "in",   "rgb(1,2,3)", "--backgroun",
    "-",      "",          "missing.dxf", "-h"};
constexpr int kLastExitCode = 15;

// The folder, empty at first, removed in the end; what the command reads from a stream is empty too.
class Folder {
public:
    Folder() : m_path(fs::temp_directory_path() / ("plexorn-fuzz-" + std::to_string(std::random_device()())))
    {
        fs::create_directory(m_path);
        fs::current_path(m_path);
        std::ofstream("stdin");
        FuzzRequire(std::freopen("stdin", "rb", stdin) != nullptr, "an empty file can be read");
    }
    ~Folder()
    {
        std::error_code ignored;
        fs::current_path(m_path.parent_path(), ignored);
        fs::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    // Removes what the last command may have written; all of it now and then.
    void Clear()
    {
        constexpr int kOften = 256;
        std::remove("out.svg");
        std::remove("in.svg");
        if (++m_runs % kOften != 0)
            return;
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(m_path))
            fs::remove_all(entry.path(), ignored);
    }

private:
    fs::path m_path;
    int m_runs = 0;
};

// A text that names nothing outside the folder.
std::string Tame(std::string_view text)
{
    std::string tame;
    for (const char character : text)
        if (character != '\0')
            tame += std::string_view("/\\:~").find(character) == std::string_view::npos ? character : '_';
    for (std::size_t at; (at = tame.find("..")) != std::string::npos;)
        tame[at] = '_';
    return tame;
}

std::vector<std::string> Arguments(FuzzInput& input)
{
    constexpr int kMost = 8;
    std::vector<std::string> arguments(input.Byte() % (kMost + 1));
    for (std::string& argument : arguments) {
        const std::uint8_t which = input.Byte();
        argument = which == 255 ? Tame(input.Text(input.Byte())) : kWords[which % std::size(kWords)];
    }
    return arguments;
}

void WriteFile(const char* name, std::string_view bytes)
{
    std::FILE* const file = std::fopen(name, "wb");
    FuzzRequire(file != nullptr, "a file can be written");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
}

void RequireDrawn(const char* name)
{
    std::ifstream file(name, std::ios::binary);
    const std::string svg{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (svg.starts_with("<?xml"))
        RequireWellFormed(svg);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Folder folder;
    FuzzInput input(data, size);
    std::vector<std::string> arguments = Arguments(input);
    folder.Clear();
    WriteFile("in.dxf", input.Rest());
    const int exitCode = plexorn::RunCommand(std::move(arguments));
    FuzzRequire(exitCode >= 0 && exitCode <= kLastExitCode, "the exit code is one of the command's");
    if (exitCode == 0) {
        RequireDrawn("out.svg");
        RequireDrawn("in.svg");
    }
    return 0;
}
