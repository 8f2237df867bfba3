// How large a picture may become.
#pragma once

#include <cstddef>
#include <cstdint>

namespace svghost {

// Shares the bytes of a picture among its parts, and counts the elements that have no room.
class ByteBudget {
public:
    // most is of the whole picture; 0: as many as there are.
    explicit ByteBudget(std::size_t most = 0) : m_most(most > 0 ? most : SIZE_MAX) {}

    // Of the style sheet with the dash patterns that are written once.
    std::size_t MostOfDashClasses() const { return m_most / 4; }

    // What blocks leave is for what is drawn, but half at least.
    void BeginBlocks() { m_end = m_most / 2; }
    void BeginDrawing() { m_end = m_most; }

    // Whether there is room for an element with so many bytes in what may be long, after so many bytes.
    bool Take(std::size_t written, std::size_t longBytes)
    {
        constexpr std::size_t kElementBytes = 200; // what an element takes besides
        const bool hasRoom = written + kElementBytes + longBytes <= m_end;
        m_beyond += !hasRoom;
        return hasRoom;
    }

    // How many elements had no room.
    std::size_t Beyond() const { return m_beyond; }

private:
    std::size_t m_most;
    std::size_t m_end = 0; // of the part that is being written
    std::size_t m_beyond = 0;
};

} // namespace svghost
