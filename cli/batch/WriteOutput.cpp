#include "cli/batch/WriteOutput.h"

#include "cli/system/Native.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace plexorn {

std::string WriteOutput(const Job& job, const Options& options,
                        const std::function<bool(OutputFile& file)>& write)
{
    const std::filesystem::path path = PathFromArgument(job.output);
    std::error_code error;
    if (job.makesFolders && path.has_parent_path())
        std::filesystem::create_directories(path.parent_path(), error);
    if (error)
        return error.message();
    OutputFile file(path, options.isForced);
    if (file.Error().empty() && write(file) && file.Commit())
        return "";
    return file.Error().empty() ? std::generic_category().message(ENOMEM) : file.Error();
}

} // namespace plexorn
