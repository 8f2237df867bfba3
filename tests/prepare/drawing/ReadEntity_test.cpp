#include "prepare/drawing/RecordReader.h"
#include "prepare/support/ReadText.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(ReadEntity, CommonFieldsAreReadForAnyType)
{
    const ReadBlock block({{0, "LINE"},       {5, "2F"},      {102, "{ACAD_REACTORS"},
                           {330, "99"},       {102, "}"},     {330, "1F"},
                           {330, "77"},       {8, " Walls "}, {6, "DASHED"},
                           {48, "2.5"},       {62, "256"},    {62, "3"},
                           {420, "16711680"}, {370, "35"},    {60, "1"},
                           {67, "1"},         {410, "Sheet"}, {39, "nan"},
                           {210, "0"},        {220, "0"},     {230, "-1"},
                           {10, "1"},         {20, "2"},      {30, "3"},
                           {11, "4"},         {21, "5"},      {31, "6"}});
    const Line& line = block.As<Line>();
    EXPECT_EQ(line.line, 10u);
    EXPECT_EQ(line.handle, 0x2Fu);
    EXPECT_EQ(line.owner, 0x1Fu);
    EXPECT_EQ(block.Text(line.layer), "Walls");
    EXPECT_EQ(block.Text(line.lineType), "DASHED");
    EXPECT_EQ(line.lineTypeScale, 2.5);
    EXPECT_EQ(line.colour, 3);
    EXPECT_EQ(line.trueColour, 0xFF0000);
    EXPECT_EQ(line.weight, 35);
    EXPECT_EQ(line.isInvisible, 1);
    EXPECT_EQ(line.isInPaperSpace, 1);
    EXPECT_EQ(block.Text(line.layout), "Sheet");
    EXPECT_EQ(line.extrusion, (Point3{0, 0, -1}));
    EXPECT_EQ(line.fault, Fault::None); // nothing is drawn by the thickness
    EXPECT_EQ(line.start, (Point3{1, 2, 3}));
    EXPECT_EQ(line.end, (Point3{4, 5, 6}));
}

TEST(ReadEntity, FieldsThatAreMissingHaveTheFormatsDefaults)
{
    const ReadBlock block({{0, "ELLIPSE"}});
    const Ellipse& ellipse = block.As<Ellipse>();
    EXPECT_EQ(ellipse.colour, kByLayer);
    EXPECT_EQ(ellipse.weight, kWeightByLayer);
    EXPECT_EQ(ellipse.trueColour, kNoTrueColour);
    EXPECT_EQ(ellipse.ratio, 1);
    EXPECT_EQ(ellipse.extrusion, (Point3{0, 0, 1}));
}

TEST(ReadEntity, AGroupEndsAtTheLatestWithTheEntity)
{
    const ReadBlock block({{0, "LINE"}, {102, "{OPEN"}, {8, "lost"}, {0, "CIRCLE"}, {40, "2"}});
    ASSERT_EQ(block.Count(), 2u);
    EXPECT_EQ(block.As<Line>().layer, kNoName);
    EXPECT_EQ(static_cast<const Circle&>(*block.Entities()[1]).radius, 2);
}

TEST(ReadEntity, AnOpenGroupEndsBeforeExtendedData)
{
    const ReadBlock block({{0, "DIMENSION"},
                           {102, "{OPEN"},
                           {8, "lost"},
                           {1001, "ACAD"},
                           {1000, "DSTYLE"},
                           {1002, "{"},
                           {1070, "41"},
                           {1040, "2.5"},
                           {1002, "}"}});
    EXPECT_EQ(block.As<Dimension>().layer, kNoName);
    EXPECT_EQ(block.As<Dimension>().overrides,
              (std::vector<std::pair<std::int32_t, std::string>>{{41, "2.5"}}));
}

TEST(ReadEntity, ExtendedDataIsNoField)
{
    const ReadBlock block({{0, "ARC"}, {40, "2"}, {1001, "X"}, {1010, "9"}, {1040, "9"}, {1070, "9"}});
    EXPECT_EQ(block.As<Arc>().radius, 2);
    EXPECT_EQ(block.As<Arc>().centre, Point3{});
}

TEST(ReadEntity, TypesOfOneRecordKeepTheTypeOfTheFile)
{
    const ReadBlock block({{0, "3DFACE"},
                           {13, "1"},
                           {70, "5"},
                           {0, "TRACE"},
                           {0, "3DLINE"},
                           {11, "3"},
                           {0, "XLINE"},
                           {0, "WIPEOUT"},
                           {0, "OLEFRAME"},
                           {0, "ARC_DIMENSION"}});
    const Solid& face = block.As<Solid>();
    EXPECT_EQ(face.type, EntityType::Face);
    EXPECT_TRUE(face.hasFourth);
    EXPECT_EQ(face.corners[3].x, 1);
    EXPECT_EQ(face.hiddenEdges, 5);
    std::vector<EntityType> types;
    for (const auto& entity : block.Entities())
        types.push_back(entity->type);
    EXPECT_EQ(types, (std::vector{EntityType::Face, EntityType::Trace, EntityType::Line3d, EntityType::XLine,
                                  EntityType::Wipeout, EntityType::OleFrame, EntityType::Dimension}));
    EXPECT_FALSE(static_cast<const Solid&>(*block.Entities()[1]).hasFourth);
    EXPECT_EQ(static_cast<const Line&>(*block.Entities()[2]).end.x, 3);
}

