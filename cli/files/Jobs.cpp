#include "cli/files/Jobs.h"

#include "cli/system/Native.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <map>
#include <set>
#include <string_view>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

std::string PictureName(const std::string& drawing)
{
    if (drawing == kStandardStream)
        return "stdin.svg";
    constexpr std::size_t kEnding = 4; // ".dxf"
    return (EndsInDxf(drawing) ? drawing.substr(0, drawing.size() - kEnding) : drawing) + ".svg";
}

bool IsFolderForPictures(const std::string& output)
{
    std::error_code ignored;
    return EndsAsFolder(output) || fs::is_directory(PathFromArgument(output), ignored);
}

// The form that a picture's name promises and that this command does not write; empty when there is none.
std::string_view OtherForm(const std::string& output)
{
    constexpr std::string_view kForms[] = {"png",  "jpg",  "jpeg", "gif", "bmp", "tif", "tiff",
                                           "webp", "avif", "ico",  "pdf", "ps",  "eps", "emf",
                                           "wmf",  "svgz", "dwg",  "dwf", "stl"};
    const std::size_t dot = output.rfind('.');
    if (dot == std::string_view::npos)
        return "";
    std::string ending = output.substr(dot + 1);
    for (char& letter : ending)
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    const auto form = std::find(std::begin(kForms), std::end(kForms), ending);
    return form == std::end(kForms) ? std::string_view() : *form;
}

std::string OutputFor(const Input& input, const Options& options, bool isFolder)
{
    if (isFolder) {
        const fs::path picture = PathFromArgument(PictureName(input.name)).filename();
        return ArgumentFromPath(PathFromArgument(options.output) / input.below / picture);
    }
    if (!options.output.empty())
        return options.output;
    return input.name == kStandardStream ? kStandardStream : PictureName(input.name);
}

// What the bytes of a picture reach: a file's identity, or an empty text for a terminal, a pipe and the like.
std::string IdentityOfOutput(const std::string& output)
{
    return output == kStandardStream ? FileIdentity(stdout) : FileIdentity(PathFromArgument(output));
}

// Finds drawings whose pictures would replace each other, or something that is read.
class Clashes {
public:
    Clashes(const std::vector<Input>& inputs, const std::string& list)
    {
        for (const Input& input : inputs)
            if (input.name != kStandardStream)
                AddDrawing(PathFromArgument(input.name));
        if (!list.empty() && list != kStandardStream)
            AddRead(FileIdentity(PathFromArgument(list)), "the list of the drawings");
        AddRead(FileIdentity(stdin), "the file of the standard input");
    }

    // Whether job is another one once more; a job that clashes is given a reason.
    bool IsRepeated(Job& job)
    {
        if (job.output == kStandardStream) {
            RefuseWhatIsRead(job);
            return false;
        }
        std::string input = FileKey(PathFromArgument(job.input));
        const std::string output = FileKey(PathFromArgument(job.output));
        auto [other, isNew] = m_pictures.try_emplace(output, job.input, input);
        if (!isNew && other->second.second == input)
            return true;
        if (!isNew)
            Refuse(job, job.output + " is the picture of " + other->second.first + " already");
        else if (output != input && m_drawings.contains(output))
            Refuse(job, job.output + " is one of the drawings; give another place with -o");
        else
            RefuseWhatIsRead(job);
        return false;
    }

private:
    void AddDrawing(const std::filesystem::path& path)
    {
        m_drawings.insert(FileKey(path));
        AddRead(FileIdentity(path), "one of the drawings");
    }

    void AddRead(const std::string& identity, const char* what)
    {
        if (!identity.empty())
            m_read.try_emplace(identity, what);
    }

    // A drawing's own file is refused when it is drawn.
    void RefuseWhatIsRead(Job& job) const
    {
        const std::string identity = IdentityOfOutput(job.output);
        const auto read = m_read.find(identity);
        const bool isOwn = !identity.empty() && job.input != kStandardStream &&
                           job.output != kStandardStream &&
                           identity == FileIdentity(PathFromArgument(job.input));
        if (read != m_read.end() && !isOwn)
            Refuse(job, job.output + " is " + read->second + "; give another place with -o");
    }

    static void Refuse(Job& job, const std::string& reason)
    {
        job.reason = "is not drawn: " + reason;
        job.code = ExitCode::Usage;
    }

    std::set<std::string> m_drawings;
    std::map<std::string, const char*> m_read; // by identity
    std::map<std::string, std::pair<std::string, std::string>> m_pictures;
};

} // namespace

std::vector<Job> PlanJobs(const Inputs& inputs, const Options& options)
{
    const bool isFolder = !options.output.empty() && IsFolderForPictures(options.output);
    if (const std::string_view form = isFolder ? "" : OtherForm(options.output); !form.empty())
        throw UsageError(options.output + ": a picture is written as SVG, not as " + std::string(form) +
                         "; give a name that ends in .svg, and convert that file");
    // A shell that puts names in place of a pattern (-o *.dxf) makes a drawing the picture of another.
    if (!isFolder && EndsInDxf(options.output))
        throw UsageError(options.output + ": a picture's name cannot end in .dxf, as drawings' names do");
    if (inputs.areMany && !options.output.empty() && !isFolder)
        throw UsageError(options.output +
                         ": several drawings need a folder for their pictures; a name with a "
                         "slash at its end is one");
    std::vector<Job> jobs;
    Clashes clashes(inputs.files, options.list);
    for (const Input& input : inputs.files) {
        Job job{input.name, OutputFor(input, options, isFolder), isFolder, input.reason};
        if (!job.reason.empty() || !clashes.IsRepeated(job))
            jobs.push_back(job);
    }
    return jobs;
}

} // namespace plexorn
