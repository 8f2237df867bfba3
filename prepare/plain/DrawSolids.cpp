#include "prepare/plain/DrawSolids.h"

#include <array>
#include <vector>

namespace prepare {

namespace {

constexpr std::size_t kCorners = 4;

// A fourth corner that is missing, or on the third, makes a triangle.
Point3 FourthOf(const Solid& solid)
{
    return solid.hasFourth ? solid.corners[3] : solid.corners[2];
}

bool IsEdgeHidden(const Solid& face, std::size_t edge)
{
    return (face.hiddenEdges >> edge & 1) != 0;
}

// The runs of visible edges, each as one line or polyline.
void DrawVisibleEdges(const Solid& face, const std::array<Point2, kCorners>& corners, Pen& pen)
{
    std::vector<Point2> run;
    const auto end = [&] {
        if (run.size() == 2)
            pen.Line(run[0], run[1]);
        else
            pen.Polyline(run, false);
        run.clear();
    };
    for (std::size_t edge = 0; edge < kCorners; ++edge) {
        const Point2 from = corners[edge], to = corners[(edge + 1) % kCorners];
        if (from == to)
            continue;
        if (IsEdgeHidden(face, edge)) {
            end();
            continue;
        }
        if (run.empty())
            run.push_back(from);
        run.push_back(to);
    }
    end();
}

} // namespace

void DrawSolid(const Solid& solid, Pen& pen)
{
    const Matrix matrix = pen.OfObject();
    const Point3 fourth = FourthOf(solid);
    const Point2 outline[kCorners] = {matrix.Flat(solid.corners[0]), matrix.Flat(solid.corners[1]),
                                      matrix.Flat(fourth), matrix.Flat(solid.corners[2])};
    const bool isTriangle = fourth == solid.corners[2];
    pen.Fill({outline, isTriangle ? kCorners - 1 : kCorners});
}

void DrawFace(const Solid& face, Pen& pen)
{
    const Matrix& matrix = pen.Place().matrix;
    const Point3 fourth = FourthOf(face);
    const std::array<Point2, kCorners> corners = {matrix.Flat(face.corners[0]), matrix.Flat(face.corners[1]),
                                                  matrix.Flat(face.corners[2]), matrix.Flat(fourth)};
    const bool isTriangle = fourth == face.corners[2];
    constexpr std::int32_t kAllEdges = 15;
    const std::int32_t counting = isTriangle ? kAllEdges & ~4 : kAllEdges;
    if ((face.hiddenEdges & counting) == 0)
        pen.Polyline({corners.data(), isTriangle ? kCorners - 1 : kCorners}, true);
    else
        DrawVisibleEdges(face, corners, pen);
}

} // namespace prepare
