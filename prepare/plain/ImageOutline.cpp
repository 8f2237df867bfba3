#include "prepare/plain/ImageOutline.h"

namespace prepare {

std::vector<Point2> OutlineOf(const std::vector<Point2>& clip)
{
    if (clip.size() != 2)
        return clip;
    return {clip[0], {clip[1].x, clip[0].y}, clip[1], {clip[0].x, clip[1].y}};
}

// Pixels are counted down from the top; their coordinates are those of their middles.
std::vector<Point2> CornersOf(const Image& image, const Pen& pen)
{
    constexpr std::int32_t kUsesClip = 4;
    const bool isClipped = image.isClipped != 0 && (image.display & kUsesClip) != 0 && image.clip.size() >= 2;
    const std::vector<Point2> whole = {{-0.5, -0.5}, {image.size.x - 0.5, image.size.y - 0.5}};
    std::vector<Point2> corners = OutlineOf(isClipped ? image.clip : whole);
    for (Point2& corner : corners) {
        const double right = corner.x + 0.5, up = image.size.y - corner.y - 0.5;
        corner = pen.Place().matrix.Flat(image.point + right * image.u + up * image.v);
    }
    return corners;
}

} // namespace prepare
