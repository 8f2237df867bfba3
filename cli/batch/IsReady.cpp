#include "cli/batch/IsReady.h"

#include "cli/files/OlderPicture.h"
#include "cli/system/Native.h"

#include <filesystem>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

bool IsSameFile(const fs::path& a, const fs::path& b)
{
    std::error_code ignored;
    return fs::equivalent(a, b, ignored);
}

} // namespace

bool IsReady(const Source& source, const Job& job, const Options& options, Report& report)
{
    if (!source.Reason().empty()) {
        report.Failed(source.ShownName(), source.Reason(), source.Code());
        return false;
    }
    if (job.output != kStandardStream && IsSameFile(source.Path(), PathFromArgument(job.output))) {
        report.Failed(job.output, "is the drawing itself; give another name with -o", ExitCode::Usage);
        return false;
    }
    const std::string whyLeftAlone = WhyLeftAlone(source.Path(), job.output, options);
    if (!whyLeftAlone.empty())
        report.Skipped(job.output, whyLeftAlone);
    return whyLeftAlone.empty();
}

} // namespace plexorn