TEST(ReadEntity, TypesKeepTheirNameWhateverALayerIsCalled)
{
    const ReadBlock block({{0, "POINT"}, {8, "Text"}, {0, "TEXT"}, {8, "Point"}, {0, "line"}});
    EXPECT_EQ(block.read.Name(*block.Entities()[0]), "POINT Text;");
    EXPECT_EQ(block.read.Name(*block.Entities()[1]), "TEXT Point;");
    EXPECT_EQ(block.read.Name(*block.Entities()[2]), "LINE ;");
    EXPECT_EQ(block.Entities()[2]->type, EntityType::Line);
}

TEST(ReadEntity, LwPolylineVerticesBeginWithTheirX)
{
    const ReadBlock block({{0, "LWPOLYLINE"},
                           {70, "1"},
                           {38, "7"},
                           {43, "0.5"},
                           {10, "1"},
                           {20, "2"},
                           {42, "1"},
                           {10, "3"},
                           {20, "4"},
                           {40, "5"},
                           {41, "6"}});
    const LwPolyline& polyline = block.As<LwPolyline>();
    ASSERT_EQ(polyline.vertices.size(), 2u);
    EXPECT_EQ(polyline.flags, 1);
    EXPECT_EQ(polyline.elevation, 7);
    EXPECT_EQ(polyline.vertices[0].point, (Point3{1, 2, 0}));
    EXPECT_EQ(polyline.vertices[0].bulge, 1);
    EXPECT_EQ(polyline.vertices[0].startWidth, 0.5);
    EXPECT_EQ(polyline.vertices[1].point, (Point3{3, 4, 0}));
    EXPECT_EQ(polyline.vertices[1].startWidth, 5);
    EXPECT_EQ(polyline.vertices[1].endWidth, 6);
}

TEST(ReadEntity, PolylineTakesTheVerticesUpToSeqend)
{
    const ReadBlock block(
        {{0, "POLYLINE"}, {66, "1"},     {70, "64"},    {30, "9"}, {40, "0.5"}, {41, "0.25"}, {71, "4"},
         {72, "1"},       {0, "VERTEX"}, {8, "0"},      {10, "1"}, {20, "2"},   {30, "3"},    {42, "0.5"},
         {70, "192"},     {0, "VERTEX"}, {62, "2"},     {40, "8"}, {70, "128"}, {71, "1"},    {72, "-2"},
         {73, "3"},       {74, "4"},     {0, "SEQEND"}, {8, "x"},  {0, "POINT"}});
    ASSERT_EQ(block.Count(), 2u);
    const Polyline& polyline = block.As<Polyline>();
    EXPECT_EQ(polyline.flags, 64);
    EXPECT_EQ(polyline.elevation.z, 9);
    EXPECT_EQ(polyline.mCount, 4);
    EXPECT_EQ(polyline.nCount, 1);
    ASSERT_EQ(polyline.vertices.size(), 2u);
    EXPECT_EQ(polyline.vertices[0].point, (Point3{1, 2, 3}));
    EXPECT_EQ(polyline.vertices[0].bulge, 0.5);
    EXPECT_EQ(polyline.vertices[0].startWidth, 0.5);
    EXPECT_EQ(polyline.vertices[0].endWidth, 0.25);
    EXPECT_EQ(polyline.vertices[0].flags, 192);
    EXPECT_EQ(polyline.vertices[1].startWidth, 8);
    EXPECT_EQ(polyline.vertices[1].colour, 2);
    EXPECT_EQ(polyline.vertices[1].corners[1], -2);
    EXPECT_EQ(polyline.vertices[1].corners[3], 4);
    EXPECT_EQ(block.read.Found(Finding::Repaired, "POLYLINE"), "");
}

TEST(ReadEntity, PolylineWithoutSeqendEndsAtTheNextEntity)
{
    const ReadBlock block({{0, "POLYLINE"}, {0, "VERTEX"}, {10, "1"}, {0, "POINT"}});
    ASSERT_EQ(block.Count(), 2u);
    EXPECT_EQ(block.As<Polyline>().vertices.size(), 1u);
    EXPECT_EQ(block.read.Found(Finding::Repaired, "POLYLINE"), "ends without SEQEND at 10, 1;");
}

TEST(ReadEntity, InsertTakesTheAttributesThatFollowWithOrWithoutItsFlag)
{
    for (const std::string flag : {"0", "1"}) {
        const ReadBlock block({{0, "INSERT"}, {66, flag}, {2, "Door"},   {10, "1"},     {41, "2"},
                               {42, "3"},     {43, "4"},  {50, "90"},    {70, "5"},     {71, "6"},
                               {44, "7"},     {45, "8"},  {0, "ATTRIB"}, {1, " A1 "},   {2, "NUMBER"},
                               {70, "1"},     {74, "2"},  {73, "9"},     {0, "SEQEND"}, {0, "POINT"}});
        ASSERT_EQ(block.Count(), 2u);
        const Insert& insert = block.As<Insert>();
        EXPECT_EQ(block.Text(insert.block), "Door");
        EXPECT_EQ(insert.scale, (Point3{2, 3, 4}));
        EXPECT_EQ(insert.rotation, 90);
        EXPECT_EQ(insert.columns, 5);
        EXPECT_EQ(insert.rows, 6);
        EXPECT_EQ(insert.columnSpacing, 7);
        EXPECT_EQ(insert.rowSpacing, 8);
        ASSERT_EQ(insert.attributes.size(), 1u);
        EXPECT_EQ(insert.attributes[0]->type, EntityType::Attrib);
        EXPECT_EQ(insert.attributes[0]->text, " A1 ");
        EXPECT_EQ(insert.attributes[0]->tag, "NUMBER");
        EXPECT_EQ(insert.attributes[0]->flags, 1);
        EXPECT_EQ(insert.attributes[0]->vertical, 2);
    }
}

