#include "cli/system/Native.h"

#include "base/Utf8.h"
#include "cli/system/ReasonOf.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <cerrno>
#include <random>

#include <windows.h>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

// Whether name comes through the ANSI code page unchanged.
bool SurvivesCodePage(const std::wstring& name)
{
    // A process whose code page is UTF-8 keeps everything; asking as below is an error there.
    if (GetACP() == CP_UTF8)
        return true;
    BOOL usedDefault = FALSE;
    int size = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, name.c_str(), -1, nullptr, 0, nullptr,
                                   &usedDefault);
    return size > 0 && !usedDefault;
}

std::wstring ShortName(const std::wstring& name)
{
    DWORD size = GetShortPathNameW(name.c_str(), nullptr, 0);
    std::wstring shortName(size, L'\0');
    shortName.resize(GetShortPathNameW(name.c_str(), shortName.data(), size));
    return shortName;
}

// A new file with an ASCII name in the folder for temporary files; empty when it cannot be made.
std::wstring TemporaryFile()
{
    wchar_t folder[MAX_PATH + 1];
    wchar_t name[MAX_PATH + 1];
    if (GetTempPathW(MAX_PATH + 1, folder) == 0 || GetTempFileNameW(folder, L"dxf", 0, name) == 0)
        return {};
    return name;
}

std::FILE* Open(const fs::path& path, int flags, const wchar_t* mode)
{
    int descriptor = -1;
    errno_t error = _wsopen_s(&descriptor, path.c_str(), flags | _O_BINARY | _O_NOINHERIT, _SH_DENYNO,
                              _S_IREAD | _S_IWRITE);
    if (error != 0) {
        errno = error;
        return nullptr;
    }
    std::FILE* const file = _wfdopen(descriptor, mode);
    if (!file) {
        error = errno;
        _close(descriptor);
        if (flags & _O_EXCL)
            _wremove(path.c_str());
        errno = error;
    }
    return file;
}

std::string IdentityOf(HANDLE file)
{
    BY_HANDLE_FILE_INFORMATION information = {};
    if (GetFileType(file) != FILE_TYPE_DISK || !GetFileInformationByHandle(file, &information))
        return "";
    return std::to_string(information.dwVolumeSerialNumber) + " " +
           std::to_string(information.nFileIndexHigh) + " " + std::to_string(information.nFileIndexLow);
}

} // namespace

fs::path PathFromArgument(const std::string& argument)
{
    return WideFromUtf8(argument).value_or(std::wstring());
}

std::string ArgumentFromPath(const fs::path& path)
{
    return Utf8FromWide(path.generic_wstring());
}

std::string FileKey(const fs::path& path)
{
    std::error_code error;
    fs::path canonical = fs::weakly_canonical(path, error);
    std::wstring name = (error ? path.lexically_normal() : canonical).generic_wstring();
    CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
    return Utf8FromWide(name);
}

bool DoShellsExpandNames()
{
    return false;
}

// The system's own heap does so.
void ReturnFreedMemory() {}

std::string FileIdentity(const fs::path& path)
{
    // Without access, a file can be opened even if others have it open; with the flag, folders too.
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE file =
        CreateFileW(path.c_str(), 0, kShared, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return "";
    std::string identity = IdentityOf(file);
    CloseHandle(file);
    return identity;
}

std::string FileIdentity(std::FILE* stream)
{
    return IdentityOf(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))));
}

bool EndsAsFolder(const std::string& argument)
{
    return argument.ends_with('/') || argument.ends_with('\\');
}

int ReadStandardInput(const ByteFunction& out)
{
    _setmode(_fileno(stdin), _O_BINARY);
    static char block[1 << 16];
    for (;;) {
        errno = 0;
        std::size_t size = std::fread(block, 1, sizeof block, stdin);
        if (size == 0 && std::ferror(stdin))
            return errno != 0 ? errno : EIO;
        if (size == 0)
            return 0;
        if (!out(block, size))
            return errno;
    }
}

// The file has a name, which an interruption must not leave: it waits until the file is removed.
PrivateFile::PrivateFile(const std::function<int(const ByteFunction& out)>& fill)
    : m_guard(std::in_place), m_path(TemporaryFile())
{
    m_file = m_path.empty() ? nullptr : Open(m_path, _O_WRONLY | _O_TRUNC, L"wb");
    int error = m_file ? 0 : (errno ? errno : EIO);
    if (m_file)
        error = fill([this](const char* bytes, std::size_t size) {
            errno = EINTR;
            return !InterruptGuard::IsInterrupted() && std::fwrite(bytes, 1, size, m_file) == size;
        });
    if (m_file && std::fclose(m_file) != 0 && error == 0)
        error = errno;
    m_file = nullptr;
    if (error != 0)
        m_error = ReasonOf(error);
}

