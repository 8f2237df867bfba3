#include "support/Stage.h"

#include <gtest/gtest.h>

#include <limits>

namespace prepare {
namespace {

PolylineVertex At(double x, double y, std::int32_t flags = 64)
{
    PolylineVertex vertex;
    vertex.point = {x, y, 0};
    vertex.flags = flags;
    return vertex;
}

Polyline Grid(std::int32_t rows, std::int32_t columns, std::int32_t flags)
{
    Polyline mesh;
    mesh.flags = flags;
    mesh.mCount = rows;
    mesh.nCount = columns;
    for (std::int32_t row = 0; row < rows; ++row) {
        for (std::int32_t column = 0; column < columns; ++column)
            mesh.vertices.push_back(At(column, row));
    }
    return mesh;
}

PolylineVertex FaceOf(std::vector<std::int32_t> corners, std::int32_t colour = kByLayer)
{
    PolylineVertex face = At(0, 0, 128);
    std::copy(corners.begin(), corners.end(), face.corners);
    face.colour = colour;
    return face;
}

Polyline Polyface(std::vector<PolylineVertex> faces)
{
    Polyline polyface;
    polyface.flags = 64;
    polyface.vertices = {At(0, 0, 192), At(1, 0, 192), At(1, 1, 192), At(0, 1, 192)};
    polyface.vertices.insert(polyface.vertices.end(), faces.begin(), faces.end());
    return polyface;
}

TEST(DrawPolygonMesh, HasALineForEachRowAndColumn)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Grid(2, 3, 16)),
              (Lines{"polyline 0,0 1,0 2,0", "polyline 0,1 1,1 2,1", "polyline 0,0 0,1", "polyline 1,0 1,1",
                     "polyline 2,0 2,1"}));
}

TEST(DrawPolygonMesh, IsClosedInEitherDirection)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Grid(2, 2, 16 | 1)), (Lines{"polyline 0,0 1,0", "polyline 0,1 1,1",
                                                     "closed polyline 0,0 0,1", "closed polyline 1,0 1,1"}));
    EXPECT_EQ(stage.Draw(Grid(2, 2, 16 | 32)), (Lines{"closed polyline 0,0 1,0", "closed polyline 0,1 1,1",
                                                      "polyline 0,0 0,1", "polyline 1,0 1,1"}));
}

TEST(DrawPolygonMesh, OfASmoothSurfaceOnlyItsOwnPointsAreDrawn)
{
    Stage stage;
    Polyline mesh;
    mesh.flags = 16 | 4;
    mesh.mCount = mesh.nCount = 5;
    mesh.mDensity = mesh.nDensity = 2;
    mesh.vertices = {At(9, 9, 64 | 16), At(0, 0, 64 | 8), At(1, 0, 64 | 8),
                     At(9, 9, 64 | 16), At(0, 1, 64 | 8), At(1, 1, 64 | 8)};
    EXPECT_EQ(stage.Draw(mesh),
              (Lines{"polyline 0,0 1,0", "polyline 0,1 1,1", "polyline 0,0 0,1", "polyline 1,0 1,1"}));
}

TEST(DrawPolygonMesh, CountsThatAreNotTrueAreCutToWholeRows)
{
    Stage stage;
    Polyline mesh = Grid(2, 2, 16);
    mesh.mCount = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(stage.Draw(mesh).size(), 4U);
    mesh.mCount = 2;
    mesh.nCount = 3;
    EXPECT_EQ(stage.Draw(mesh), Lines{"polyline 0,0 1,0 0,1"});
    mesh.nCount = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(stage.Draw(mesh), Lines{"polyline 0,0 1,0 0,1 1,1"});
    mesh.nCount = -1;
    EXPECT_EQ(stage.Draw(mesh), Lines{});
    mesh.vertices.clear();
    mesh.nCount = 2;
    EXPECT_EQ(stage.Draw(mesh), Lines{});
}

TEST(DrawPolyface, SharedEdgesAreDrawnOnce)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Polyface({FaceOf({1, 2, 3}), FaceOf({3, 4, 1})})),
              (Lines{"line 0,0 1,0", "line 0,0 1,1", "line 0,0 0,1", "line 1,0 1,1", "line 1,1 0,1"}));
}

TEST(DrawPolyface, NegativeCornersBeginHiddenEdges)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Polyface({FaceOf({1, 2, -3}), FaceOf({-3, 4, -1}), FaceOf({-1, 0, 2})})),
              (Lines{"line 0,0 1,0", "line 0,0 0,1", "line 1,0 1,1"}));
}

TEST(DrawPolyface, FacesHaveColoursOfTheirOwn)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Polyface({FaceOf({1, 2}, 3), FaceOf({3, 4})})),
              (Lines{"line 0,0 1,0 colour 3", "line 1,1 0,1"}));
}

TEST(DrawPolyface, CornersThatAreNoVerticesAreLeftOut)
{
    Stage stage;
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(stage.Draw(Polyface({FaceOf({1, 5}), FaceOf({kMost, 1, kLeast}), FaceOf({2, 3, kLeast})})),
              (Lines{"line 1,0 1,1"}));
}

TEST(DrawMesh, ItsEdgesAreThoseOfItsFaces)
{
    Stage stage;
    Mesh mesh;
    mesh.vertices = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    mesh.faces = {3, 0, 1, 2, 3, 2, 3, 0};
    mesh.edges = {1, 3};
    EXPECT_EQ(stage.Draw(mesh),
              (Lines{"line 0,0 1,0", "line 0,0 1,1", "line 0,0 0,1", "line 1,0 1,1", "line 1,1 0,1"}));
    mesh.faces.clear();
    EXPECT_EQ(stage.Draw(mesh), Lines{"line 1,0 0,1"});
}

TEST(DrawMesh, CountsAndIndicesThatAreNotTrueAreLeftOut)
{
    Stage stage;
    Mesh mesh;
    mesh.vertices = {{0, 0, 0}, {1, 0, 0}};
    mesh.faces = {2, 0, 1, -5, 2, -1, 0, 2, 1, 7, 9, 0, 1};
    EXPECT_EQ(stage.Draw(mesh), Lines{"line 0,0 1,0"});
}

} // namespace
} // namespace prepare
