#include "cli/system/Native.h"

#include "base/Utf8.h"
#include "cli/system/ReasonOf.h"

#include <dirent.h>
#include <fcntl.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

// Not every file system keeps owners or modes, and few users may give files away: the picture counts for
// more.
void CopyAccess(int descriptor, const struct stat& model)
{
    [[maybe_unused]] const int isOwnerKept = fchown(descriptor, model.st_uid, model.st_gid);
    [[maybe_unused]] const int isModeKept = fchmod(descriptor, model.st_mode & 0777);
}

// A name with which an open file can be opened again; empty where the system has none. A root folder without
// devices may have /proc.
std::string NameOfOpen(int descriptor)
{
    for (const char* const folder : {"/dev/fd/", "/proc/self/fd/"}) {
        std::string name = folder + std::to_string(descriptor);
        if (access(name.c_str(), F_OK) == 0)
            return name;
    }
    return "";
}

std::string IdentityOf(const struct stat& status)
{
    return std::to_string(status.st_dev) + " " + std::to_string(status.st_ino);
}

// A file without a name, in memory where the system has such files.
std::FILE* OpenNameless()
{
#ifdef MFD_CLOEXEC
    const int descriptor = memfd_create("plexorn", MFD_CLOEXEC);
    if (descriptor >= 0) {
        if (std::FILE* const file = fdopen(descriptor, "w+b"))
            return file;
        close(descriptor);
    }
#endif
    return std::tmpfile();
}

} // namespace

fs::path PathFromArgument(const std::string& argument)
{
    return argument;
}

std::string ArgumentFromPath(const fs::path& path)
{
    return path.native();
}

std::string FileKey(const fs::path& path)
{
    std::error_code error;
    const fs::path canonical = fs::weakly_canonical(path, error);
    return (error ? path.lexically_normal() : canonical).native();
}

bool DoShellsExpandNames()
{
    return true;
}

void ReturnFreedMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

std::string FileIdentity(const fs::path& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? IdentityOf(status) : "";
}

std::string FileIdentity(std::FILE* stream)
{
    struct stat status = {};
    return fstat(fileno(stream), &status) == 0 && S_ISREG(status.st_mode) ? IdentityOf(status) : "";
}

bool EndsAsFolder(const std::string& argument)
{
    return argument.ends_with('/');
}

int ReadStandardInput(const ByteFunction& out)
{
    char block[1 << 16];
    for (;;) {
        const ssize_t size = read(STDIN_FILENO, block, sizeof block);
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            return size < 0 ? errno : 0;
        if (!out(block, static_cast<std::size_t>(size)))
            return errno;
    }
}

PrivateFile::PrivateFile(const std::function<int(const ByteFunction& out)>& fill) : m_file(OpenNameless())
{
    // The file has no name of its own, so it is gone with the process.
    int error = m_file ? 0 : errno;
    if (m_file)
        m_path = NameOfOpen(fileno(m_file));
    if (m_file && m_path.empty()) {
        m_error = "neither /dev/fd nor /proc/self/fd is there, through which it would be read";
        return;
    }
    if (m_file)
        error = fill([this](const char* bytes, std::size_t size) {
            return std::fwrite(bytes, 1, size, m_file) == size;
        });
    if (error == 0 && std::fflush(m_file) != 0)
        error = errno;
    if (error != 0)
        m_error = ReasonOf(error);
}

PrivateFile::~PrivateFile()
{
    if (m_file)
        std::fclose(m_file);
}

ModulePath::ModulePath(const fs::path& path)
{
    if (std::optional<std::wstring> name = WideFromUtf8(path.native())) {
        m_name = *name;
        return;
    }
    // A name with invalid bytes, from an older system or an archive, has no wide form; an open file has a
    // second name.
    m_descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_descriptor >= 0)
        m_name = WideFromUtf8(NameOfOpen(m_descriptor)).value_or(L"");
}

ModulePath::~ModulePath()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void FillStandardStreams()
{
    // Each for the wrong use: reading from a missing input and writing to a missing output fail, so the loss
    // is noticed.
    int descriptor = open("/dev/null", O_WRONLY);
    if (descriptor > STDIN_FILENO)
        close(descriptor);
    descriptor = open("/dev/null", O_RDONLY);
    while (descriptor >= 0 && descriptor < STDERR_FILENO)
        descriptor = open("/dev/null", O_RDONLY);
    if (descriptor > STDERR_FILENO)
        close(descriptor);
}