TEST(ReadEntity, SplineListsItsNumbersAndAHelixStopsAtItsOwn)
{
    const ReadBlock block({{0, "HELIX"}, {100, "AcDbSpline"}, {70, "4"},  {71, "2"},  {40, "0"},
                           {40, "1"},    {41, "0.5"},         {10, "1"},  {20, "2"},  {30, "3"},
                           {10, "4"},    {20, "5"},           {11, "6"},  {21, "7"},  {31, "8"},
                           {12, "1"},    {100, "AcDbHelix"},  {10, "99"}, {40, "99"}, {41, "99"}});
    const Spline& spline = block.As<Spline>();
    EXPECT_EQ(spline.type, EntityType::Helix);
    EXPECT_EQ(spline.degree, 2);
    EXPECT_EQ(spline.knots, (std::vector<double>{0, 1}));
    EXPECT_EQ(spline.weights, (std::vector<double>{0.5}));
    EXPECT_EQ(spline.controlPoints, (std::vector<Point3>{{1, 2, 3}, {4, 5, 0}}));
    EXPECT_EQ(spline.fitPoints, (std::vector<Point3>{{6, 7, 8}}));
    EXPECT_EQ(spline.startTangent.x, 1);
}

TEST(ReadEntity, MeshHasItsListsApart)
{
    const ReadBlock block({{0, "MESH"},
                           {91, "0"},
                           {92, "2"},
                           {10, "1"},
                           {20, "2"},
                           {30, "3"},
                           {10, "4"},
                           {93, "3"},
                           {90, "2"},
                           {90, "0"},
                           {90, "1"},
                           {94, "1"},
                           {90, "5"},
                           {90, "6"},
                           {95, "1"},
                           {90, "9"}});
    const Mesh& mesh = block.As<Mesh>();
    EXPECT_EQ(mesh.vertices, (std::vector<Point3>{{1, 2, 3}, {4, 0, 0}}));
    EXPECT_EQ(mesh.faces, (std::vector<std::int32_t>{2, 0, 1}));
    EXPECT_EQ(mesh.edges, (std::vector<std::int32_t>{5, 6}));
}

TEST(ReadEntity, MultiLineHasParametersForEachElementOfEachVertex)
{
    const ReadBlock block({{0, "MLINE"}, {2, "STANDARD"}, {340, "18"}, {40, "20"},  {70, "1"},    {71, "3"},
                           {73, "2"},    {11, "1"},       {21, "2"},   {31, "3"},   {12, "1"},    {22, "0"},
                           {13, "0"},    {23, "1"},       {74, "2"},   {41, "0.5"}, {41, "0.25"}, {75, "0"},
                           {74, "1"},    {41, "-0.5"},    {75, "0"},   {11, "5"}});
    const MultiLine& line = block.As<MultiLine>();
    EXPECT_EQ(line.styleHandle, 0x18u);
    EXPECT_EQ(line.scale, 20);
    ASSERT_EQ(line.vertices.size(), 2u);
    EXPECT_EQ(line.vertices[0].point, (Point3{1, 2, 3}));
    EXPECT_EQ(line.vertices[0].mitre, (Point3{0, 1, 0}));
    EXPECT_EQ(line.vertices[0].parameters, (std::vector<std::vector<double>>{{0.5, 0.25}, {-0.5}}));
}

TEST(ReadEntity, MultiLeaderReadsItsPartsInBraces)
{
    const ReadBlock block({{0, "MULTILEADER"},
                           {330, "E"},
                           {300, "CONTEXT_DATA{"},
                           {40, "2"},
                           {10, "0"},
                           {41, "3"},
                           {140, "4"},
                           {145, "1.5"},
                           {304, "Note"},
                           {172, "3"},
                           {12, "5"},
                           {340, "11"},
                           {302, "LEADER{"},
                           {290, "1"},
                           {10, "6"},
                           {20, "7"},
                           {11, "1"},
                           {40, "8"},
                           {304, "LEADER_LINE{"},
                           {10, "9"},
                           {20, "10"},
                           {91, "0"},
                           {305, "}"},
                           {304, "LEADER_LINE{"},
                           {10, "11"},
                           {305, "}"},
                           {303, "}"},
                           {272, "9"},
                           {301, "}"},
                           {170, "2"},
                           {172, "2"},
                           {41, "99"},
                           {340, "12"},
                           {330, "1F"},
                           {177, "0"},
                           {302, "7b"}});
    const MultiLeader& leader = block.As<MultiLeader>();
    EXPECT_EQ(leader.textHeight, 3);
    EXPECT_EQ(leader.arrowSize, 4);
    EXPECT_EQ(leader.landingGap, 1.5);
    EXPECT_EQ(leader.text, "Note");
    EXPECT_EQ(leader.textFlow, MText::kFlowsDown);
    EXPECT_EQ(leader.textStyleHandle, 0x11u);
    EXPECT_EQ(leader.leaderType, 2);
    ASSERT_EQ(leader.attributes.size(), 2u); // the first handle is the owner's
    EXPECT_EQ(leader.owner, 0xEu);
    EXPECT_EQ(leader.attributes[1].definition, 0x1Fu);
    EXPECT_EQ(leader.attributes[1].text, "7b");
    ASSERT_EQ(leader.branches.size(), 1u);
    EXPECT_TRUE(leader.branches[0].hasLanding);
    EXPECT_EQ(leader.branches[0].landing, (Point3{6, 7, 0}));
    EXPECT_EQ(leader.branches[0].length, 8);
    ASSERT_EQ(leader.branches[0].lines.size(), 2u);
    EXPECT_EQ(leader.branches[0].lines[0].vertices, (std::vector<Point3>{{9, 10, 0}}));
}

