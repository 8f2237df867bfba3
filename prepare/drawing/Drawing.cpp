#include "prepare/drawing/Drawing.h"

#include "base/Numbers.h"

#include <cmath>

namespace prepare {

namespace {

// The first value of a variable with that code; null if it has no such value.
const std::string* ValueOf(const Variable& variable, std::int32_t code)
{
    for (const auto& [its, value] : variable.values)
        if (its == code)
            return &value;
    return nullptr;
}

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

bool Header::Point(std::string_view name, Point3& point) const
{
    const auto found = m_variables.find(name);
    if (found == m_variables.end())
        return false;
    const std::string* const x = ValueOf(found->second, 10);
    const std::string* const y = ValueOf(found->second, 20);
    const std::string* const z = ValueOf(found->second, 30);
    if (x == nullptr || y == nullptr)
        return false;
    point = {FiniteReal(*x, 0), FiniteReal(*y, 0), z == nullptr ? 0 : FiniteReal(*z, 0)};
    return true;
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
