// A drawing's file as preparing reads it.
#pragma once

#include "cli/files/SizeOfFile.h"
#include "cli/files/Source.h"
#include "cli/system/InterruptGuard.h"
#include "input/CDxfOpenFile.h"
#include "prepare/PrepareDrawing.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <system_error>

namespace plexorn {

// The file of a drawing, which can be read from its start any number of times. Reading fails once the command
// is interrupted.
class RewoundFile final : public prepare::ReopenableSource, private CDxfSource {
public:
    // source must outlive this. With keepsGoing, what comes before a failed read is prepared.
    explicit RewoundFile(Source& source, bool keepsGoing = false) : m_source(source), m_keepsGoing(keepsGoing)
    {
    }

    CDxfSource& Rewound() override
    {
        m_reader.emplace(m_source.Rewound());
        return *this;
    }

    std::uint64_t Size() const override { return SizeOfFile(m_source.Path()); }

    bool IsTakenInPart() const override { return m_keepsGoing && !InterruptGuard::IsInterrupted(); }

    // errno of a failed read, 0 if none failed. Running out of memory is not a failed read: reading throws
    // std::bad_alloc.
    int Error() const { return m_error; }
    // Why reading failed, as the end of a sentence.
    std::string WhyFailed() const
    {
        return "cannot be read to its end: " + std::generic_category().message(m_error);
    }
    [[noreturn]] void ThrowFailure() const { throw std::system_error(m_error, std::generic_category()); }

private:
    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        if (!m_reader)
            return 0;
        if (InterruptGuard::IsInterrupted()) {
            m_error = EINTR;
            return -1;
        }
        const std::ptrdiff_t count = m_reader->Read(bytes, size);
        if (count > 0 || (count == 0 && m_source.ReadError() == 0))
            return count;
        m_error = count == 0 ? m_source.ReadError() : m_reader->Error();
        return -1;
    }

    Source& m_source;
    bool m_keepsGoing;
    std::optional<CDxfOpenFile> m_reader;
    int m_error = 0;
};

} // namespace plexorn
