// What several drawings would lose when they are drawn.
#pragma once

#include "cli/contents/Differences.h"
#include "cli/contents/Share.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>

namespace plexorn {

// Sums drawings up, of which nothing else is kept.
class Summary {
public:
    void Add(const Share& share);
    void AddFailed() { ++m_failed; }

    // A table in UTF-8 without control characters, and one JSON object and a line end (docs/manual.md).
    std::string Text() const;
    std::string JsonText() const;

private:
    std::uint64_t m_drawings = 0;
    std::uint64_t m_failed = 0;
    std::uint64_t m_whole = 0; // all shown as stated
    Share m_share;
    std::map<std::string, std::uint64_t> m_drawingsMissing; // by type: in how many drawings it is missing
    DifferenceCounts m_drawingsOtherwise{};
    std::map<std::string, std::uint64_t> m_drawingsChanged;
};

} // namespace plexorn
