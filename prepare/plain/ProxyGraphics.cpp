#include "prepare/plain/ProxyGraphics.h"

#include <algorithm>
#include <bit>

namespace prepare {

namespace {

constexpr std::size_t kHeadSize = 8; // a size and a type, or a count

} // namespace

std::uint64_t ByteReader::Bits(std::size_t bytes)
{
    if (m_bytes.size() < bytes) {
        m_isGood = false;
        m_bytes = {};
        return 0;
    }
    std::uint64_t bits = 0;
    for (std::size_t i = bytes; i-- > 0;)
        bits = bits << 8 | static_cast<unsigned char>(m_bytes[i]);
    m_bytes.remove_prefix(bytes);
    return bits;
}

std::int32_t ByteReader::Integer()
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(Bits(sizeof(std::int32_t))));
}

double ByteReader::Real()
{
    return std::bit_cast<double>(Bits(sizeof(double)));
}

Point3 ByteReader::Point()
{
    const double x = Real(), y = Real(), z = Real();
    return {x, y, z};
}

std::string_view ByteReader::Take(std::size_t length)
{
    const std::string_view taken = m_bytes.substr(0, length);
    m_bytes.remove_prefix(taken.size());
    return taken;
}

ProxyGraphics::ProxyGraphics(std::string_view graphics) : m_reader(graphics)
{
    const std::int32_t size = m_reader.Integer();
    m_reader.Integer();
    const auto rest = static_cast<std::size_t>(std::max(size, std::int32_t{kHeadSize})) - kHeadSize;
    m_isWhole = m_reader.IsGood() && rest <= m_reader.Left();
    m_reader = ByteReader(m_reader.Take(rest));
}

bool ProxyGraphics::Next(ProxyCommand& command)
{
    if (m_reader.Left() == 0)
        return false;
    const std::int32_t size = m_reader.Integer();
    command.type = m_reader.Integer();
    const std::size_t length = static_cast<std::size_t>(std::max(size, std::int32_t{0}));
    if (!m_reader.IsGood() || length < kHeadSize || length - kHeadSize > m_reader.Left()) {
        m_isWhole = false;
        return false;
    }
    command.data = m_reader.Take(length - kHeadSize);
    return true;
}

} // namespace prepare
