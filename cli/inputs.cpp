#include "inputs.h"

#include "native.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

bool EndsInDxf(std::string_view path)
{
    constexpr std::string_view extension = ".dxf";
    auto sameLetter = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; };
    return path.size() > extension.size() &&
           std::equal(extension.begin(), extension.end(), path.end() - extension.size(),
                      [&](char b, char a) { return sameLetter(a, b); });
}

bool NamesStandardInputTwice(const std::vector<std::string>& names, const std::string& list)
{
    return std::count(names.begin(), names.end(), StandardStream) + (list == StandardStream) > 1;
}

namespace {

bool IsFolder(const std::string& name)
{
    std::error_code ignored;
    return name != StandardStream && fs::is_directory(PathFromArgument(name), ignored);
}

template <class Iterator>
std::string ListFolder(const fs::path& folder, std::vector<fs::path>& found)
{
    std::error_code error;
    Iterator entries(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && entries != Iterator(); entries.increment(error)) {
        std::error_code ignored;
        bool isFile = !entries->is_directory(ignored);
        if (isFile && EndsInDxf(ArgumentFromPath(entries->path().filename())))
            found.push_back(entries->path());
    }
    std::sort(found.begin(), found.end());
    return error ? "cannot be read: " + error.message() : "";
}

void AddFolder(const std::string& name, bool isRecursive, std::vector<Input>& files)
{
    fs::path folder = PathFromArgument(name);
    std::vector<fs::path> found;
    std::string reason = isRecursive ? ListFolder<fs::recursive_directory_iterator>(folder, found)
                                     : ListFolder<fs::directory_iterator>(folder, found);
    if (reason.empty() && found.empty())
        reason =
            isRecursive ? "holds no .dxf file" : "holds no .dxf file; --recursive looks into its folders too";
    for (const fs::path& path : found)
        files.push_back({ArgumentFromPath(path), path.lexically_relative(folder).parent_path()});
    if (!reason.empty())
        files.push_back({name, {}, reason});
}

// Cuts a list into its names. Throws CUsageError when it has bytes that no name can have.
class CListReader {
public:
    CListReader(std::vector<std::string>& names, bool isNullSeparated)
        : m_names(names), m_separator(isNullSeparated ? '\0' : '\n')
    {
    }

    bool Take(const char* bytes, size_t size)
    {
        for (const char* at = bytes; at != bytes + size; ++at) {
            if (*at == m_separator)
                EndName();
            else if (*at == '\0')
                throw CUsageError("the list has NUL bytes; give --null");
            else
                m_strName.push_back(*at);
        }
        return true;
    }

    void EndName()
    {
        if (m_separator == '\n' && m_strName.ends_with('\r'))
            m_strName.pop_back();
        if (!m_strName.empty())
            m_names.push_back(m_strName);
        m_strName.clear();
    }

private:
    std::vector<std::string>& m_names;
    char m_separator;
    std::string m_strName;
};

int ReadFile(const std::string& name, CListReader& reader)
{
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(OpenForReading(PathFromArgument(name)), std::fclose);
    if (!file)
        return errno;
    char block[1 << 14];
    while (size_t size = std::fread(block, 1, sizeof block, file.get()))
        reader.Take(block, size);
    return std::ferror(file.get()) ? errno : 0;
}

std::vector<std::string> ReadList(const Options& options)
{
    std::vector<std::string> names;
    CListReader reader(names, options.isNullSeparated);
    bool isStandard = options.list == StandardStream;
    int error = isStandard
                    ? ReadStandardInput([&](auto bytes, auto size) { return reader.Take(bytes, size); })
                    : ReadFile(options.list, reader);
    if (error != 0)
        throw CUsageError(options.list + ": cannot be read: " + std::generic_category().message(error));
    reader.EndName();
    return names;
}

} // namespace

Inputs FindInputs(const Options& options)
{
    std::vector<std::string> names = options.inputs;
    Inputs inputs;
    inputs.areMany = names.size() > 1 || !options.list.empty();
    if (!options.list.empty()) {
        std::vector<std::string> listed = ReadList(options);
        names.insert(names.end(), listed.begin(), listed.end());
        if (NamesStandardInputTwice(names, options.list))
            throw CUsageError("the standard input can be read once only");
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
