// A drawing that can be opened.
#pragma once

#include "cli/options/ExitCode.h"
#include "cli/system/Native.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace plexorn {

using FilePointer = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

// The forms of a DXF that are taken: those that the module reads, or those that preparing reads.
enum class Forms : std::uint8_t { Ascii, All };

// The drawing that a name means: a file, or what the standard input brings. It has been looked at: while
// Reason is empty, it can be read and may well be a DXF of these forms.
class Source {
public:
    // With keepsGoing, what the standard input brings before a failed read is taken.
    explicit Source(const std::string& name, Forms forms = Forms::Ascii, bool keepsGoing = false);

    // Why it cannot be taken, as the end of a sentence, and the exit code for that.
    const std::string& Reason() const { return m_reason; }
    ExitCode Code() const { return m_code; }

    // The name for people.
    const std::string& ShownName() const { return m_shownName; }
    const std::filesystem::path& Path() const { return m_path; }
    // False for a form that only preparing reads.
    bool IsAscii() const { return m_isAscii; }
    // errno of the failed read that ended the file at Path, 0 if it is whole.
    int ReadError() const { return m_readError; }
    // The file from its start on. Throws std::system_error when it cannot be read from there.
    std::FILE* Rewound();

private:
    void Refuse(const std::string& reason, ExitCode code);
    void CopyStandardInput(bool keepsGoing);
    std::string Open();
    std::string WhyNotTaken(const std::string& head, Forms forms);

    std::optional<PrivateFile> m_copy;
    std::filesystem::path m_path;
    std::string m_shownName;
    FilePointer m_file{nullptr, std::fclose};
    bool m_isAscii = true;
    int m_readError = 0;
    std::string m_reason;
    ExitCode m_code = ExitCode::File;
};

} // namespace plexorn
