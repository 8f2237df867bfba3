#include "cli/files/Inputs.h"

#include "base/Letters.h"
#include "cli/files/Wildcards.h"
#include "cli/system/Native.h"
#include "cli/system/ReasonOf.h"
#include "input/CDxfOpenFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>
#include <utility>

namespace plexorn {

namespace fs = std::filesystem;

bool EndsInDxf(std::string_view path)
{
    constexpr std::string_view kExtension = ".dxf";
    return path.size() > kExtension.size() && EndsInLetters(path, kExtension);
}

std::string ShownName(const std::string& input)
{
    return input == kStandardStream ? "<stdin>" : input;
}

namespace {

bool IsFolder(const std::string& name)
{
    std::error_code ignored;
    return name != kStandardStream && fs::is_directory(PathFromArgument(name), ignored);
}

// Adds the drawings in a folder to found, and what it holds of folders, but for links, to folders; what went
// wrong. A folder that this user may not look into counts as an empty one.
std::error_code ListFolder(const fs::path& folder, std::vector<fs::path>& found,
                           std::vector<fs::path>& folders)
{
    const std::error_code error = ForEachName(folder, [&](const fs::path& name) {
        fs::path path = folder / name;
        std::error_code ignored;
        if (fs::symlink_status(path, ignored).type() == fs::file_type::directory)
            folders.push_back(std::move(path));
        else if (EndsInDxf(ArgumentFromPath(name)) && !fs::is_directory(path, ignored))
            found.push_back(std::move(path));
    });
    return error == std::errc::permission_denied ? std::error_code() : error;
}

// Adds the drawings in a folder, and, if wanted, those in the folders within it, to found; why that failed.
std::string FindDrawings(const fs::path& folder, bool isRecursive, std::vector<fs::path>& found)
{
    std::vector<fs::path> folders = {folder};
    std::error_code error;
    do {
        const fs::path next = std::move(folders.back());
        folders.pop_back();
        error = ListFolder(next, found, folders);
    } while (isRecursive && !error && !folders.empty());
    std::sort(found.begin(), found.end());
    return error ? "cannot be read: " + error.message() : "";
}

void AddFolder(const std::string& name, bool isRecursive, std::vector<Input>& files)
{
    const fs::path folder = PathFromArgument(name);
    std::vector<fs::path> found;
    std::string reason = FindDrawings(folder, isRecursive, found);
    if (reason.empty() && found.empty())
        reason =
            isRecursive ? "holds no .dxf file" : "holds no .dxf file; --recursive looks into its folders too";
    for (const fs::path& path : found)
        files.push_back({ArgumentFromPath(path), path.lexically_relative(folder).parent_path()});
    if (!reason.empty())
        files.push_back({name, {}, reason});
}

// Cuts a list into its names. Throws UsageError when it has bytes that no name can have.
class ListReader {
public:
    ListReader(std::vector<std::string>& names, bool isNullSeparated)
        : m_names(names), m_separator(isNullSeparated ? '\0' : '\n')
    {
    }

    bool Take(const char* bytes, std::size_t size)
    {
        for (const char* at = bytes; at != bytes + size; ++at) {
            if (*at == m_separator)
                EndName();
            else if (*at == '\0')
                throw UsageError("the list has NUL bytes; give --null");
            else
                m_name.push_back(*at);
        }
        return true;
    }

    void EndName()
    {
        if (m_separator == '\n' && m_name.ends_with('\r'))
            m_name.pop_back();
        if (!m_name.empty())
            m_names.push_back(m_name);
        m_name.clear();
    }

private:
    std::vector<std::string>& m_names;
    char m_separator;
    std::string m_name;
};

int ReadFile(const std::string& name, ListReader& reader)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(OpenForReading(PathFromArgument(name)),
                                                               std::fclose);
    if (!file)
        return errno;
    CDxfOpenFile source(file.get());
    char block[1 << 14];
    std::ptrdiff_t size = 0;
    while ((size = source.Read(block, sizeof block)) > 0)
        reader.Take(block, static_cast<std::size_t>(size));
    return source.Error();
}

std::vector<std::string> ReadList(const Options& options)
{
    std::vector<std::string> names;
    ListReader reader(names, options.isNullSeparated);
    const bool isStandard = options.list == kStandardStream;
    const int error = isStandard
                          ? ReadStandardInput([&](auto bytes, auto size) { return reader.Take(bytes, size); })
                          : ReadFile(options.list, reader);
    if (error != 0)
        throw UsageError(options.list + ": cannot be read: " + ReasonOf(error));
    reader.EndName();
    return names;
}

// The names on the command line; areMany becomes true when one of them is a pattern.
std::vector<std::string> GivenNames(const Options& options, bool& areMany)
{
    if (DoShellsExpandNames())
        return options.inputs;
    std::vector<std::string> names;
    for (const std::string& input : options.inputs) {
        const std::vector<std::string> matches = ExpandWildcards(input);
        areMany = areMany || matches.front() != input;
        names.insert(names.end(), matches.begin(), matches.end());
    }
    return names;
}

} // namespace

Inputs FindInputs(const Options& options)
{
    Inputs inputs;
    std::vector<std::string> names = GivenNames(options, inputs.areMany);
    inputs.areMany = inputs.areMany || names.size() > 1 || !options.list.empty();
    if (!options.list.empty()) {
        std::vector<std::string> listed = ReadList(options);
        names.insert(names.end(), listed.begin(), listed.end());
        if (NamesStandardInputTwice(names, options.list))
            throw UsageError("the standard input can be read once only");
    }
    for (const std::string& name : names) {
        if (IsFolder(name)) {
            inputs.areMany = true;
            AddFolder(name, options.isRecursive, inputs.files);
        } else {
            inputs.files.push_back({name, {}});
        }
    }
    return inputs;
}

} // namespace plexorn
