#include "cli/files/OutputNames.h"

#include "cli/files/CheckEnding.h"
#include "cli/system/Native.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

// What no system takes in a file's name is replaced.
std::string PartOfFileName(std::string text)
{
    constexpr std::string_view kTaken = "/\\:*?\"<>|";
    std::replace_if(
        text.begin(), text.end(),
        [&](char c) { return (c >= 0 && c < ' ') || kTaken.find(c) != std::string_view::npos; }, '_');
    return text;
}

std::string OutputName(const Input& input, std::string_view ending)
{
    if (input.name == kStandardStream)
        return std::string("stdin").append(ending);
    constexpr std::size_t kEnding = 4; // ".dxf"
    std::string name = input.name;
    if (EndsInDxf(name))
        name.resize(name.size() - kEnding);
    if (!input.layout.empty())
        name.append("-").append(PartOfFileName(input.layout));
    return name.append(ending);
}

} // namespace

Product ProductOf(Task task)
{
    return task == Task::Prepare ? Product{".dxf", "prepared drawing"} : Product{".svg", "picture"};
}

bool IsFolderOfPictures(const std::string& output)
{
    std::error_code ignored;
    return EndsAsFolder(output) || fs::is_directory(PathFromArgument(output), ignored);
}

std::string OutputFor(const Input& input, const Options& options, bool isFolder)
{
    const std::string_view ending = ProductOf(options.task).ending;
    if (isFolder) {
        const fs::path picture = PathFromArgument(OutputName(input, ending)).filename();
        return ArgumentFromPath(PathFromArgument(options.output) / input.below / picture);
    }
    if (!options.output.empty())
        return options.output;
    return input.name == kStandardStream ? kStandardStream : OutputName(input, ending);
}

} // namespace plexorn
