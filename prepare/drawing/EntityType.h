// The types of entities that a drawing can hold.
#pragma once

#include <cstdint>
#include <string_view>

// Each type: how it is called here, and in files. A type that is written in several ways has a line for each
// in EntityType.cpp.
#define PREPARE_ENTITY_TYPES(ROW)                                                                            \
    ROW(Line, "LINE")                                                                                        \
    ROW(Circle, "CIRCLE")                                                                                    \
    ROW(Arc, "ARC")                                                                                          \
    ROW(Ellipse, "ELLIPSE")                                                                                  \
    ROW(LwPolyline, "LWPOLYLINE")                                                                            \
    ROW(Polyline, "POLYLINE")                                                                                \
    ROW(Vertex, "VERTEX")                                                                                    \
    ROW(SeqEnd, "SEQEND")                                                                                    \
    ROW(Spline, "SPLINE")                                                                                    \
    ROW(Helix, "HELIX")                                                                                      \
    ROW(Solid, "SOLID")                                                                                      \
    ROW(Trace, "TRACE")                                                                                      \
    ROW(Face, "3DFACE")                                                                                      \
    ROW(Line3d, "3DLINE")                                                                                    \
    ROW(Mesh, "MESH")                                                                                        \
    ROW(MultiLine, "MLINE")                                                                                  \
    ROW(Leader, "LEADER")                                                                                    \
    ROW(MultiLeader, "MULTILEADER")                                                                          \
    ROW(Ray, "RAY")                                                                                          \
    ROW(XLine, "XLINE")                                                                                      \
    ROW(Point, "POINT")                                                                                      \
    ROW(Insert, "INSERT")                                                                                    \
    ROW(Text, "TEXT")                                                                                        \
    ROW(Attrib, "ATTRIB")                                                                                    \
    ROW(AttDef, "ATTDEF")                                                                                    \
    ROW(MText, "MTEXT")                                                                                      \
    ROW(Dimension, "DIMENSION")                                                                              \
    ROW(Tolerance, "TOLERANCE")                                                                              \
    ROW(Hatch, "HATCH")                                                                                      \
    ROW(Table, "ACAD_TABLE")                                                                                 \
    ROW(Image, "IMAGE")                                                                                      \
    ROW(Wipeout, "WIPEOUT")                                                                                  \
    ROW(Underlay, "PDFUNDERLAY")                                                                             \
    ROW(OleFrame, "OLEFRAME")                                                                                \
    ROW(Ole2Frame, "OLE2FRAME")                                                                              \
    ROW(Proxy, "ACAD_PROXY_ENTITY")                                                                          \
    ROW(Viewport, "VIEWPORT")                                                                                \
    ROW(Shape, "SHAPE")                                                                                      \
    ROW(Other, "")

namespace prepare {

enum class EntityType : std::uint8_t {
#define PREPARE_ROW(type, name) type,
    PREPARE_ENTITY_TYPES(PREPARE_ROW)
#undef PREPARE_ROW
};

// The type of that name; Other for any that is not listed.
EntityType EntityTypeOf(std::string_view name);

// Whether that is a solid or surface whose shape only the programs that made it read.
bool IsModelledSolid(std::string_view name);

// Whether a record of that type is an entity wherever it is: one that is listed, or a modelled solid. What a
// record of another type is, only its section says.
bool IsEntity(std::string_view name);

} // namespace prepare
