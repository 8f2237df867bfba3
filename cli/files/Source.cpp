#include "cli/files/Source.h"

#include "cli/files/Inputs.h"
#include "cli/files/WhyNotDxf.h"
#include "cli/system/ReasonOf.h"
#include "input/CDxfOpenFile.h"
#include "prepare/pairs/TextSource.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

Source::Source(const std::string& name, Forms forms, bool keepsGoing) : m_shownName(name)
{
    if (name == kStandardStream) {
        m_shownName = "<stdin>";
        CopyStandardInput(keepsGoing);
    } else {
        m_path = PathFromArgument(name);
    }
    std::string reason = m_copy ? m_copy->Error() : "";
    if (reason.empty())
        reason = Open();
    std::string head(kSniffedSize, '\0');
    if (reason.empty()) {
        CDxfOpenFile file(m_file.get());
        head.resize(
            static_cast<std::size_t>(std::max<std::ptrdiff_t>(file.Read(head.data(), head.size()), 0)));
        reason = file.Error() != 0 ? ReasonOf(file.Error()) : "";
    }
    if (!reason.empty())
        Refuse("cannot be read: " + reason, ExitCode::File);
    else if (const std::string other = WhyNotTaken(head, forms); !other.empty())
        Refuse(other, ExitCode::NotAsciiDxf);
}

void Source::CopyStandardInput(bool keepsGoing)
{
    m_copy.emplace([&](const ByteFunction& out) {
        bool hasBytes = false, isWritten = true;
        const int error = ReadStandardInput([&](const char* bytes, std::size_t size) {
            hasBytes = true;
            return isWritten = out(bytes, size);
        });
        if (!keepsGoing || !hasBytes || !isWritten)
            return error;
        m_readError = error;
        return 0;
    });
    m_path = m_copy->Path();
}

void Source::Refuse(const std::string& reason, ExitCode code)
{
    m_reason = reason;
    m_code = code;
}

std::string Source::WhyNotTaken(const std::string& head, Forms forms)
{
    m_isAscii = forms == Forms::Ascii || !prepare::TextSource::Decodes(head);
    const Taker taker = forms == Forms::Ascii ? Taker::Module : Taker::Preparing;
    return m_isAscii ? WhyNotDxf(head, taker) : "";
}

// Nothing but a regular file is opened: a pipe could keep its reader waiting.
std::string Source::Open()
{
    std::error_code error;
    const fs::file_status status = fs::status(m_path, error);
    if (!fs::exists(status))
        return error ? error.message() : ReasonOf(ENOENT);
    if (fs::is_directory(status))
        return ReasonOf(EISDIR);
    if (!fs::is_regular_file(status))
        return "not a regular file; use - for standard input";
    m_file.reset(OpenForReading(m_path));
    return m_file ? "" : ReasonOf(errno);
}

std::FILE* Source::Rewound()
{
    errno = 0;
    if (std::fseek(m_file.get(), 0, SEEK_SET) != 0)
        throw std::system_error(errno != 0 ? errno : EIO, std::generic_category());
    std::clearerr(m_file.get());
    return m_file.get();
}

} // namespace plexorn