TEST(ReadEntity, MultiLeaderWhoseBracesStayOpenEndsWithTheEntity)
{
    const ReadBlock block({{0, "MULTILEADER"},
                           {300, "CONTEXT_DATA{"},
                           {302, "LEADER{"},
                           {304, "LEADER_LINE{"},
                           {10, "9"},
                           {0, "POINT"}});
    EXPECT_EQ(block.Count(), 2u);
    ASSERT_EQ(block.As<MultiLeader>().branches.size(), 1u);
    EXPECT_EQ(block.As<MultiLeader>().branches[0].lines.size(), 1u);
}

TEST(ReadEntity, HatchLoopsPatternAndSeedsAreKeptApart)
{
    const ReadBlock block(
        {{0, "HATCH"}, {10, "0"},   {20, "0"},   {30, "5"},   {2, "ANSI31"}, {70, "0"}, {91, "2"},
         {92, "2"},    {72, "1"},   {73, "1"},   {93, "2"},   {10, "1"},     {20, "2"}, {42, "0.5"},
         {10, "3"},    {20, "4"},   {97, "1"},   {330, "AA"}, {92, "1"},     {93, "4"}, {72, "1"},
         {10, "1"},    {20, "2"},   {11, "3"},   {21, "4"},   {72, "2"},     {10, "5"}, {20, "6"},
         {40, "7"},    {50, "8"},   {51, "9"},   {73, "0"},   {72, "3"},     {10, "1"}, {20, "2"},
         {11, "3"},    {21, "4"},   {40, "0.5"}, {50, "0"},   {51, "90"},    {73, "1"}, {72, "4"},
         {94, "3"},    {73, "1"},   {74, "1"},   {95, "2"},   {96, "1"},     {40, "0"}, {40, "1"},
         {10, "1"},    {20, "2"},   {42, "3"},   {97, "1"},   {11, "4"},     {21, "5"}, {97, "0"},
         {75, "1"},    {76, "1"},   {52, "45"},  {41, "2"},   {77, "1"},     {78, "1"}, {53, "45"},
         {43, "1"},    {44, "2"},   {45, "3"},   {46, "4"},   {79, "2"},     {49, "5"}, {49, "-6"},
         {98, "1"},    {10, "100"}, {20, "200"}, {450, "1"},  {421, "255"}});
    const Hatch& hatch = block.As<Hatch>();
    EXPECT_EQ(hatch.elevation, (Point3{0, 0, 5}));
    EXPECT_EQ(hatch.pattern, "ANSI31");
    ASSERT_EQ(hatch.loops.size(), 2u);
    ASSERT_EQ(hatch.loops[0].vertices.size(), 2u);
    EXPECT_EQ(hatch.loops[0].vertices[0].bulge, 0.5);
    EXPECT_EQ(hatch.loops[0].vertices[1].point, (Point3{3, 4, 0}));
    ASSERT_EQ(hatch.loops[1].edges.size(), 4u);
    EXPECT_EQ(hatch.loops[1].edges[0].b, (Point2{3, 4}));
    EXPECT_EQ(hatch.loops[1].edges[1].kind, HatchEdge::Kind::Arc);
    EXPECT_EQ(hatch.loops[1].edges[1].radius, 7);
    EXPECT_EQ(hatch.loops[1].edges[1].end, 9);
    EXPECT_FALSE(hatch.loops[1].edges[1].isCounterClockwise);
    EXPECT_EQ(hatch.loops[1].edges[2].radius, 0.5);
    const HatchEdge& spline = hatch.loops[1].edges[3];
    EXPECT_EQ(spline.degree, 3);
    EXPECT_TRUE(spline.isRational);
    EXPECT_TRUE(spline.isPeriodic);
    EXPECT_EQ(spline.knots, (std::vector<double>{0, 1}));
    EXPECT_EQ(spline.weights, (std::vector<double>{3}));
    EXPECT_EQ(spline.controlPoints, (std::vector<Point2>{{1, 2}}));
    EXPECT_EQ(spline.fitPoints, (std::vector<Point2>{{4, 5}}));
    EXPECT_EQ(hatch.style, 1);
    EXPECT_EQ(hatch.angle, 45);
    EXPECT_EQ(hatch.scale, 2);
    ASSERT_EQ(hatch.lines.size(), 1u);
    EXPECT_EQ(hatch.lines[0].base, (Point2{1, 2}));
    EXPECT_EQ(hatch.lines[0].offset, (Point2{3, 4}));
    EXPECT_EQ(hatch.lines[0].dashes, (std::vector<double>{5, -6}));
    EXPECT_EQ(hatch.isGradient, 1);
    EXPECT_EQ(hatch.gradientColours, (std::vector<std::int32_t>{255}));
}

