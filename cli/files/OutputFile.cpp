#include "cli/files/OutputFile.h"

#include "cli/files/Leftovers.h"
#include "cli/system/Native.h"
#include "cli/system/ReasonOf.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

// How many links a system follows before it takes them for a circle.
constexpr int kMostLinks = 40;

// Where the bytes end up when path may be a symbolic link, to a file that is not there yet too; empty when
// the links lead nowhere, or past one of others when those are not followed.
fs::path FollowLinks(fs::path path, bool followsAll, bool& isOfOthers)
{
    std::error_code error;
    isOfOthers = false;
    for (int i = 0; i <= kMostLinks; ++i) {
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        isOfOthers = !followsAll && IsLinkOfOthers(path);
        if (isOfOthers)
            break;
        path = path.parent_path() / fs::read_symlink(path, error);
        if (error)
            break;
    }
    return {};
}

// Devices and pipes cannot be replaced by a file, and what a process has open must not be.
bool IsWrittenDirectly(const fs::path& path, fs::file_type type)
{
    return type == fs::file_type::character || type == fs::file_type::fifo || type == fs::file_type::socket ||
           type == fs::file_type::block || NamesOpenFile(path);
}

} // namespace

OutputFile::OutputFile(const fs::path& target, bool isForced)
{
    std::error_code ignored;
    const fs::file_type type = fs::status(target, ignored).type();
    errno = 0;
    if (target == kStandardOutput) {
        m_file = OpenStandardOutput();
        if (!m_file)
            Fail(errno);
    } else if (type == fs::file_type::directory) {
        Fail(EISDIR);
    } else if (IsWrittenDirectly(target, type)) {
        m_target = target;
        m_file = OpenForAppending(target);
        if (!m_file)
            Fail(errno);
    } else {
        OpenTarget(target, isForced);
    }
}

void OutputFile::OpenTarget(const fs::path& target, bool isForced)
{
    bool isOfOthers = false;
    m_target = FollowLinks(target, isForced, isOfOthers);
    if (isOfOthers)
        Refuse("it is a link in a folder of others; --force follows it");
    else if (m_target.empty())
        Fail(ELOOP);
    else if (!isForced && IsReadOnly(m_target))
        Refuse("it is read-only; --force replaces it");
    else
        OpenTemporary();
}

OutputFile::~OutputFile()
{
    if (m_file)
        std::fclose(m_file);
    std::error_code ignored;
    if (!m_temporary.empty())
        fs::remove(m_temporary, ignored);
}

void OutputFile::OpenTemporary()
{
    // Not when the target is written directly: a pipe can keep its writer waiting.
    m_guard.emplace();
    RemoveLeftovers(m_target.parent_path());
    fs::path path = m_target.parent_path() / TemporaryName();
    errno = 0;
    m_file = CreateNew(path, m_target);
    if (m_file)
        m_temporary = std::move(path); // a copy might lack memory, and the file would stay
    else
        Fail(errno);
}

bool OutputFile::Refuse(const char* reason)
{
    m_error = reason;
    return false;
}

bool OutputFile::Fail(int error)
{
    if (m_error.empty())
        m_error = ReasonOf(error ? error : EIO);
    return false;
}

bool OutputFile::Write(const char* bytes, std::size_t size)
{
    errno = 0;
    if (!m_file || !m_error.empty())
        return false;
    if (IsInterrupted())
        return Fail(EINTR);
    return std::fwrite(bytes, 1, size, m_file) == size || Fail(errno);
}

bool OutputFile::Close()
{
    errno = 0;
    const bool isWritten = std::fflush(m_file) == 0 && (m_temporary.empty() || SyncToDisk(m_file));
    const int error = errno;
    const bool isClosed = std::fclose(m_file) == 0;
    m_file = nullptr;
    return (isWritten && isClosed) || Fail(isWritten ? errno : error);
}

bool OutputFile::Commit()
{
    if (!m_file || !m_error.empty() || !Close())
        return false;
    if (m_temporary.empty())
        return true;
    if (IsInterrupted())
        return Fail(EINTR);
    // Only a target that the output was forced on can be read-only here.
    MakeReplaceable(m_target);
    std::error_code error;
    fs::rename(m_temporary, m_target, error);
    if (error) {
        m_error = error.message();
        return false;
    }
    m_temporary.clear();
    return true;
}

} // namespace plexorn
