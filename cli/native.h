// What differs between the systems; native_posix.cpp and native_windows.cpp each hold all of it.
#ifndef PLEXORN_CLI_NATIVE_H
#define PLEXORN_CLI_NATIVE_H

#include "interrupt.h"

#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace plexorn {

// The path that an argument names, and the other way round (with slashes on every system).
std::filesystem::path PathFromArgument(const std::string& argument);
std::string ArgumentFromPath(const std::filesystem::path& path);

// A text that is the same for all names of a file that differ in their writing alone: relative or not,
// through links, in small or capital letters where the system takes them for the same.
std::string FileKey(const std::filesystem::path& path);

// Whether an argument ends as a folder's name does that need not exist.
bool EndsAsFolder(const std::string& argument);

// A name of an existing file with which the module can open it. The module turns the wide name into the
// system's narrow one, which not every name survives; such a file is given another name that does, for as
// long as this object lives.
class CModulePath {
public:
    explicit CModulePath(const std::filesystem::path& path);
    ~CModulePath();
    CModulePath(const CModulePath&) = delete;
    CModulePath& operator=(const CModulePath&) = delete;

    // The name; empty when none was found.
    const std::wstring& Name() const { return m_strName; }

private:
    std::wstring m_strName;
    std::filesystem::path m_copy;
    int m_nDescriptor = -1;
};

// The standard input as a file that can be read more than once, for as long as this object lives. Nobody
// finds it afterwards, also when the process is told to end.
class CInputCopy {
public:
    CInputCopy();
    ~CInputCopy();
    CInputCopy(const CInputCopy&) = delete;
    CInputCopy& operator=(const CInputCopy&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    // Why the copy could not be made; empty when it was.
    const std::string& Error() const { return m_strError; }

private:
    std::optional<CInterruptGuard> m_guard; // destroyed last
    std::filesystem::path m_path;
    std::FILE* m_pFile = nullptr;
    std::string m_strError;
};

// Appends what stands on the standard input to out, bytes as they are, until its end or until out returns
// false; the result is errno, 0 when nothing failed.
int ReadStandardInput(const std::function<bool(const char* bytes, size_t size)>& out);

// Open a file as bytes; null with errno set when that fails. CreateNew fails with EEXIST when the file
// exists; on POSIX systems the new one gets the mode and, where that is allowed, the owner of the file model,
// when there is one.
std::FILE* OpenForReading(const std::filesystem::path& path);
std::FILE* OpenForAppending(const std::filesystem::path& path);
std::FILE* OpenStandardOutput();
std::FILE* CreateNew(const std::filesystem::path& path, const std::filesystem::path& model);

// Brings what was written and flushed to the disk; false with errno set when that fails.
bool SyncToDisk(std::FILE* file);

// Whether path stands for something that a process has open already, such as /dev/stdout.
bool NamesOpenFile(const std::filesystem::path& path);

// Whether what is written to stream is shown on a terminal that understands control sequences.
bool IsTerminal(std::FILE* stream);

// This process's number, no other running process has it.
unsigned long ProcessNumber();

} // namespace plexorn

#endif