TEST(ReadEntity, AnMPolygonHasItsFillElsewhereThanAHatch)
{
    const ReadBlock block({{0, "MPOLYGON"}, {62, "3"},    {100, "AcDbMPolygon"},
                           {70, "1"},       {2, "SOLID"}, {71, "0"},
                           {91, "1"},       {92, "2"},    {73, "1"},
                           {72, "0"},       {93, "1"},    {10, "1"},
                           {20, "2"},       {76, "1"},    {63, "5"},
                           {11, "7"},       {21, "8"},    {450, "1"},
                           {63, "6"},       {421, "255"}});
    const Hatch& polygon = block.As<Hatch>();
    EXPECT_TRUE(polygon.hasOutline);
    EXPECT_EQ(polygon.isSolid, 0);
    EXPECT_EQ(polygon.fillColour, 5);
    EXPECT_EQ(polygon.offset, (Point2{7, 8}));
    ASSERT_EQ(polygon.loops.size(), 1u);
    EXPECT_EQ(polygon.loops[0].vertices.size(), 1u);
    const ReadBlock bare({{0, "MPOLYGON"}, {70, "1"}, {71, "0"}, {91, "0"}, {75, "1"}, {11, "7"}, {21, "8"}});
    EXPECT_TRUE(bare.As<Hatch>().hasOutline);
    EXPECT_EQ(bare.As<Hatch>().isSolid, 0);
    EXPECT_EQ(bare.As<Hatch>().offset, (Point2{7, 8}));
    const ReadBlock other({{0, "HATCH"}, {70, "1"}, {71, "0"}, {63, "9"}, {11, "1"}});
    EXPECT_FALSE(other.As<Hatch>().hasOutline);
    EXPECT_EQ(other.As<Hatch>().isSolid, 1);
    EXPECT_EQ(other.As<Hatch>().offset, Point2{});
}

TEST(ReadEntity, DimensionReadsItsOverridesFromTheExtendedData)
{
    const ReadBlock block(
        {{0, "DIMENSION"}, {2, "*D1"},       {3, "ISO"},  {70, "32"},    {1, "<> mm"},  {10, "1"},
         {13, "2"},        {16, "3"},        {42, "4"},   {71, "5"},     {70, "1"},     {71, "1"},
         {1001, "OTHER"},  {1000, "DSTYLE"}, {1002, "{"}, {1070, "140"}, {1040, "9"},   {1002, "}"},
         {1001, "ACAD"},   {1000, "DSTYLE"}, {1002, "{"}, {1070, "140"}, {1040, "2.5"}, {1070, "41"},
         {1040, "1.25"},   {1070, "77"},     {1070, "3"}, {1070, "3"},   {1000, " mm"}, {1002, "}"},
         {1070, "9"}});
    const Dimension& dimension = block.As<Dimension>();
    EXPECT_EQ(block.Text(dimension.block), "*D1");
    EXPECT_EQ(dimension.kind, 32);
    EXPECT_EQ(dimension.attachment, 5);
    EXPECT_TRUE(dimension.hasMeasurement);
    EXPECT_EQ(dimension.points[0].x, 2);
    EXPECT_EQ(dimension.points[3].x, 3);
    const std::vector<std::pair<std::int32_t, std::string>> overrides{
        {140, "2.5"}, {41, "1.25"}, {77, "3"}, {3, " mm"}};
    EXPECT_EQ(dimension.overrides, overrides);
}

TEST(ReadEntity, LeaderReadsItsOverridesAsADimensionDoes)
{
    const ReadBlock block({{0, "LEADER"},
                           {3, "ISO"},
                           {71, "0"},
                           {10, "1"},
                           {10, "2"},
                           {1001, "ACAD"},
                           {1000, "DSTYLE"},
                           {1002, "{"},
                           {1070, "41"},
                           {1040, "2.5"},
                           {1070, "341"},
                           {1005, "1A"},
                           {1002, "}"}});
    const Leader& leader = block.As<Leader>();
    EXPECT_EQ(leader.hasArrow, 0);
    EXPECT_EQ(leader.vertices.size(), 2U);
    const std::vector<std::pair<std::int32_t, std::string>> overrides{{41, "2.5"}, {341, "1A"}};
    EXPECT_EQ(leader.overrides, overrides);
}

TEST(ReadEntity, MTextJoinsItsPartsAndTakesOnlyColumnsFromTheEmbeddedObject)
{
    const ReadBlock block({{0, "MTEXT"},
                           {10, "1"},
                           {40, "2"},
                           {41, "3"},
                           {71, "4"},
                           {3, "one "},
                           {3, "two "},
                           {1, "three"},
                           {11, "0"},
                           {21, "1"},
                           {101, "Embedded Object"},
                           {10, "9"},
                           {11, "9"},
                           {40, "9"},
                           {41, "7"},
                           {71, "2"},
                           {72, "3"},
                           {44, "5"},
                           {45, "6"},
                           {46, "8"},
                           {1, "no"}});
    const MText& text = block.As<MText>();
    EXPECT_EQ(text.text, "one two three");
    EXPECT_EQ(text.point.x, 1);
    EXPECT_EQ(text.height, 2);
    EXPECT_EQ(text.width, 3);
    EXPECT_EQ(text.attachment, 4);
    EXPECT_TRUE(text.hasDirection);
    EXPECT_EQ(text.direction, (Point3{0, 1, 0}));
    EXPECT_EQ(text.columnType, 2);
    EXPECT_EQ(text.columns, 3);
    EXPECT_EQ(text.columnWidth, 5);
    EXPECT_EQ(text.columnGutter, 6);
    EXPECT_EQ(text.definedHeight, 7);
    EXPECT_EQ(text.columnHeights, (std::vector<double>{8}));
}

