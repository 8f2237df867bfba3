#include "native.h"

#include "utf8.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

// Not every file system keeps owners or modes, and few users may give files away: the picture counts for
// more.
void CopyAccess(int descriptor, const struct stat& model)
{
    [[maybe_unused]] int isOwnerKept = fchown(descriptor, model.st_uid, model.st_gid);
    [[maybe_unused]] int isModeKept = fchmod(descriptor, model.st_mode & 0777);
}

} // namespace

fs::path PathFromArgument(const std::string& argument)
{
    return argument;
}

CModulePath::CModulePath(const fs::path& path)
{
    if (std::optional<std::wstring> name = WideFromUtf8(path.native())) {
        m_strName = *name;
        return;
    }
    // A name of bytes that are no UTF-8, from an older system or an archive, has no wide form; an open file
    // has a second name.
    m_nDescriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_nDescriptor >= 0)
        m_strName = L"/dev/fd/" + std::to_wstring(m_nDescriptor);
}

CModulePath::~CModulePath()
{
    if (m_nDescriptor >= 0)
        close(m_nDescriptor);
}

std::FILE* OpenForReading(const fs::path& path)
{
    return std::fopen(path.c_str(), "rb");
}

std::FILE* OpenForAppending(const fs::path& path)
{
    // Opened anew, a redirected output would have a second position, and one writer overwrite the other.
    return path == "/dev/stdout" ? fdopen(dup(STDOUT_FILENO), "ab") : std::fopen(path.c_str(), "ab");
}

std::FILE* CreateNew(const fs::path& path, const fs::path& model)
{
    struct stat old = {};
    bool hasModel = stat(model.c_str(), &old) == 0;
    // Nobody else gets at it before it has the mode that it shall have.
    int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, hasModel ? 0600 : 0666);
    if (descriptor >= 0 && hasModel)
        CopyAccess(descriptor, old);
    return descriptor < 0 ? nullptr : fdopen(descriptor, "wb");
}

bool SyncToDisk(std::FILE* file)
{
    return fsync(fileno(file)) == 0;
}

bool NamesOpenFile(const fs::path& path)
{
    std::error_code error;
    std::string folder = fs::weakly_canonical(path.parent_path(), error).native();
    return folder == "/dev" || folder == "/dev/fd" || folder.starts_with("/proc/");
}

unsigned long ProcessNumber()
{
    return static_cast<unsigned long>(getpid());
}

} // namespace plexorn
