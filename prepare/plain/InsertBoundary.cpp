#include "prepare/plain/InsertBoundary.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

namespace prepare {

namespace {

constexpr std::size_t kNumbersOfMatrix = 12;

// Three rows of four numbers, of which the last column moves.
Matrix MatrixOf(std::span<const double> rows)
{
    const auto column = [&](std::size_t i) { return Point3{rows[i], rows[i + 4], rows[i + 8]}; };
    return {column(0), column(1), column(2), column(3)};
}

// The identity where there is no inverse.
Matrix Inverse(const Matrix& matrix)
{
    const double volume = Dot(matrix.x, Cross(matrix.y, matrix.z));
    if (volume == 0 || !std::isfinite(volume))
        return {};
    const Point3 x = (1 / volume) * Cross(matrix.y, matrix.z), y = (1 / volume) * Cross(matrix.z, matrix.x),
                 z = (1 / volume) * Cross(matrix.x, matrix.y);
    Matrix inverse{{x.x, y.x, z.x}, {x.y, y.y, z.y}, {x.z, y.z, z.z}, {}};
    inverse.origin = -1 * inverse.Direction(matrix.origin);
    return inverse;
}

// From the boundary's own coordinates to the block's.
Matrix ToBlock(const SpatialFilter& filter)
{
    if (filter.numbers.size() < 2 * kNumbersOfMatrix)
        return {};
    const std::span<const double> last = std::span(filter.numbers).last(2 * kNumbersOfMatrix);
    return MatrixOf(last.first(kNumbersOfMatrix)) * Inverse(MatrixOf(last.last(kNumbersOfMatrix)));
}

} // namespace

std::vector<Point2> BoundaryOf(const SpatialFilter& filter, const Matrix& placement)
{
    std::vector<Point2> corners = filter.boundary;
    if (corners.size() == 2)
        corners = {corners[0], {corners[1].x, corners[0].y}, corners[1], {corners[0].x, corners[1].y}};
    const Matrix matrix = placement * ToBlock(filter);
    for (Point2& corner : corners)
        corner = matrix.Flat({corner.x, corner.y, 0});
    return corners;
}

} // namespace prepare
