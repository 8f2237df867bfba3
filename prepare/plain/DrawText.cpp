#include "prepare/plain/DrawText.h"

#include "base/Pi.h"
#include "prepare/plain/TextCodes.h"
#include "prepare/plain/TextMetrics.h"
#include "prepare/plain/TextPieces.h"
#include "prepare/plain/TextStyles.h"
#include "prepare/plain/TextWords.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

enum Horizontal { kLeft, kCentre, kRight, kAligned, kMiddle, kFit };
enum Vertical { kBaseLine, kBottom, kHalfWay, kTop };

// Where a text is and how it is laid down, in object coordinates.
struct TextLayout {
    Point3 point;
    Point3 direction{1, 0, 0};
    Anchor anchor = Anchor::Start;
    double height = 0;
    double widthFactor = 1;
    double shift = 0; // from the point down to the base line
};

bool IsBetweenPoints(const Text& entity)
{
    return entity.hasAlignment && (entity.horizontal == kAligned || entity.horizontal == kFit) &&
           Length(entity.alignment - entity.point) > 0;
}

// The drawing's height was computed from its own font, which is not known here: it counts where that may be
// the whole difference to the height by the metrics.
bool MayBeOfAnotherFont(double height, double computed)
{
    constexpr double kMost = 1.35;
    return height < computed * kMost && computed < height * kMost;
}

// The text fills the distance between its points. Its middle is the anchor: if another font is
// wider or narrower, both ends share the difference.
void FillBetweenPoints(const Text& entity, const Words& words, TextLayout& layout)
{
    const Point3 whole = entity.alignment - entity.point;
    const double distance = Length(whole);
    layout.direction = (1 / distance) * whole;
    layout.point = 0.5 * (entity.point + entity.alignment);
    layout.anchor = Anchor::Middle;
    if (!(words.width > 0))
        return;
    if (entity.horizontal == kAligned) {
        const double computed = distance / (words.width * layout.widthFactor);
        if (!MayBeOfAnotherFont(layout.height, computed))
            layout.height = computed;
    }
    layout.widthFactor = distance / (words.width * layout.height);
}

double ShiftOf(const Text& entity, std::string_view text)
{
    if (entity.horizontal == kMiddle) {
        const InkReach reach = InkReachOf(text);
        return (reach.bottom + reach.top) / 2;
    }
    switch (entity.vertical) {
    case kBottom:
        return -kDescent;
    case kHalfWay:
        return 0.5;
    case kTop:
        return 1;
    default:
        return 0;
    }
}

void AlignAtPoint(const Text& entity, const Words& words, TextLayout& layout)
{
    const double angle = entity.rotation * kRadiansPerDegree;
    layout.direction = {std::cos(angle), std::sin(angle), 0};
    // The first point is the start of the base line, as whoever wrote the file computed it.
    layout.point = entity.point;
    const bool isAtFirst = entity.horizontal == kLeft && entity.vertical == kBaseLine;
    if (isAtFirst || !entity.hasAlignment)
        return;
    layout.point = entity.alignment;
    if (entity.horizontal == kCentre || entity.horizontal == kMiddle)
        layout.anchor = Anchor::Middle;
    else if (entity.horizontal == kRight)
        layout.anchor = Anchor::End;
    layout.shift = ShiftOf(entity, words.text) * layout.height;
}

TextLayout LayoutOf(const Text& entity, const Words& words, const Drawing& drawing)
{
    TextLayout layout;
    layout.height = TextHeightOf(entity.height, drawing.FindTextStyle(entity.style), drawing.header);
    layout.widthFactor = WidthFactorOf(entity.widthFactor);
    if (IsBetweenPoints(entity))
        FillBetweenPoints(entity, words, layout);
    else
        AlignAtPoint(entity, words, layout);
    return layout;
}

TextFrame FrameOf(const Text& entity, const TextLayout& layout, const Matrix& toPlane)
{
    constexpr std::int32_t kBackward = 2, kUpsideDown = 4;
    const Matrix fromObject = toPlane * FromObject(entity.extrusion);
    const Point3 across{-layout.direction.y, layout.direction.x, 0};
    TextFrame frame;
    frame.origin = fromObject.Flat(layout.point);
    frame.u =
        ((entity.generation & kBackward) != 0 ? -1.0 : 1.0) * fromObject.FlatDirection(layout.direction);
    frame.v = ((entity.generation & kUpsideDown) != 0 ? -1.0 : 1.0) * fromObject.FlatDirection(across);
    return frame;
}

TextPiece PieceOf(const Text& entity, Words&& words, const TextLayout& layout)
{
    const double scale = layout.height * layout.widthFactor;
    TextPiece piece;
    piece.text = std::move(words.text);
    piece.v = -layout.shift;
    piece.height = layout.height;
    piece.widthFactor = layout.widthFactor;
    piece.slant = SlantOf(entity.oblique);
    piece.width = words.width * scale;
    piece.anchor = layout.anchor;
    piece.linedParts = std::move(words.linedParts);
    for (LinedPart& part : piece.linedParts) {
        part.start *= scale;
        part.end *= scale;
    }
    return piece;
}

std::string_view ShownText(const Text& entity)
{
    constexpr std::int32_t kConstant = 2;
    const bool showsTag = entity.type == EntityType::AttDef && (entity.flags & kConstant) == 0;
    return showsTag && !entity.tag.empty() ? entity.tag : entity.text;
}

} // namespace

void DrawText(const Text& entity, const Placement& placement, std::string_view typeName)
{
    const Drawing& drawing = placement.drawing;
    Words words = ReadWords(ShownText(entity), drawing.header.Text("$DWGCODEPAGE"));
    if (words.hasWrongCodes)
        placement.report.Add(Finding::Repaired, typeName, kWrongCode, entity.line);
    const TextLayout layout = LayoutOf(entity, words, drawing);
    TextDrawer drawer(placement, FrameOf(entity, layout, placement.matrix), typeName, entity.line,
                      entity.style);
    drawer.Draw(placement.style, PieceOf(entity, std::move(words), layout));

    constexpr std::int32_t kVertical = 4;
    const TextStyle* style = drawing.FindTextStyle(entity.style);
    if (style != nullptr && (style->flags & kVertical) != 0)
        placement.report.Add(Finding::Changed, typeName, "vertical writing is drawn along a line",
                             entity.line);
}

} // namespace prepare
