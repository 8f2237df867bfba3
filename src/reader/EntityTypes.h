// The types of entities, one row each.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

// A row says what becomes of the entities of a type; the code and the messages that follow from that are made
// from the row.
//
// Drawn(number, TYPE, Callback, const): CDxfRead::ReadENTITIES_TYPE reads them into records DXF_GRAPHIC_TYPE
// of this number, and OnCallback gets these; without the word const it may change them.
//
// Skipped(TYPE, parentheses): passed over without a message, POLYLINE but not its vertices (quirk 60). If a
// line among theirs is not a group code, the message has the parentheses after the name (quirk 122).
//
// Unknown(TYPE): the names that begin an entity within a block, MLEADERSTYLE and SECTION among them, but of
// which nothing is read. Each entity is reported.
// A row a line.
// clang-format off
#define DXF_DRAWN_TYPES_BUT_DIMENSION(Drawn)                                   \
    Drawn(1, LINE, Line, const)                                                \
    Drawn(2, ARC, Arc, )                                                       \
    Drawn(3, CIRCLE, Circle, const)                                            \
    Drawn(4, ELLIPSE, Ellipse, const)                                          \
    Drawn(5, LWPOLYLINE, LWPolyline, const)                                    \
    Drawn(6, TEXT, Text, const)                                                \
    Drawn(7, MTEXT, MText, const)                                              \
    Drawn(8, INSERT, Insert, const)

// Apart, because its callback comes before all others.
#define DXF_DIMENSION_TYPE(Drawn) Drawn(9, DIMENSION, Dimension, const)

#define DXF_DRAWN_TYPES(Drawn) DXF_DRAWN_TYPES_BUT_DIMENSION(Drawn) DXF_DIMENSION_TYPE(Drawn)

#define DXF_SKIPPED_TYPES(Skipped)                                             \
    Skipped(POLYLINE, "")                                                      \
    Skipped(SPLINE, "")                                                        \
    Skipped(POINT, "")                                                         \
    Skipped(HATCH, "()")                                                       \
    Skipped(VIEWPORT, "()")

#define DXF_UNKNOWN_TYPES(Unknown)                                             \
    Unknown(3DFACE)                                                            \
    Unknown(3DSOLID)                                                           \
    Unknown(ACAD_PROXY_ENTITY)                                                 \
    Unknown(ATTDEF)                                                            \
    Unknown(ATTRIB)                                                            \
    Unknown(BODY)                                                              \
    Unknown(HELIX)                                                             \
    Unknown(IMAGE)                                                             \
    Unknown(LEADER)                                                            \
    Unknown(LIGHT)                                                             \
    Unknown(MESH)                                                              \
    Unknown(MLEADER)                                                           \
    Unknown(MLEADERSTYLE)                                                      \
    Unknown(MLINE)                                                             \
    Unknown(OLE2FRAME)                                                         \
    Unknown(OLEFRAME)                                                          \
    Unknown(RAY)                                                               \
    Unknown(REGION)                                                            \
    Unknown(SECTION)                                                           \
    Unknown(SEQEND)                                                            \
    Unknown(SHAPE)                                                             \
    Unknown(SOLID)                                                             \
    Unknown(SUN)                                                               \
    Unknown(SURFACE)                                                           \
    Unknown(TABLE)                                                             \
    Unknown(TOLERANCE)                                                         \
    Unknown(TRACE)                                                             \
    Unknown(UNDERLAY)                                                          \
    Unknown(VERTEX)                                                            \
    Unknown(WIPEOUT)                                                           \
    Unknown(XLINE)
// clang-format on

enum class DXF_ENTITY_FATE {
    Drawn,
    Skipped, // without a message
    Unknown, // reported by name and line
    None,    // begins no entity: in ENTITIES reported like the unknown ones, within a block passed over
};

struct DXF_ENTITY_NAME {
    std::string_view name;
    DXF_ENTITY_FATE fate;
};

// Every type in alphabetical order.
inline constexpr auto kDxfEntityNames = [] {
#define DXF_DRAWN_NAME(number, TYPE, Callback, constness) DXF_ENTITY_NAME{#TYPE, DXF_ENTITY_FATE::Drawn},
#define DXF_SKIPPED_NAME(TYPE, parentheses) DXF_ENTITY_NAME{#TYPE, DXF_ENTITY_FATE::Skipped},
#define DXF_UNKNOWN_NAME(TYPE) DXF_ENTITY_NAME{#TYPE, DXF_ENTITY_FATE::Unknown},
    std::array names{DXF_DRAWN_TYPES(DXF_DRAWN_NAME) DXF_SKIPPED_TYPES(DXF_SKIPPED_NAME)
                         DXF_UNKNOWN_TYPES(DXF_UNKNOWN_NAME)};
#undef DXF_DRAWN_NAME
#undef DXF_SKIPPED_NAME
#undef DXF_UNKNOWN_NAME
    std::sort(names.begin(), names.end(), [](const DXF_ENTITY_NAME& left, const DXF_ENTITY_NAME& right) {
        return left.name < right.name;
    });
    return names;
}();
static_assert(std::adjacent_find(kDxfEntityNames.begin(), kDxfEntityNames.end(),
                                 [](const DXF_ENTITY_NAME& left, const DXF_ENTITY_NAME& right) {
                                     return left.name == right.name;
                                 }) == kDxfEntityNames.end());

// What becomes of the entities of a type.
constexpr DXF_ENTITY_FATE FateOfEntityType(std::string_view type)
{
    const auto found = std::lower_bound(
        kDxfEntityNames.begin(), kDxfEntityNames.end(), type,
        [](const DXF_ENTITY_NAME& entry, std::string_view name) { return entry.name < name; });
    return found != kDxfEntityNames.end() && found->name == type ? found->fate : DXF_ENTITY_FATE::None;
}
