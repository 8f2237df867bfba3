// Writing the picture, whole or not at all.
#pragma once

#include "cli/system/InterruptGuard.h"

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>

namespace plexorn {

// A file that is written under a temporary name in the target's folder and takes the target's name when it is
// complete: a reader of the target sees the old file or the new one. A symbolic link stays, its target is
// replaced or made; a device, a pipe or the standard output (-, /dev/stdout) is written to directly. Who may
// read and write an older file may do so with the new one. An older file that may not be written to and a
// link that others may have made are left alone unless the output is forced. Destroyed without Commit, it
// leaves no trace, not even when a signal ends the process: the signal makes writes fail and waits until this
// object is gone.
class OutputFile {
public:
    // The target that is the standard output.
    static constexpr const char* kStandardOutput = "-";

    // Opens the file; Error says why if that failed.
    OutputFile(const std::filesystem::path& target, bool isForced);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Appends size bytes. False when that failed, now or before.
    bool Write(const char* bytes, std::size_t size);

    // Brings everything to the disk and the target into place. False when that failed, now or before.
    bool Commit();

    // Why an operation failed; empty while none did.
    const std::string& Error() const { return m_error; }

private:
    void OpenTarget(const std::filesystem::path& target, bool isForced);
    void OpenTemporary();
    bool Fail(int error);
    bool Refuse(const char* reason);
    bool IsInterrupted() const { return m_guard && InterruptGuard::IsInterrupted(); }
    bool Close();

    // Destroyed last, when the temporary file is removed.
    std::optional<InterruptGuard> m_guard;
    std::filesystem::path m_target;
    std::filesystem::path m_temporary; // empty: the target itself is written
    std::FILE* m_file = nullptr;
    std::string m_error;
};

} // namespace plexorn
