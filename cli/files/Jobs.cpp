#include "cli/files/Jobs.h"

#include "cli/system/Native.h"

#include <map>
#include <set>

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

// Finds drawings whose pictures would replace each other, or a drawing.
class Clashes {
public:
    explicit Clashes(const std::vector<Input>& inputs)
    {
        for (const Input& input : inputs)
            if (input.name != kStandardStream)
                m_drawings.insert(FileKey(PathFromArgument(input.name)));
    }

    // Whether job is another one once more; a job that clashes is given a reason.
    bool IsRepeated(Job& job)
    {
        if (job.output == kStandardStream)
            return false;
        std::string input = FileKey(PathFromArgument(job.input));
        const std::string output = FileKey(PathFromArgument(job.output));
        auto [other, isNew] = m_pictures.try_emplace(output, job.input, input);
        if (!isNew && other->second.second == input)
            return true;
        if (!isNew)
            Refuse(job, job.output + " is the picture of " + other->second.first + " already");
        else if (output != input && m_drawings.contains(output))
            Refuse(job, job.output + " is one of the drawings; give another place with -o");
        return false;
    }

private:
    static void Refuse(Job& job, const std::string& reason)
    {
        job.reason = "is not drawn: " + reason;
        job.code = ExitCode::Usage;
    }

    std::set<std::string> m_drawings;
    std::map<std::string, std::pair<std::string, std::string>> m_pictures;
};

} // namespace

std::vector<Job> PlanJobs(const Inputs& inputs, const Options& options)
{
    const bool isFolder = !options.output.empty() && IsFolderForPictures(options.output);
    // A shell that puts names in place of a pattern (-o *.dxf) makes a drawing the picture of another.
    if (!isFolder && EndsInDxf(options.output))
        throw UsageError(options.output + ": a picture's name cannot end in .dxf, as drawings' names do");
    if (inputs.areMany && !options.output.empty() && !isFolder)
        throw UsageError(options.output +
                         ": several drawings need a folder for their pictures; a name with a "
                         "slash at its end is one");
    std::vector<Job> jobs;
    Clashes clashes(inputs.files);
    for (const Input& input : inputs.files) {
        Job job{input.name, OutputFor(input, options, isFolder), isFolder, input.reason};
        if (!job.reason.empty() || !clashes.IsRepeated(job))
            jobs.push_back(job);
    }
    return jobs;
}

} // namespace plexorn
