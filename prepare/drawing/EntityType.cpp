#include "prepare/drawing/EntityType.h"

#include <algorithm>
#include <array>

namespace prepare {

namespace {

struct TypeName {
    std::string_view name;
    EntityType type;
};

// The usual names, and the others that files use for the same.
constexpr TypeName kNames[] = {
#define PREPARE_ROW(type, name, traits) {name, EntityType::type},
    PREPARE_ENTITY_TYPES(PREPARE_ROW)
#undef PREPARE_ROW
        {"MLEADER", EntityType::MultiLeader},
    {"DGNUNDERLAY", EntityType::Underlay},
    {"DWFUNDERLAY", EntityType::Underlay},
    {"MPOLYGON", EntityType::Hatch},
    {"ARC_DIMENSION", EntityType::Dimension},
    {"LARGE_RADIAL_DIMENSION", EntityType::Dimension},
};

constexpr auto kSorted = [] {
    std::array<TypeName, std::size(kNames)> sorted;
    std::copy(std::begin(kNames), std::end(kNames), sorted.begin());
    std::sort(sorted.begin(), sorted.end(),
              [](const TypeName& a, const TypeName& b) { return a.name < b.name; });
    return sorted;
}();

} // namespace

EntityType EntityTypeOf(std::string_view name)
{
    const auto found = std::lower_bound(kSorted.begin(), kSorted.end(), name,
                                        [](const TypeName& a, std::string_view b) { return a.name < b; });
    return found != kSorted.end() && found->name == name ? found->type : EntityType::Other;
}

bool IsModelledSolid(std::string_view name)
{
    constexpr std::string_view kNames[] = {
        "3DSOLID",         "REGION",          "BODY",         "SURFACE",       "PLANESURFACE",
        "EXTRUDEDSURFACE", "REVOLVEDSURFACE", "SWEPTSURFACE", "LOFTEDSURFACE", "NURBSURFACE"};
    return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
}

bool IsEntity(std::string_view name)
{
    return EntityTypeOf(name) != EntityType::Other || IsModelledSolid(name);
}

} // namespace prepare
