// What differs between the systems; Native_posix.cpp and Native_windows.cpp each define all of it.
#pragma once

#include "cli/system/InterruptGuard.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace plexorn {

// The path that an argument names, and the other way round (with slashes on every system).
std::filesystem::path PathFromArgument(const std::string& argument);
std::string ArgumentFromPath(const std::filesystem::path& path);

// A text that is the same for all names of a file that differ only in their spelling: relative or not,
// through links, in small or capital letters where the system takes them for the same.
std::string FileKey(const std::filesystem::path& path);

// Whether the system's shells expand patterns such as *.dxf.
bool DoShellsExpandNames();

// A text that is the same for all names of one file, hard links included; empty when there is no file.
std::string FileIdentity(const std::filesystem::path& path);
// The same for the file that stream is open on; empty when it is a terminal, a pipe or a device.
std::string FileIdentity(std::FILE* stream);

// Gives memory that has been freed back to the system, where the runtime library would keep it.
void ReturnFreedMemory();

// Whether an argument ends like the name of a folder that may not exist yet.
bool EndsAsFolder(const std::string& argument);

// A name of an existing file with which the module can open it. The module turns the wide name into the
// system's narrow one, which not every name survives; such a file is given another name that does, for as
// long as this object lives.
class ModulePath {
public:
    explicit ModulePath(const std::filesystem::path& path);
    ~ModulePath();
    ModulePath(const ModulePath&) = delete;
    ModulePath& operator=(const ModulePath&) = delete;

    // The name; empty when none was found.
    const std::wstring& Name() const { return m_name; }

private:
    std::wstring m_name;
    std::filesystem::path m_copy;
    int m_descriptor = -1;
};

// Takes bytes; false, with errno set, stops the caller.
using ByteFunction = std::function<bool(const char* bytes, std::size_t size)>;

// Bytes as a file that can be read more than once, for as long as this object lives. Nothing is left of it
// afterwards, not even when a signal ends the process.
class PrivateFile {
public:
    // fill gives the bytes; its result is errno, 0 when nothing failed.
    explicit PrivateFile(const std::function<int(const ByteFunction& out)>& fill);
    ~PrivateFile();
    PrivateFile(const PrivateFile&) = delete;
    PrivateFile& operator=(const PrivateFile&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    // Why the file could not be made; empty if it was made.
    const std::string& Error() const { return m_error; }

private:
    std::optional<InterruptGuard> m_guard; // destroyed last
    std::filesystem::path m_path;
    std::FILE* m_file = nullptr;
    std::string m_error;
};

// Gives the standard input to out, bytes as they are, until its end or until out returns false; the result is
// errno, 0 when nothing failed.
int ReadStandardInput(const ByteFunction& out);

// Gives a process that was started without a standard stream the null device in its place: the first file
// that is opened would take it, and messages would be written into that file. To be called before any is
// opened.
void FillStandardStreams();

// Open a file as bytes; null with errno set when that fails. CreateNew fails with EEXIST when the file
// exists; on POSIX systems the new one gets the mode and, where that is allowed, the owner of the file model,
// when there is one. Nothing is left of a file that it could not make. A file that CreateNew makes is known
// as open until it is closed.
std::FILE* OpenForReading(const std::filesystem::path& path);
std::FILE* OpenForAppending(const std::filesystem::path& path);
std::FILE* OpenStandardOutput();
std::FILE* CreateNew(const std::filesystem::path& path, const std::filesystem::path& model);

// Whether path is a file that this user may not write to, or that nobody may.
bool IsReadOnly(const std::filesystem::path& path);
// Lets another file take the place of a read-only one.
void MakeReplaceable(const std::filesystem::path& path);

// Whether path is a symbolic link that another user made, or may have made: in a folder of somebody else than
// this user and the system's administrator, or by somebody else in a folder in which others can write.
bool IsLinkOfOthers(const std::filesystem::path& path);

// Calls take with the name of each file and folder that is in a folder, in any order; what went wrong, if
// anything did. What is there to go through a folder in the standard library ends the process when memory is
// short; on Windows this uses it all the same.
std::error_code ForEachName(const std::filesystem::path& folder,
                            const std::function<void(const std::filesystem::path& name)>& take);

// Removes a file that CreateNew made unless a process still has it open.
void RemoveUnlessOpen(const std::filesystem::path& path);

// Brings what was written and flushed to the disk; false with errno set when that fails.
bool SyncToDisk(std::FILE* file);

// Whether path names something that a process already has open, such as /dev/stdout.
bool NamesOpenFile(const std::filesystem::path& path);

// Whether what is written to stream is shown on a terminal that understands control sequences.
bool IsTerminal(std::FILE* stream);

// Writes text to the standard error stream at once; can be called by a handler of a signal.
void PutOutNow(std::string_view text);
// Ends the process as if signal had not been handled; can be called by its handler.
void EndBySignal(int signal);

// A number that nobody can guess, if the system has such numbers; otherwise one that is hard to guess.
std::uint64_t RandomNumber();

// This process's number, no other running process has it.
unsigned long ProcessNumber();
// Whether a process has that number.
bool IsRunning(unsigned long process);

} // namespace plexorn
