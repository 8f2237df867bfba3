// The command, in process: any arguments and any file end with one of its exit codes, what is drawn is a
// picture, and where drawing is said to have gone well there is one.
//
// It knows nothing of the command but RunCommand and its exit codes. It runs in a folder of its own, and no
// argument, and no name in a list of drawings, leads out of that.
//
// Input: a byte for the number of arguments, the arguments, the drawing "in.dxf". An argument is a byte for
// one of the words below, or 255, a length and a text.
#include "FuzzInput.h"
#include "XmlCheck.h"

#include "cli/RunCommand.h"
#include "cli/options/ExitCode.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr const char* kWords[] = {"in.dxf",
                                  "-o",
                                  "out.svg",
                                  "-q",
                                  "--background",
                                  "none",
                                  "#fff",
                                  "--",
                                  "--help",
                                  "--version",
                                  "-oout.svg",
                                  "--quiet",
                                  "--output=out.svg",
                                  "in",
                                  "rgb(1,2,3)",
                                  "--backgroun",
                                  "-",
                                  "",
                                  "missing.dxf",
                                  "-h",
                                  "info",
                                  "--json",
                                  "--texts",
                                  "--units",
                                  "mm",
                                  "guess",
                                  "--units=in",
                                  "--units=none",
                                  "--paper",
                                  "--hairline",
                                  "--messages",
                                  "json",
                                  "--messages=json",
                                  "--max-messages",
                                  "3",
                                  "--max-messages=0",
                                  "--strict",
                                  "--background=red",
                                  "--background=url(1)",
                                  "-r",
                                  "--recursive",
                                  "-j",
                                  "-j2",
                                  "--jobs=3",
                                  "-0",
                                  "--null",
                                  "--files-from",
                                  "--files-from=in.dxf",
                                  "--files-from=-",
                                  ".",
                                  "pictures/",
                                  "-opictures/",
                                  "-o-"};
constexpr int kLastExitCode = static_cast<int>(plexorn::ExitCode::Blank);
constexpr const char* kDrawing = "in.dxf";

// The folder, empty at first, removed in the end; what the command reads from a stream is empty too.
class Folder {
public:
    Folder() : m_path(fs::temp_directory_path() / ("plexorn-fuzz-" + std::to_string(std::random_device()())))
    {
        fs::create_directory(m_path);
        fs::current_path(m_path);
        std::ofstream("stdin");
        FuzzRequire(std::freopen("stdin", "rb", stdin) != nullptr, "an empty file can be read");
        std::remove("stdin"); // where a system keeps open files, it stays
    }
    ~Folder()
    {
        std::error_code ignored;
        fs::current_path(m_path.parent_path(), ignored);
        fs::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    // Removes what the last command may have written: no run is to depend on those before.
    void Clear() const
    {
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(m_path))
            fs::remove_all(entry.path(), ignored);
    }

    // Holds every file that the command left against what a picture is, and counts them.
    std::size_t RequirePictures() const
    {
        std::size_t pictures = 0;
        for (const auto& entry : fs::recursive_directory_iterator(m_path)) {
            const bool isGiven = entry.path() == m_path / kDrawing || IsInput(entry);
            if (isGiven || !entry.is_regular_file())
                continue;
            std::ifstream file(entry.path(), std::ios::binary);
            RequirePicture({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()},
                           Backdrop::Checked);
            ++pictures;
        }
        return pictures;
    }

private:
    bool IsInput(const fs::directory_entry& entry) const
    {
        return entry.path() == m_path / "stdin" && entry.file_size() == 0;
    }

    fs::path m_path;
};

// A text whose lines name nothing outside the folder.
std::string Tame(std::string_view text)
{
    std::string tame;
    for (const char character : text)
        tame += std::string_view("/\\:~").find(character) == std::string_view::npos ? character : '_';
    for (std::size_t at; (at = tame.find("..")) != std::string::npos;)
        tame[at] = '_';
    return tame;
}

using ArgumentList = std::vector<std::string>;

ArgumentList Arguments(FuzzInput& input)
{
    constexpr int kMost = 8;
    ArgumentList arguments(input.Byte() % (kMost + 1));
    for (std::string& argument : arguments) {
        const std::uint8_t which = input.Byte();
        argument = which == 255 ? Tame(input.Text(input.Byte())) : kWords[which % std::size(kWords)];
        std::erase(argument, '\0');
    }
    return arguments;
}

// Whether the drawing may be read as a list of names, which may be any.
bool NamesList(const ArgumentList& arguments)
{
    return std::ranges::any_of(
        arguments, [](std::string_view argument) { return argument.find("files-from") != argument.npos; });
}

void WriteFile(const char* name, std::string_view bytes)
{
    std::FILE* const file = std::fopen(name, "wb");
    FuzzRequire(file != nullptr, "a file can be written");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
}

bool IsHelp(std::string_view argument)
{
    const bool isShort = argument.starts_with('-') && !argument.starts_with("--");
    return argument == "--help" || argument == "--version" ||
           (isShort && argument.find('h') != argument.npos);
}

// Whether a command that went well has left a picture in the folder. A list may be empty, and what ends in a
// dash may send the picture to the standard output.
bool LeavesPicture(const ArgumentList& arguments)
{
    const auto isOther = [](std::string_view argument) {
        return IsHelp(argument) || (argument.ends_with('-') && argument != "--");
    };
    return !arguments.empty() && arguments[0] != "info" && !NamesList(arguments) &&
           std::ranges::none_of(arguments, isOther);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Folder folder;
    FuzzInput input(data, size);
    const ArgumentList arguments = Arguments(input);
    folder.Clear();
    const std::string_view drawing = input.Rest();
    WriteFile(kDrawing, NamesList(arguments) ? Tame(drawing) : std::string(drawing));
    const int exitCode = plexorn::RunCommand([&] { return arguments; });
    FuzzRequire(exitCode >= 0 && exitCode <= kLastExitCode, "the exit code is one of the command's");
    const std::size_t pictures = folder.RequirePictures();
    const auto ended = static_cast<plexorn::ExitCode>(exitCode);
    const bool isDone = ended == plexorn::ExitCode::Drawn || ended == plexorn::ExitCode::Incomplete ||
                        ended == plexorn::ExitCode::Blank;
    FuzzRequire(!isDone || pictures > 0 || !LeavesPicture(arguments), "what is said to be drawn is there");
    return 0;
}
