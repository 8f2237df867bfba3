#include "cli/files/Jobs.h"

#include "cli/files/CheckEnding.h"
#include "cli/files/OutputNames.h"
#include "cli/files/ProtectedInputs.h"
#include "cli/system/Native.h"

#include <cstdio>
#include <map>
#include <set>
#include <utility>

namespace plexorn {

namespace {

// What the bytes of a picture reach: a file's identity, or an empty text for a terminal, a pipe and the like.
std::string IdentityOfOutput(const std::string& output)
{
    return output == kStandardStream ? FileIdentity(stdout) : FileIdentity(PathFromArgument(output));
}

// Finds drawings whose pictures would replace each other, or something that is read.
class Clashes {
public:
    Clashes(const std::vector<Input>& inputs, const Options& options)
        : m_task(options.task), m_read(inputs, options)
    {
        for (const Input& input : inputs)
            if (input.name != kStandardStream)
                m_drawings.insert(FileKey(PathFromArgument(input.name)));
    }

    // Whether job repeats another one; a job that clashes gets a reason.
    bool IsRepeated(Job& job)
    {
        if (job.output == kStandardStream) {
            RefuseWhatIsRead(job);
            return false;
        }
        std::string input = FileKey(PathFromArgument(job.input)).append(1, '\0').append(job.layout);
        const std::string output = FileKey(PathFromArgument(job.output));
        auto [other, isNew] = m_pictures.try_emplace(output, job.input, input);
        if (!isNew && other->second.second == input)
            return true;
        if (!isNew)
            Refuse(job, std::string(job.output)
                            .append(" is the ")
                            .append(ProductOf(m_task).name)
                            .append(" of ")
                            .append(other->second.first)
                            .append(" already"));
        else if (output != FileKey(PathFromArgument(job.input)) && m_drawings.contains(output))
            Refuse(job, job.output + " is one of the drawings; give another place with -o");
        else
            RefuseWhatIsRead(job);
        return false;
    }

private:
    // A drawing's own file is refused when it is drawn.
    void RefuseWhatIsRead(Job& job) const
    {
        const std::string identity = IdentityOfOutput(job.output);
        const char* const what = m_read.WhatIs(identity);
        const bool isOwn = !identity.empty() && job.input != kStandardStream &&
                           job.output != kStandardStream &&
                           identity == FileIdentity(PathFromArgument(job.input));
        if (what != nullptr && !isOwn)
            Refuse(job, job.output + " is " + what + "; give another place with -o");
    }

    void Refuse(Job& job, const std::string& reason) const
    {
        job.reason = NotDone(m_task) + reason;
        job.code = ExitCode::Usage;
    }

    Task m_task;
    std::set<std::string> m_drawings;
    ProtectedInputs m_read;
    std::map<std::string, std::pair<std::string, std::string>> m_pictures;
};

} // namespace

std::vector<Job> PlanJobs(const Inputs& inputs, const Options& options)
{
    const bool isFolder = !options.output.empty() && IsFolderOfPictures(options.output);
    if (!isFolder)
        CheckEnding(options.output, options.task);
    if (inputs.areMany && !options.output.empty() && !isFolder)
        throw UsageError(std::string(options.output)
                             .append(options.layout == kAllLayouts
                                         ? ": several layouts need a folder for their "
                                         : ": several drawings need a folder for their ")
                             .append(ProductOf(options.task).name)
                             .append("s; a name with a slash at its end is one"));
    std::vector<Job> jobs;
    Clashes clashes(inputs.files, options);
    for (const Input& input : inputs.files) {
        Job job{input.name,  OutputFor(input, options, isFolder), isFolder, input.reason, ExitCode::File,
                input.layout};
        if (!job.reason.empty() || !clashes.IsRepeated(job))
            jobs.push_back(job);
    }
    return jobs;
}

} // namespace plexorn
