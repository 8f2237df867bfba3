#include "prepare/plain/DrawDimension.h"

#include "prepare/plain/DimensionKinds.h"

namespace prepare {

namespace {

// The lowest four bits of a dimension's kind.
enum DimensionKind : std::int32_t {
    kRotated = 0,
    kAlongPoints = 1,
    kByLines = 2,
    kDiametric = 3,
    kRadial = 4,
    kByPoints = 5,
    kOrdinate = 6,
    kArcLength = 8,
    kJogged = 9,
};
constexpr std::int32_t kOfX = 64;

// Dimensions of arc lengths and jogged radii are types of their own, whatever kind they say.
std::int32_t KindOf(const Dimension& dimension, std::string_view typeName)
{
    if (typeName == "ARC_DIMENSION")
        return kArcLength;
    if (typeName == "LARGE_RADIAL_DIMENSION")
        return kJogged;
    return dimension.kind & 15;
}

} // namespace

void DrawDimension(const Dimension& dimension, const Placement& placement, const PartStyler& styleOf,
                   const BlockPlacer& placeBlock)
{
    DimensionPen pen(dimension, placement, styleOf, placeBlock);
    const std::int32_t kind = KindOf(dimension, placement.drawing.names.Text(dimension.typeName));
    switch (kind) {
    case kRotated:
    case kAlongPoints:
        DrawLinearDimension(pen, kind == kAlongPoints);
        break;
    case kByLines:
    case kByPoints:
        DrawAngularDimension(pen, kind == kByLines);
        break;
    case kDiametric:
        DrawDiametricDimension(pen);
        break;
    case kRadial:
        DrawRadialDimension(pen);
        break;
    case kOrdinate:
        DrawOrdinateDimension(pen, (dimension.kind & kOfX) != 0);
        break;
    case kArcLength:
        DrawArcLengthDimension(pen);
        break;
    case kJogged:
        DrawJoggedDimension(pen);
        break;
    default:
        pen.Report(Finding::NotShown, "its kind is not known");
    }
    pen.Finish();
}

} // namespace prepare
