// What differs between the systems; native_posix.cpp and native_windows.cpp each hold all of it.
#ifndef PLEXORN_CLI_NATIVE_H
#define PLEXORN_CLI_NATIVE_H

#include <cstdio>
#include <filesystem>
#include <string>

namespace plexorn {

// The path that an argument names.
std::filesystem::path PathFromArgument(const std::string& argument);

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

// Open a file as bytes; null with errno set when that fails. CreateNew fails with EEXIST when the file
// exists; on POSIX systems the new one gets the mode and, where that is allowed, the owner of the file model,
// when there is one.
std::FILE* OpenForReading(const std::filesystem::path& path);
std::FILE* OpenForAppending(const std::filesystem::path& path);
std::FILE* CreateNew(const std::filesystem::path& path, const std::filesystem::path& model);

// Brings what was written and flushed to the disk; false with errno set when that fails.
bool SyncToDisk(std::FILE* file);

// Whether path stands for something that a process has open already, such as /dev/stdout.
bool NamesOpenFile(const std::filesystem::path& path);

// This process's number, no other running process has it.
unsigned long ProcessNumber();

} // namespace plexorn

#endif
