#include "prepare/plain/DrawFrames.h"

#include "prepare/plain/ImageOutline.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace prepare {

namespace {

bool HasSize(const std::vector<Point2>& corners)
{
    return std::any_of(corners.begin(), corners.end(),
                       [&](Point2 corner) { return IsDrawable(corner) && !(corner == corners.front()); });
}

void DrawFrame(std::vector<Point2> corners, Pen& pen)
{
    if (corners.size() > 2 && corners.front() == corners.back())
        corners.pop_back();
    pen.Polyline(corners, true);
    if (HasSize(corners))
        pen.Report(Finding::Changed, "drawn as its frame");
}

} // namespace

void DrawImage(const Image& image, Pen& pen)
{
    DrawFrame(CornersOf(image, pen), pen);
}

void DrawUnderlay(const Image& underlay, Pen& pen)
{
    if (underlay.clip.size() < 2) {
        pen.Report(Finding::NotShown, "its size is not in the drawing");
        return;
    }
    const Matrix matrix =
        pen.OfObject() * Moved(underlay.point) * Turned(Radians(underlay.rotation)) * Scaled(underlay.scale);
    std::vector<Point2> corners = OutlineOf(underlay.clip);
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