TEST(ReadEntity, MTextHasWhatIsBehindIt)
{
    const ReadBlock block({{0, "MTEXT"}, {90, "3"}, {63, "5"}, {45, "1.2"}, {421, "255"}});
    const MText& text = block.As<MText>();
    EXPECT_EQ(text.fill, 3);
    EXPECT_TRUE(text.hasFillColour);
    EXPECT_EQ(text.fillColour, 5);
    EXPECT_EQ(text.fillTrueColour, 255);
    EXPECT_EQ(text.fillScale, 1.2);
}

TEST(ReadEntity, AFrameThatIsAnEntityOfItsOwnIsNotTheMTextsToo)
{
    const ReadBlock framed({{0, "MTEXT"},
                            {1, "text"},
                            {90, "17"},
                            {1001, "ACAD"},
                            {1000, "ACAD_MTEXT_TEXT_BORDERS_BEGIN"},
                            {1070, "46"},
                            {1040, "1.5"},
                            {1005, "9F"},
                            {1000, "ACAD_MTEXT_TEXT_BORDERS_END"}});
    EXPECT_EQ(framed.As<MText>().fill, MText::kFill);

    const ReadBlock other({{0, "MTEXT"},
                           {1, "text"},
                           {90, "17"},
                           {1001, "ACAD"},
                           {1000, "ACAD_MTEXT_COLUMNS_BEGIN"},
                           {1005, "9F"}});
    EXPECT_EQ(other.As<MText>().fill, MText::kFill | MText::kFrame);
}

TEST(ReadEntity, OldMTextsHaveColumnsInExtendedData)
{
    const ReadBlock block({{0, "MTEXT"},
                           {1, "text"},
                           {1001, "OTHER"},
                           {1070, "75"},
                           {1070, "9"},
                           {1001, "ACAD"},
                           {1070, "75"},
                           {1070, "9"},
                           {1005, "2D"},
                           {1000, "ACAD_MTEXT_COLUMN_INFO_BEGIN"},
                           {1070, "75"},
                           {1070, "2"},
                           {1070, "79"},
                           {1070, "0"},
                           {1070, "76"},
                           {1070, "3"},
                           {1070, "78"},
                           {1070, "1"},
                           {1070, "48"},
                           {1040, "20"},
                           {1070, "49"},
                           {1040, "1.5"},
                           {1070, "50"},
                           {1070, "2"},
                           {1040, "7"},
                           {1040, "0"},
                           {1000, "ACAD_MTEXT_COLUMN_INFO_END"},
                           {1000, "ACAD_MTEXT_COLUMNS_BEGIN"},
                           {1070, "47"},
                           {1070, "3"},
                           {1005, "2E"},
                           {1005, "2F"},
                           {1000, "ACAD_MTEXT_COLUMNS_END"},
                           {1000, "ACAD_MTEXT_DEFINED_HEIGHT_BEGIN"},
                           {1070, "46"},
                           {1040, "50"},
                           {1000, "ACAD_MTEXT_DEFINED_HEIGHT_END"},
                           {1070, "75"},
                           {1070, "9"},
                           {1001, "OTHER"},
                           {1000, "ACAD_MTEXT_COLUMN_INFO_BEGIN"},
                           {1070, "76"},
                           {1070, "9"}});
    const MText& text = block.As<MText>();
    EXPECT_EQ(text.columnType, 2);
    EXPECT_EQ(text.columns, 3);
    EXPECT_EQ(text.columnsFlowReversed, 1);
    EXPECT_EQ(text.columnWidth, 20);
    EXPECT_EQ(text.columnGutter, 1.5);
    EXPECT_EQ(text.columnHeights, (std::vector<double>{7, 0}));
    EXPECT_EQ(text.linkedColumns, 2U);
    EXPECT_EQ(text.definedHeight, 50);
}

TEST(ReadEntity, TheLaterOfAnMTextsDirectionAndRotationCounts)
{
    EXPECT_FALSE(ReadBlock({{0, "MTEXT"}, {11, "0"}, {21, "1"}, {50, "30"}}).As<MText>().hasDirection);
    EXPECT_TRUE(ReadBlock({{0, "MTEXT"}, {50, "30"}, {11, "0"}, {21, "1"}}).As<MText>().hasDirection);
}

TEST(ReadEntity, AttributeTakesTheTextOfItsEmbeddedMText)
{
    const ReadBlock block({{0, "ATTDEF"},
                           {1, "flat"},
                           {10, "1"},
                           {40, "2"},
                           {71, "2"},
                           {101, "Embedded Object"},
                           {10, "9"},
                           {40, "9"},
                           {3, "long "},
                           {1, "text"},
                           {101, "Embedded Object"},
                           {1, "no"}});
    const Text& text = block.As<Text>();
    EXPECT_TRUE(text.hasMText);
    EXPECT_EQ(text.text, "long text");
    EXPECT_EQ(text.generation, 0); // 71 says there that it has several lines
    EXPECT_EQ(text.point.x, 1);
    EXPECT_EQ(text.height, 2);
}

TEST(ReadEntity, TableHasItsCellsWithTheTextAsShown)
{
    const ReadBlock block({{0, "ACAD_TABLE"}, {2, "*T1"},     {10, "1"},
                           {11, "1"},         {91, "1"},      {92, "3"},
                           {141, "5"},        {142, "6"},     {142, "7"},
                           {171, "1"},        {91, "9"},      {92, "9"},
                           {1, "old"},        {171, "1"},     {301, "CELL_VALUE"},
                           {1, "1.50"},       {302, "1.5 m"}, {304, "ACVALUE_END"},
                           {171, "1"},        {2, "long "},   {1, "text"}});
    const Table& table = block.As<Table>();
    EXPECT_EQ(block.Text(table.block), "*T1");
    EXPECT_EQ(table.rows, 1);
    EXPECT_EQ(table.columns, 3);
    EXPECT_EQ(table.columnWidths, (std::vector<double>{6, 7}));
    EXPECT_EQ(table.cells, (std::vector<std::string>{"old", "1.5 m", "long text"}));
}

