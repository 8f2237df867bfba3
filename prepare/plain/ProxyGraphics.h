// The pictures that proxy entities carry for programs that do not know their type.
#pragma once

#include "prepare/drawing/Point.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace prepare {

// Reads numbers, lowest byte first. Past the end all of them are 0, and IsGood is false.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : m_bytes(bytes) {}

    std::int32_t Integer();
    double Real();
    Point3 Point();
    // The bytes from here on, of that length at most.
    std::string_view Take(std::size_t length);

    std::size_t Left() const { return m_bytes.size(); }
    bool IsGood() const { return m_isGood; }

private:
    std::uint64_t Bits(std::size_t bytes);

    std::string_view m_bytes;
    bool m_isGood = true;
};

// One command of a picture: what it draws or sets, and its numbers.
struct ProxyCommand {
    std::int32_t type = 0;
    std::string_view data;
};

// Goes through the commands of a picture.
class ProxyGraphics {
public:
    // Begins with the size of all and the count of commands, which need not be true.
    explicit ProxyGraphics(std::string_view graphics);

    // False at the end, and where the sizes do not fit: then IsWhole is false too.
    bool Next(ProxyCommand& command);
    bool IsWhole() const { return m_isWhole; }

private:
    ByteReader m_reader;
    bool m_isWhole = true;
};

} // namespace prepare
