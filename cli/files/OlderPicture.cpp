#include "cli/files/OlderPicture.h"

#include "cli/files/Marks.h"
#include "cli/files/Source.h"
#include "cli/system/Native.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

// The mark of a picture is in the root's tag, which follows a declaration.
constexpr std::size_t kMarkedSize = 1024;

// Devices, pipes and what a process has open are written to, not replaced.
bool IsReplaceable(const fs::path& path)
{
    std::error_code ignored;
    return path != kStandardStream && fs::is_regular_file(path, ignored) && !NamesOpenFile(path);
}

bool IsNewer(const fs::path& drawing, const fs::path& picture)
{
    std::error_code drawingError, pictureError;
    const fs::file_time_type drawn = fs::last_write_time(picture, pictureError);
    return fs::last_write_time(drawing, drawingError) > drawn || drawingError || pictureError;
}

} // namespace

std::string WhyLeftAlone(const fs::path& drawing, const std::string& output, const Options& options)
{
    const fs::path picture = PathFromArgument(output);
    if (!(options.keepsPictures || options.drawsNewerOnly) || !IsReplaceable(picture))
        return "";
    if (options.keepsPictures)
        return "exists";
    return IsNewer(drawing, picture) ? "" : "is not older";
}

bool HoldsOtherFile(const std::string& output)
{
    const fs::path picture = PathFromArgument(output);
    if (!IsReplaceable(picture))
        return false;
    const FilePointer file(OpenForReading(picture), std::fclose);
    if (!file)
        return true;
    std::string head(kMarkedSize, '\0');
    head.resize(std::fread(head.data(), 1, head.size(), file.get()));
    if (std::ferror(file.get()) != 0)
        return true;
    const std::string mark = std::string(" data-generator=\"") + kGenerator + "\"";
    if (head.empty() || head.starts_with(kDrawingMark))
        return false;
    // Texts of other pictures, and of other files, may have the mark, too.
    const std::size_t root = head.find("<svg");
    return root == std::string::npos ||
           head.substr(root, head.find('>', root) - root).find(mark) == std::string::npos;
}

} // namespace plexorn
