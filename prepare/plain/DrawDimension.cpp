#include "prepare/plain/DrawDimension.h"

#include "prepare/plain/AngularDimension.h"
#include "prepare/plain/LinearDimension.h"
#include "prepare/plain/OrdinateDimension.h"
#include "prepare/plain/RadialDimension.h"

namespace prepare {

namespace {

// The lowest four bits of a dimension's kind.
struct DimensionKind {
    enum : std::int32_t {
        Rotated = 0,
        Aligned = 1,
        ByLines = 2,
        Diametric = 3,
        Radial = 4,
        ByPoints = 5,
        Ordinate = 6,
        ArcLength = 8,
        Jogged = 9,
    };
};
constexpr std::int32_t kOfX = 64;

// Dimensions of arc lengths and jogged radii are types of their own, whatever kind they say.
std::int32_t KindOf(const Dimension& dimension, std::string_view typeName)
{
    if (typeName == "ARC_DIMENSION")
        return DimensionKind::ArcLength;
    if (typeName == "LARGE_RADIAL_DIMENSION")
        return DimensionKind::Jogged;
    return dimension.kind & 15;
}

} // namespace

void DrawDimension(const Dimension& dimension, const Placement& placement, const PartStyler& styleOf,
                   const BlockPlacer& placeBlock)
{
    DimensionPen pen(dimension, placement, styleOf, placeBlock);
    const std::int32_t kind = KindOf(dimension, placement.drawing.names.Text(dimension.typeName));
    switch (kind) {
    case DimensionKind::Rotated:
    case DimensionKind::Aligned:
        DrawLinearDimension(pen, kind == DimensionKind::Aligned);
        break;
    case DimensionKind::ByLines:
    case DimensionKind::ByPoints:
        DrawAngularDimension(pen, kind == DimensionKind::ByLines);
        break;
    case DimensionKind::Diametric:
        DrawDiametricDimension(pen);
        break;
    case DimensionKind::Radial:
        DrawRadialDimension(pen);
        break;
    case DimensionKind::Ordinate:
        DrawOrdinateDimension(pen, (dimension.kind & kOfX) != 0);
        break;
    case DimensionKind::ArcLength:
        DrawArcLengthDimension(pen);
        break;
    case DimensionKind::Jogged:
        DrawJoggedDimension(pen);
        break;
    default:
        pen.Report(Finding::NotShown, "its kind is not known");
    }
    pen.Finish();
}

} // namespace prepare
