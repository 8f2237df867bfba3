#include "prepare/drawing/Drawing.h"

#include "base/Numbers.h"

#include <cmath>

namespace prepare {

namespace {

double FiniteReal(std::string_view text, double otherwise)
{
    const double real = ParseReal(text);
    return std::isfinite(real) ? real : otherwise;
}

template <class Map>
auto FindIn(const Map& map, NameId name)
{
    const auto found = map.find(name);
    return found == map.end() ? nullptr : &found->second;
}

} // namespace

Variable& Header::operator[](std::string_view name)
{
    const auto found = m_variables.find(name);
    return found != m_variables.end() ? found->second : m_variables[std::string(name)];
}

double Header::Real(std::string_view name, double otherwise) const
{
    const auto found = m_variables.find(name);
    if (found == m_variables.end() || found->second.values.empty())
        return otherwise;
    return FiniteReal(found->second.values.front().second, otherwise);
}

std::int32_t Header::Integer(std::string_view name, std::int32_t otherwise) const
{
    const auto found = m_variables.find(name);
    if (found == m_variables.end() || found->second.values.empty())
        return otherwise;
    return ParseInteger(found->second.values.front().second);
}

std::string_view Header::Text(std::string_view name) const
{
    const auto found = m_variables.find(name);
    if (found == m_variables.end() || found->second.values.empty())
        return {};
    return Trim(found->second.values.front().second);
}

const Layer* Drawing::FindLayer(NameId name) const
{
    return FindIn(layers, name);
}

const LineType* Drawing::FindLineType(NameId name) const
{
    return FindIn(lineTypes, name);
}

const TextStyle* Drawing::FindTextStyle(NameId name) const
{
    return FindIn(textStyles, name);
}

const Block* Drawing::FindBlock(NameId name) const
{
    const auto found = blocks.find(name);
    return found == blocks.end() ? nullptr : found->second.get();
}

const SpatialFilter* Drawing::FindFilter(Handle insert) const
{
    const auto found = filterOfInsert.find(insert);
    return found == filterOfInsert.end() ? nullptr : &found->second;
}

} // namespace prepare
