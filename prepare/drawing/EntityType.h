// The types of entities that a drawing can hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Each type: how it is called here, and in files, and what holds of its entities. A type that is written in
// several ways has a line for each in EntityType.cpp.
#define PREPARE_ENTITY_TYPES(ROW)                                                                            \
    ROW(Line, "LINE", Trait::Plain | Trait::Dashed)                                                          \
    ROW(Circle, "CIRCLE", Trait::Plain | Trait::Round)                                                       \
    ROW(Arc, "ARC", Trait::Plain | Trait::Round)                                                             \
    ROW(Ellipse, "ELLIPSE", Trait::Plain | Trait::Round)                                                     \
    ROW(LwPolyline, "LWPOLYLINE", Trait::Plain | Trait::Round)                                               \
    ROW(Polyline, "POLYLINE", Trait::Round)                                                                  \
    ROW(Vertex, "VERTEX", Trait::None)                                                                       \
    ROW(SeqEnd, "SEQEND", Trait::None)                                                                       \
    ROW(Spline, "SPLINE", Trait::Round)                                                                      \
    ROW(Helix, "HELIX", Trait::Dashed)                                                                       \
    ROW(Solid, "SOLID", Trait::None)                                                                         \
    ROW(Trace, "TRACE", Trait::None)                                                                         \
    ROW(Face, "3DFACE", Trait::None)                                                                         \
    ROW(Line3d, "3DLINE", Trait::Dashed)                                                                     \
    ROW(Mesh, "MESH", Trait::None)                                                                           \
    ROW(MultiLine, "MLINE", Trait::OwnStyles)                                                                \
    ROW(Leader, "LEADER", Trait::Dashed)                                                                     \
    ROW(MultiLeader, "MULTILEADER", Trait::None)                                                             \
    ROW(Ray, "RAY", Trait::Dashed)                                                                           \
    ROW(XLine, "XLINE", Trait::Dashed)                                                                       \
    ROW(Point, "POINT", Trait::None)                                                                         \
    ROW(Insert, "INSERT", Trait::Plain)                                                                      \
    ROW(Text, "TEXT", Trait::Plain)                                                                          \
    ROW(Attrib, "ATTRIB", Trait::None)                                                                       \
    ROW(AttDef, "ATTDEF", Trait::None)                                                                       \
    ROW(MText, "MTEXT", Trait::OwnStyles)                                                                    \
    ROW(Dimension, "DIMENSION", Trait::None)                                                                 \
    ROW(Tolerance, "TOLERANCE", Trait::None)                                                                 \
    ROW(Hatch, "HATCH", Trait::None)                                                                         \
    ROW(Table, "ACAD_TABLE", Trait::None)                                                                    \
    ROW(Image, "IMAGE", Trait::None)                                                                         \
    ROW(Wipeout, "WIPEOUT", Trait::None)                                                                     \
    ROW(Underlay, "PDFUNDERLAY", Trait::None)                                                                \
    ROW(OleFrame, "OLEFRAME", Trait::None)                                                                   \
    ROW(Ole2Frame, "OLE2FRAME", Trait::None)                                                                 \
    ROW(Proxy, "ACAD_PROXY_ENTITY", Trait::None)                                                             \
    ROW(Viewport, "VIEWPORT", Trait::None)                                                                   \
    ROW(Shape, "SHAPE", Trait::None)                                                                         \
    ROW(Other, "", Trait::None)

namespace prepare {

enum class EntityType : std::uint8_t {
#define PREPARE_ROW(type, name, traits) type,
    PREPARE_ENTITY_TYPES(PREPARE_ROW)
#undef PREPARE_ROW
};

enum class Trait : std::uint8_t {
    None = 0,
    Plain = 1,     // a plain drawing has them as they are
    Dashed = 2,    // their line type is seen
    Round = 4 | 2, // their line may come back to where it begins; it is Dashed, too
    OwnStyles = 8, // their parts may be "by block" for themselves
};

constexpr Trait operator|(Trait a, Trait b)
{
    return static_cast<Trait>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

inline constexpr Trait kTraitsOfTypes[] = {
#define PREPARE_ROW(type, name, traits) traits,
    PREPARE_ENTITY_TYPES(PREPARE_ROW)
#undef PREPARE_ROW
};

constexpr bool HasTrait(EntityType type, Trait trait)
{
    const auto bits = static_cast<unsigned>(trait);
    return (static_cast<unsigned>(kTraitsOfTypes[static_cast<std::size_t>(type)]) & bits) == bits;
}

// The type of that name; Other for any that is not listed.
EntityType EntityTypeOf(std::string_view name);

// Whether that is a solid or surface whose shape only the programs that made it read.
bool IsModelledSolid(std::string_view name);

// Whether a record of that type is an entity wherever it is: one that is listed, or a modelled solid. What a
// record of another type is, only its section says.
bool IsEntity(std::string_view name);

} // namespace prepare
