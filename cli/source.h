// A drawing that can be opened.
#ifndef PLEXORN_CLI_SOURCE_H
#define PLEXORN_CLI_SOURCE_H

#include "exitcodes.h"
#include "native.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace plexorn {

using FilePointer = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

// The drawing that a name stands for: a file, or what the standard input brings. It has been looked at: while
// Reason is empty, it can be read and may well be an ASCII DXF.
class CSource {
public:
    explicit CSource(const std::string& name);

    // Why it cannot be taken, as the end of a sentence, and the exit code for that.
    const std::string& Reason() const { return m_strReason; }
    ExitCode Code() const { return m_code; }

    // The name for people.
    const std::string& ShownName() const { return m_strShownName; }
    const std::filesystem::path& Path() const { return m_path; }
    // The file from its start on.
    std::FILE* Rewound();

private:
    void Refuse(const std::string& reason, ExitCode code);
    std::string Open();

    std::optional<CInputCopy> m_copy;
    std::filesystem::path m_path;
    std::string m_strShownName;
    FilePointer m_file{nullptr, std::fclose};
    std::string m_strReason;
    ExitCode m_code = ExitFile;
};

} // namespace plexorn

#endif
