#include "cli/draw/PreparedDrawing.h"

#include "cli/contents/FileSource.h"

#include <cerrno>
#include <cstdint>
#include <system_error>

namespace plexorn {

namespace {

// The drawing's file, from its start again as often as it is wanted.
class RewoundFile final : public prepare::ReopenableSource {
public:
    explicit RewoundFile(Source& source) : m_source(source) {}

    CDxfSource& Rewound() override { return m_reader.emplace(m_source.Rewound()); }

    std::uint64_t Size() const override
    {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(m_source.Path(), error);
        return error ? 0 : size;
    }

private:
    Source& m_source;
    std::optional<FileSource> m_reader;
};

prepare::Options PrepareOptionsFor(const Options& options)
{
    prepare::Options wanted;
    wanted.isForPaper = options.isOnPaper;
    return wanted;
}

} // namespace

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
        m_reason = "cannot be read to its end";
    else if (!m_file->Error().empty())
        m_reason = "cannot be prepared: " + m_file->Error();
}

} // namespace plexorn