TEST(ReadEntity, ProxyKeepsTheBytesOfItsGraphicsAlone)
{
    const ReadBlock block({{0, "ACAD_PROXY_ENTITY"},
                           {92, "3"},
                           {310, "01fF"},
                           {310, "7"},
                           {310, "80"},
                           {93, "1"},
                           {310, "AA"}});
    EXPECT_EQ(block.As<Proxy>().graphics, "\x01\xFF\x80");
}

TEST(ReadEntity, ImagesAndUnderlaysHaveTheirClipUnderDifferentCodes)
{
    const ReadBlock block({{0, "IMAGE"},    {10, "1"},          {11, "2"}, {12, "0"},  {22, "3"}, {13, "640"},
                           {23, "480"},     {280, "1"},         {71, "2"}, {14, "1"},  {24, "2"}, {14, "3"},
                           {24, "4"},       {0, "PDFUNDERLAY"}, {41, "2"}, {280, "3"}, {11, "5"}, {21, "6"},
                           {0, "VIEWPORT"}, {12, "1"},          {22, "2"}, {331, "A"}, {341, "B"}});
    const Image& image = block.As<Image>();
    EXPECT_EQ(image.size, (Point2{640, 480}));
    EXPECT_EQ(image.clip, (std::vector<Point2>{{1, 2}, {3, 4}}));
    const auto& underlay = static_cast<const Image&>(*block.Entities()[1]);
    EXPECT_EQ(underlay.clip, (std::vector<Point2>{{5, 6}}));
    EXPECT_EQ(underlay.scale.x, 2);
    EXPECT_EQ(underlay.isClipped, 1);
    const auto& viewport = static_cast<const Viewport&>(*block.Entities()[2]);
    EXPECT_EQ(viewport.viewCentre, (Point2{1, 2}));
    EXPECT_EQ(viewport.frozen, (std::vector<Handle>{0xA, 0xB}));
}

TEST(ReadEntity, WhatIsNoNumberOrTooLargeIsAFaultOfTheEntityAlone)
{
    const std::pair<const char*, Fault> kValues[] = {
        {"1e999", Fault::OutOfRange},    {"-1e999", Fault::OutOfRange},  {"nan", Fault::NotFinite},
        {"-NaN(ind)", Fault::NotFinite}, {"inf", Fault::NotFinite},      {" +Infinity ", Fault::NotFinite},
        {"1.#QNAN", Fault::NotFinite},   {"-1.#IND", Fault::NotFinite},  {"1.#inf00", Fault::NotFinite},
        {"1e30", Fault::None},           {"1.01e30", Fault::OutOfRange}, {"-1e308", Fault::OutOfRange}};
    for (const auto& [value, fault] : kValues) {
        const ReadBlock block({{0, "CIRCLE"}, {10, value}, {40, "1"}, {0, "POINT"}});
        ASSERT_EQ(block.Count(), 2u);
        EXPECT_EQ(block.As<Circle>().fault, fault) << value;
        EXPECT_EQ(block.Entities()[1]->fault, Fault::None);
        EXPECT_TRUE(block.read.report.Entries().size() == 0);
    }
}

TEST(ReadEntity, WordsAreReadAsZeroAndReportedOnceAnEntity)
{
    const ReadBlock block({{0, "LINE"},
                           {10, "abc"},
                           {20, "-"},
                           {11, "7x"},
                           {21, " "},
                           {0, "CIRCLE"},
                           {40, "0.0 "},
                           {62, "red"},
                           {0, "ARC"},
                           {10, "+0"},
                           {40, ""},
                           {62, " 0 "},
                           {0, "POINT"},
                           {10, ".0"},
                           {0, "TEXT"},
                           {1, "abc"},
                           {0, "LINE"},
                           {10, "x"}});
    EXPECT_EQ(block.As<Line>().end.x, 7);
    const std::string said = "a value is not a number: 0 is read at ";
    EXPECT_EQ(block.read.Found(Finding::Repaired, "LINE"), said + "10, 2;");
    EXPECT_EQ(block.read.Found(Finding::Repaired, "CIRCLE"), said + "20, 1;");
    EXPECT_EQ(block.read.report.Entries().size(), 2u);
}

TEST(ReadEntity, WordsThatOnlyLookLikeNumbersThatAreNoneAreWords)
{
    for (const char* const word :
         {"ten", "five", "none", "big", "nano", "info", "infinite", "1#", "-i", "(nan)"}) {
        const ReadBlock block({{0, "CIRCLE"}, {10, word}, {40, "1"}});
        EXPECT_EQ(block.As<Circle>().fault, Fault::None) << word;
        const bool isOne = word[0] == '1';
        EXPECT_EQ(block.As<Circle>().centre.x, isOne ? 1 : 0);
        EXPECT_EQ(block.read.Found(Finding::Repaired, "CIRCLE"),
                  isOne ? "" : "a value is not a number: 0 is read at 10, 1;");
    }
}

