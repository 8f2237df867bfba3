// The frames of IMAGE, underlays, OLEFRAME and OLE2FRAME; what WIPEOUT hides.
#include "prepare/plain/Geometry.h"

#include <vector>

namespace prepare {

namespace {

constexpr std::int32_t kUsesClip = 4;

void DrawFrame(std::vector<Point2> corners, Pen& pen)
{
    if (corners.size() > 2 && corners.front() == corners.back())
        corners.pop_back();
    pen.Polyline(corners, true);
    pen.Report(Finding::Changed, "drawn as its frame");
}

// Two corners of a rectangle, or a polygon.
std::vector<Point2> Outline(const std::vector<Point2>& clip)
{
    if (clip.size() != 2)
        return clip;
    return {clip[0], {clip[1].x, clip[0].y}, clip[1], {clip[0].x, clip[1].y}};
}

// Pixels are counted down from the top; their coordinates are those of their middles.
std::vector<Point2> CornersOf(const Image& image, const Pen& pen)
{
    const bool isClipped = image.isClipped != 0 && (image.display & kUsesClip) != 0 && image.clip.size() >= 2;
    const std::vector<Point2> whole = {{-0.5, -0.5}, {image.size.x - 0.5, image.size.y - 0.5}};
    std::vector<Point2> corners = Outline(isClipped ? image.clip : whole);
    for (Point2& corner : corners) {
        const double right = corner.x + 0.5, up = image.size.y - corner.y - 0.5;
        corner = pen.Place().matrix.Flat(image.point + right * image.u + up * image.v);
    }
    return corners;
}

} // namespace

void DrawImage(const Image& image, Pen& pen)
{
    DrawFrame(CornersOf(image, pen), pen);
}

void DrawWipeout(const Image& wipeout, Pen& pen)
{
    pen.Mask(CornersOf(wipeout, pen));
}

void DrawUnderlay(const Image& underlay, Pen& pen)
{
    if (underlay.clip.size() < 2) {
        pen.Report(Finding::NotShown, "its size is not in the drawing");
        return;
    }
    const Matrix matrix =
        pen.OfObject() * Moved(underlay.point) * Turned(Radians(underlay.rotation)) * Scaled(underlay.scale);
    std::vector<Point2> corners = Outline(underlay.clip);
    for (Point2& corner : corners)
        corner = matrix.Flat({corner.x, corner.y, 0});
    DrawFrame(std::move(corners), pen);
}

void DrawOleFrame(const OleFrame& frame, Pen& pen)
{
    const Point3 a = frame.upperLeft, b = frame.lowerRight;
    if (a == b) {
        pen.Report(Finding::NotShown, "its size is not in the drawing");
        return;
    }
    const Matrix& matrix = pen.Place().matrix;
    DrawFrame({matrix.Flat(a), matrix.Flat({b.x, a.y, a.z}), matrix.Flat(b), matrix.Flat({a.x, b.y, b.z})},
              pen);
}

} // namespace prepare
