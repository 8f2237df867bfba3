// A drawing's file as preparing reads it.
#pragma once

#include "cli/contents/FileSource.h"
#include "cli/files/Source.h"
#include "prepare/PrepareDrawing.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

namespace plexorn {

// The file of a drawing, from its start again as often as it is wanted.
class RewoundFile final : public prepare::ReopenableSource {
public:
    // source must outlive this.
    explicit RewoundFile(Source& source) : m_source(source) {}

    CDxfSource& Rewound() override { return m_reader.emplace(m_source.Rewound()); }

    std::uint64_t Size() const override
    {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(m_source.Path(), error);
        return error ? 0 : size;
    }

    // errno of a reading that failed, 0 when none did.
    int Error() const { return m_reader ? m_reader->Error() : 0; }

private:
    Source& m_source;
    std::optional<FileSource> m_reader;
};

} // namespace plexorn