PrivateFile::~PrivateFile()
{
    if (!m_path.empty())
        DeleteFileW(m_path.c_str());
}

ModulePath::ModulePath(const fs::path& path) : m_name(path.native())
{
    if (SurvivesCodePage(m_name))
        return;
    m_name = ShortName(path.native());
    if (!m_name.empty() && SurvivesCodePage(m_name))
        return;
    // Volumes without short names: a copy is read in the file's place.
    m_copy = TemporaryFile();
    bool isCopied = !m_copy.empty() && CopyFileW(path.c_str(), m_copy.c_str(), FALSE);
    m_name = isCopied ? ShortName(m_copy.native()) : std::wstring();
}

ModulePath::~ModulePath()
{
    if (!m_copy.empty())
        DeleteFileW(m_copy.c_str());
}

void FillStandardStreams()
{
    // Each for the wrong use: reading from a missing input and writing to a missing output fail, so the loss
    // is noticed.
    constexpr int kStandardInput = 0, kStandardError = 2;
    int descriptor = _wopen(L"NUL", _O_WRONLY);
    if (descriptor > kStandardInput)
        _close(descriptor);
    descriptor = _wopen(L"NUL", _O_RDONLY);
    while (descriptor >= 0 && descriptor < kStandardError)
        descriptor = _wopen(L"NUL", _O_RDONLY);
    if (descriptor > kStandardError)
        _close(descriptor);
}

std::FILE* OpenForReading(const fs::path& path)
{
    return Open(path, _O_RDONLY, L"rb");
}

std::FILE* OpenForAppending(const fs::path& path)
{
    return Open(path, _O_WRONLY | _O_APPEND, L"ab");
}

std::FILE* OpenStandardOutput()
{
    int descriptor = _dup(_fileno(stdout));
    if (descriptor < 0)
        return nullptr;
    _setmode(descriptor, _O_BINARY);
    return _fdopen(descriptor, "ab");
}

bool IsTerminal(std::FILE* stream)
{
    auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    constexpr DWORD kSequences = 0x0004; // ENABLE_VIRTUAL_TERMINAL_PROCESSING
    return GetConsoleMode(console, &mode) && SetConsoleMode(console, mode | kSequences);
}

std::FILE* CreateNew(const fs::path& path, const fs::path&)
{
    return Open(path, _O_WRONLY | _O_CREAT | _O_EXCL, L"wb");
}

bool IsReadOnly(const fs::path& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

void MakeReplaceable(const fs::path& path)
{
    if (IsReadOnly(path))
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

bool IsLinkOfOthers(const fs::path&)
{
    return false; // making a link takes a privilege here
}

std::error_code ForEachName(const fs::path& folder, const std::function<void(const fs::path& name)>& take)
{
    std::error_code error;
    fs::directory_iterator place(folder.empty() ? "." : folder, error);
    for (; !error && place != fs::directory_iterator(); place.increment(error))
        take(place->path().filename());
    return error;
}

void RemoveUnlessOpen(const fs::path& path)
{
    DeleteFileW(path.c_str()); // fails while it is open
}

bool SyncToDisk(std::FILE* file)
{
    return _commit(_fileno(file)) == 0;
}

bool NamesOpenFile(const fs::path&)
{
    return false;
}

void PutOutNow(std::string_view text)
{
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written,
              nullptr);
}

// The code with which the system itself ends a process at Ctrl-C.
void EndBySignal(int)
{
    constexpr UINT kControlC = 0xC000013A;
    TerminateProcess(GetCurrentProcess(), kControlC);
}

std::uint64_t RandomNumber()
{
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
}

unsigned long ProcessNumber()
{
    return GetCurrentProcessId();
}

bool IsRunning(unsigned long process)
{
    const HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
    if (handle == nullptr)
        return GetLastError() == ERROR_ACCESS_DENIED;
    DWORD code = 0;
    const bool isRunning = GetExitCodeProcess(handle, &code) == 0 || code == STILL_ACTIVE;
    CloseHandle(handle);
    return isRunning;
}

} // namespace plexorn
