#include "svghost/Picture.h"

#include "svghost/BoxOfMost.h"
#include "svghost/DrawableNumbers.h"
#include "svghost/StandardScale.h"
#include "svghost/SvgHostDocument.h"

#include <algorithm>
#include <cmath>

namespace svghost {

namespace {

double LongerSide(const ViewBox& box)
{
    return std::max(box.width, box.height);
}

bool HasSheet(const SvgHostWriteOptions& options)
{
    return std::isfinite(options.sheet) && options.sheet > 0;
}

// How far strokes reach beyond the middle of their lines, at most, where the picture without them has that
// longer side. They are a share of the side that the picture has with them and with its margin round them.
double StrokeReach(const PictureLayout& layout, double sheet, double longerSide)
{
    constexpr double kWidestShare = 0.5;
    const double share = std::min(
        std::max(layout.widestStroke / sheet, layout.greatestFactor * kThinnestStroke), kWidestShare);
    return share * longerSide / (1 - share * (1 + 2 * kMargin)) / 2;
}

void Frame(Picture& picture, const Box& box, const PictureLayout& layout, const SvgHostWriteOptions& options)
{
    picture.viewBox = ViewBoxRound(box);
    if (!HasSheet(options))
        return;
    if (!picture.viewBox.isMadeUp)
        picture.viewBox =
            ViewBoxRound(box.Grown(StrokeReach(layout, options.sheet, LongerSide(picture.viewBox))));
    picture.sheetUnit = LongerSide(picture.viewBox) / options.sheet;
}

double ScaleFor(const Box& box, const SvgHostWriteOptions& options)
{
    if (options.usesStandardScale)
        return StandardScale((box.High().x - box.Low().x) * options.unit,
                             (box.High().y - box.Low().y) * options.unit);
    return options.scale > 0 ? options.scale : 1;
}

// Leaves the size in pixels when there is no unit, nothing to measure, or a side that no viewer can hold.
void SetSize(Picture& picture, const Box& box, const SvgHostWriteOptions& options)
{
    if (picture.viewBox.isMadeUp || !(options.unit > 0) || !std::isfinite(options.unit))
        return;
    const double scale = ScaleFor(box, options);
    const double width = picture.viewBox.width * options.unit / scale;
    const double height = picture.viewBox.height * options.unit / scale;
    // Numbers smaller than a float are not drawable either, and would be written as 0.
    const auto isSide = [](double side) { return IsDrawable(side) && static_cast<float>(side) > 0; };
    if (!isSide(width) || !isSide(height))
        return;
    picture.width = width;
    picture.height = height;
    picture.scale = scale;
}

bool HasFrame(const SvgHostWriteOptions& options)
{
    const SvgHostViewBox& frame = options.frame;
    return frame.width > 0 && frame.height > 0 && IsDrawable(frame.width) && IsDrawable(frame.height) &&
           IsDrawable(frame.x) && IsDrawable(frame.y);
}

// What is framed is known, whatever is drawn.
void UseFrame(Picture& picture, const SvgHostWriteOptions& options)
{
    const SvgHostViewBox& frame = options.frame;
    picture.viewBox = {frame.x, frame.y, frame.width, frame.height, false};
    picture.sheetUnit = HasSheet(options) ? LongerSide(picture.viewBox) / options.sheet : 0;
    Box box;
    box.Add({frame.x, frame.y});
    box.Add({frame.x + frame.width, frame.y + frame.height});
    SetSize(picture, box, options);
}

} // namespace

double Picture::ShownWidth(double given) const
{
    if (sheetUnit == 0 || given == 0)
        return given;
    return std::max(given * sheetUnit, LongerSide(viewBox) * kThinnestStroke);
}

Picture PictureOf(const SvgHostDocument& document, const PictureLayout& layout,
                  const SvgHostWriteOptions& options, bool wantsFilled)
{
    Picture picture;
    const Box all = document.root.bare;
    const bool needsMost = wantsFilled || options.showsMost;
    const Box most = needsMost ? BoxOfMost(document) : all;
    if (LongerSide(all) > 0)
        picture.filled = std::min(1.0, LongerSide(most) / LongerSide(all));
    picture.isCropped = options.showsMost && most != all;
    if (HasFrame(options)) {
        UseFrame(picture, options);
        return picture;
    }
    const Box shown = picture.isCropped ? most : all;
    Frame(picture, picture.isCropped || HasSheet(options) ? shown : document.root.box, layout, options);
    SetSize(picture, shown, options);
    return picture;
}

} // namespace svghost