std::FILE* OpenForReading(const fs::path& path)
{
    return std::fopen(path.c_str(), "rb");
}

std::FILE* OpenForAppending(const fs::path& path)
{
    // Opened again, a redirected output would have a second position, and one writer overwrite the other.
    return path == "/dev/stdout" ? OpenStandardOutput() : std::fopen(path.c_str(), "ab");
}

std::FILE* OpenStandardOutput()
{
    const int descriptor = dup(STDOUT_FILENO);
    if (descriptor < 0)
        return nullptr;
    std::FILE* const file = fdopen(descriptor, "ab");
    if (!file) {
        close(descriptor);
        errno = EBADF; // it is open for reading only
    }
    return file;
}

bool IsTerminal(std::FILE* stream)
{
    const char* kind = std::getenv("TERM");
    return isatty(fileno(stream)) != 0 && kind && std::string_view(kind) != "dumb";
}

std::FILE* CreateNew(const fs::path& path, const fs::path& model)
{
    struct stat old = {};
    const bool hasModel = stat(model.c_str(), &old) == 0;
    if (!hasModel && errno != ENOENT)
        return nullptr; // others might get to read what they may not
    // Nobody else can open it before it has its final mode.
    const int descriptor =
        open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, hasModel ? 0600 : 0666);
    if (descriptor >= 0 && hasModel)
        CopyAccess(descriptor, old);
    // Not every file system has locks; then the number in the name alone says whether the process is there.
    if (descriptor >= 0)
        flock(descriptor, LOCK_EX | LOCK_NB);
    std::FILE* const file = descriptor < 0 ? nullptr : fdopen(descriptor, "wb");
    if (descriptor >= 0 && !file) {
        const int error = errno;
        unlink(path.c_str());
        close(descriptor);
        errno = error;
    }
    return file;
}

bool IsReadOnly(const fs::path& path)
{
    // Root may write to every file, but a read-only file is left alone for root, too.
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 &&
           ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 || access(path.c_str(), W_OK) != 0);
}

void MakeReplaceable(const fs::path&) {}

bool IsLinkOfOthers(const fs::path& path)
{
    const fs::path parent = path.has_parent_path() ? path.parent_path() : fs::path(".");
    struct stat link = {}, folder = {};
    if (lstat(path.c_str(), &link) != 0 || !S_ISLNK(link.st_mode) || stat(parent.c_str(), &folder) != 0)
        return false;
    const uid_t user = geteuid();
    const bool isFolderOfOthers = folder.st_uid != user && folder.st_uid != 0;
    const bool canOthersWrite = (folder.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    return isFolderOfOthers || (canOthersWrite && link.st_uid != user && link.st_uid != 0);
}

std::error_code ForEachName(const fs::path& folder, const std::function<void(const fs::path& name)>& take)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(folder.empty() ? "." : folder.c_str()),
                                                      closedir);
    errno = listing ? 0 : errno;
    while (const dirent* const entry = listing ? readdir(listing.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            take(name);
        errno = 0;
    }
    return {errno, std::generic_category()};
}

void RemoveUnlessOpen(const fs::path& path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        unlink(path.c_str());
    close(descriptor);
}

bool SyncToDisk(std::FILE* file)
{
    return fsync(fileno(file)) == 0;
}

bool NamesOpenFile(const fs::path& path)
{
    std::error_code error;
    const std::string folder = fs::weakly_canonical(path.parent_path(), error).native();
    return folder == "/dev" || folder == "/dev/fd" || folder.starts_with("/proc/");
}

void PutOutNow(std::string_view text)
{
    [[maybe_unused]] ssize_t size = write(STDERR_FILENO, text.data(), text.size());
}

void EndBySignal(int signal)
{
    // It waits until the handler returns, if it is called by one.
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// std::random_device would need a newer C library than the rest of the command does.
std::uint64_t RandomNumber()
{
    std::uint64_t number = 0;
    if (getentropy(&number, sizeof(number)) == 0)
        return number;
    // An old kernel, or one that forbids it: the time is hard enough to guess.
    return static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
}

unsigned long ProcessNumber()
{
    return static_cast<unsigned long>(getpid());
}

bool IsRunning(unsigned long process)
{
    return kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
}

} // namespace plexorn
