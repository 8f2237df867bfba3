#include "prepare/drawing/Drawing.h"

#include "base/Numbers.h"

namespace prepare {

namespace {

// The first value of that code, or of any code if it is 0; null when there is none.
const std::string* ValueOf(const Variable& variable, std::int32_t code)
{
    for (const auto& [itsCode, value] : variable.values)
        if (code == 0 || itsCode == code)
            return &value;
    return nullptr;
}

template <typename Map, typename Key>
auto FindIn(const Map& map, const Key& key) -> decltype(&map.begin()->second)
{
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

} // namespace

double Header::Real(std::string_view name, double otherwise) const
{
    const Variable* const variable = FindIn(m_variables, name);
    const std::string* const value = variable != nullptr ? ValueOf(*variable, 0) : nullptr;
    return value != nullptr ? ParseReal(*value) : otherwise;
}

std::int32_t Header::Integer(std::string_view name, std::int32_t otherwise) const
{
    const Variable* const variable = FindIn(m_variables, name);
    const std::string* const value = variable != nullptr ? ValueOf(*variable, 0) : nullptr;
    return value != nullptr ? ParseInteger(*value) : otherwise;
}

std::string_view Header::Text(std::string_view name) const
{
    const Variable* const variable = FindIn(m_variables, name);
    const std::string* const value = variable != nullptr ? ValueOf(*variable, 0) : nullptr;
    return value != nullptr ? std::string_view(*value) : std::string_view();
}

bool Header::Point(std::string_view name, Point3& point) const
{
    const Variable* const variable = FindIn(m_variables, name);
    if (variable == nullptr)
        return false;
    double* const coordinates[] = {&point.x, &point.y, &point.z};
    for (std::int32_t i = 0; i < 3; ++i) {
        const std::string* const value = ValueOf(*variable, 10 + 10 * i);
        *coordinates[i] = value != nullptr ? ParseReal(*value) : 0;
    }
    return true;
}

Variable& Header::operator[](std::string_view name)
{
    const auto found = m_variables.find(name);
    return found != m_variables.end() ? found->second : m_variables[std::string(name)];
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
    const auto* const block = FindIn(blocks, name);
    return block != nullptr ? block->get() : nullptr;
}

} // namespace prepare