TEST(ReadEntity, WordsOfAnEntityThatIsNotShownAreNotReported)
{
    const ReadBlock block({{0, "LINE"}, {10, "nan"}, {20, "ten"}, {0, "LINE"}, {10, "1"}});
    EXPECT_EQ(block.As<Line>().fault, Fault::NotFinite);
    EXPECT_TRUE(block.read.report.Entries().empty());
}

TEST(ReadEntity, ALwPolylineThatLacksVerticesOrTheirYIsReported)
{
    const auto found = [](std::initializer_list<Group> pairs) {
        return ReadBlock(pairs).read.Found(Finding::Repaired, "LWPOLYLINE");
    };
    const std::string fewer = "it has fewer vertices than it states at 10, 1;";
    const std::string lacksY = "a vertex without its y: 0 is read at 10, 1;";
    EXPECT_EQ(found({{0, "LWPOLYLINE"}, {90, "2"}, {10, "1"}, {20, "2"}, {10, "3"}, {20, "4"}}), "");
    EXPECT_EQ(found({{0, "LWPOLYLINE"}, {90, "1"}, {10, "1"}, {20, "2"}, {10, "3"}, {20, "4"}}), "");
    EXPECT_EQ(found({{0, "LWPOLYLINE"}, {90, "3"}, {10, "1"}, {20, "2"}, {10, "3"}, {20, "4"}}), fewer);
    EXPECT_EQ(found({{0, "LWPOLYLINE"}, {10, "1"}, {10, "3"}, {20, "4"}}), lacksY);
    EXPECT_EQ(found({{0, "LWPOLYLINE"}, {10, "1"}, {20, "4"}, {10, "3"}, {42, "1"}}), lacksY);
    EXPECT_EQ(found({{0, "LWPOLYLINE"}, {10, "1"}, {0, "POINT"}, {0, "LWPOLYLINE"}, {10, "1"}, {20, "2"}}),
              lacksY);
    EXPECT_EQ(found({{0, "LWPOLYLINE"}, {90, "2"}, {10, "1"}, {20, "nan"}, {10, "1"}, {20, "2"}}), "");
}

TEST(ReadEntity, AnInsertWithAttributesAndWithoutSeqendIsReported)
{
    const auto found = [](std::initializer_list<Group> pairs) {
        return ReadBlock(pairs).read.Found(Finding::Repaired, "INSERT");
    };
    EXPECT_EQ(found({{0, "INSERT"}, {66, "1"}, {0, "ATTRIB"}, {0, "LINE"}}), "ends without SEQEND at 10, 1;");
    EXPECT_EQ(found({{0, "INSERT"}, {0, "ATTRIB"}}), "ends without SEQEND at 10, 1;");
    EXPECT_EQ(found({{0, "INSERT"}, {0, "ATTRIB"}, {0, "SEQEND"}, {0, "LINE"}}), "");
    EXPECT_EQ(found({{0, "INSERT"}, {66, "1"}, {0, "LINE"}}), "");
}

TEST(ReadEntity, AVertexThatIsNoNumberIsLeftOutAlone)
{
    const ReadBlock block(
        {{0, "POLYLINE"}, {0, "VERTEX"}, {10, "1"}, {0, "VERTEX"}, {10, "nan"}, {0, "SEQEND"}});
    EXPECT_EQ(block.As<Polyline>().vertices.size(), 1u);
    EXPECT_EQ(block.read.Found(Finding::Changed, "VERTEX"), "a number is not finite at 16, 1;");
}

TEST(ReadEntity, AVertexOfALwPolylineThatIsNoNumberIsLeftOutAlone)
{
    for (const char* code : {"10", "20"}) {
        const bool isX = code[0] == '1';
        const ReadBlock block({{0, "LWPOLYLINE"},
                               {10, "1"},
                               {20, "2"},
                               {10, isX ? "nan" : "5"},
                               {20, isX ? "5" : "1e31"},
                               {10, "3"},
                               {20, "4"}});
        const LwPolyline& polyline = block.As<LwPolyline>();
        ASSERT_EQ(polyline.vertices.size(), 2u);
        EXPECT_EQ(polyline.vertices[1].point.x, 3);
        EXPECT_EQ(polyline.fault, Fault::None);
        EXPECT_EQ(block.read.Found(Finding::Changed, "LWPOLYLINE"),
                  isX ? "a number is not finite at 16, 1;" : "a number is beyond 1e30 at 18, 1;");
    }
    const ReadBlock block({{0, "LWPOLYLINE"}, {38, "nan"}, {10, "1"}, {20, "2"}});
    EXPECT_EQ(block.As<LwPolyline>().fault, Fault::NotFinite);
    EXPECT_EQ(block.As<LwPolyline>().vertices.size(), 1u);
}

TEST(ReadEntity, EndlessListsAreCutAndReported)
{
    std::string text = Dxf({{0, "SECTION"}, {2, "BLOCKS"}, {0, "BLOCK"}, {2, "B"}, {0, "SPLINE"}});
    for (std::size_t i = 0; i < RecordReader::kMostElements + 2; ++i)
        text += "40\n1\n";
    const ReadDrawingOf read(text + Dxf({{0, "POINT"}, {0, "ENDBLK"}, {0, "ENDSEC"}}));
    const Block* const block = read.drawing.FindBlock(read.Id("B"));
    ASSERT_EQ(block->entities.size(), 2u);
    EXPECT_EQ(static_cast<const Spline&>(*block->entities[0]).knots.size(), RecordReader::kMostElements);
    EXPECT_EQ(read.Found(Finding::Cut, "SPLINE"), "more than 1,000,000 parts at 10, 1;");
}

} // namespace
} // namespace prepare
