#include "cli/prepare/PreparedDrawing.h"

#include "cli/prepare/PrepareOptions.h"
#include "cli/prepare/RewoundFile.h"

#include <cerrno>
#include <system_error>

namespace plexorn {

PreparedDrawing::PreparedDrawing(Source& source, const Options& options)
{
    RewoundFile input(source);
    prepare::PrepareOutcome outcome = prepare::PrepareOutcome::Done;
    m_file.emplace([&](const ByteFunction& out) {
        outcome = prepare::PrepareDrawing(
            input, PrepareOptionsFor(options),
            [&](std::string_view bytes) { return out(bytes.data(), bytes.size()); }, m_findings, {});
        return outcome == prepare::PrepareOutcome::WriteFailed ? errno : 0;
    });
    m_path = outcome == prepare::PrepareOutcome::NoDrawing ? source.Path() : m_file->Path();
    if (outcome == prepare::PrepareOutcome::NoDrawing && !source.IsAscii())
        m_reason = "is a DXF with nothing in it";
    else if (outcome == prepare::PrepareOutcome::ReadFailed)
        m_reason = "cannot be read to its end: " + std::generic_category().message(input.Error());
    else if (!m_file->Error().empty())
        m_reason = "cannot be prepared: " + m_file->Error();
}

} // namespace plexorn
