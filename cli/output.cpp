#include "output.h"

#include "native.h"

#include <atomic>
#include <cerrno>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

constexpr int TemporaryNames = 100;

// How many links a system follows before it takes them for a circle.
constexpr int MostLinks = 40;

// Where the bytes end up when path may be a symbolic link, to a file that is not there yet too; empty when
// the links lead nowhere.
fs::path FollowLinks(fs::path path)
{
    std::error_code error;
    for (int i = 0; i <= MostLinks; ++i) {
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
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

COutputFile::COutputFile(const fs::path& target)
{
    std::error_code ignored;
    fs::file_type type = fs::status(target, ignored).type();
    errno = 0;
    if (target == StandardOutput) {
        m_pFile = OpenStandardOutput();
        if (!m_pFile)
            Fail(errno);
    } else if (type == fs::file_type::directory) {
        Fail(EISDIR);
    } else if (IsWrittenDirectly(target, type)) {
        m_target = target;
        m_pFile = OpenForAppending(target);
        if (!m_pFile)
            Fail(errno);
    } else {
        m_target = FollowLinks(target);
        if (m_target.empty())
            Fail(ELOOP);
        else
            OpenTemporary();
    }
}

COutputFile::~COutputFile()
{
    if (m_pFile)
        std::fclose(m_pFile);
    std::error_code ignored;
    if (!m_temporary.empty())
        fs::remove(m_temporary, ignored);
}

void COutputFile::OpenTemporary()
{
    // Not when the target is written directly: a pipe can keep its writer waiting.
    m_guard.emplace();
    // Threads that write into one folder do not try the same names.
    static std::atomic<unsigned> next = 0;
    std::string start = std::string(".plexorn-").append(std::to_string(ProcessNumber())).append("-");
    for (int i = 0; i < TemporaryNames; ++i) {
        std::string name = start + std::to_string(next++) + ".tmp";
        fs::path path = m_target.parent_path() / name;
        m_pFile = CreateNew(path, m_target);
        if (m_pFile) {
            m_temporary = path;
            return;
        }
        if (errno != EEXIST)
            break;
    }
    Fail(errno);
}

bool COutputFile::Fail(int error)
{
    if (m_strError.empty())
        m_strError = std::generic_category().message(error ? error : EIO);
    return false;
}

bool COutputFile::Write(const char* bytes, size_t size)
{
    errno = 0;
    if (!m_pFile || !m_strError.empty())
        return false;
    if (IsInterrupted())
        return Fail(EINTR);
    return std::fwrite(bytes, 1, size, m_pFile) == size || Fail(errno);
}

bool COutputFile::Close()
{
    errno = 0;
    bool isWritten = std::fflush(m_pFile) == 0 && (m_temporary.empty() || SyncToDisk(m_pFile));
    int error = errno;
    bool isClosed = std::fclose(m_pFile) == 0;
    m_pFile = nullptr;
    return (isWritten && isClosed) || Fail(isWritten ? errno : error);
}

bool COutputFile::Commit()
{
    if (!m_pFile || !m_strError.empty() || !Close())
        return false;
    if (m_temporary.empty())
        return true;
    if (IsInterrupted())
        return Fail(EINTR);
    std::error_code error;
    fs::rename(m_temporary, m_target, error);
    if (error) {
        m_strError = error.message();
        return false;
    }
    m_temporary.clear();
    return true;
}

} // namespace plexorn
