// The readers of LINE, ARC, CIRCLE, ELLIPSE and LWPOLYLINE.
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "input/CDxfMemory.h"
#include "support/Import.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

using Texts = std::vector<std::string>;
using Reader = bool (CDxfRead::*)(CDxfStream& stream, DXF_ENTITY_LIST& list);

// One reader on the lines after a type name.
class Reading : public ReportingReader {
public:
    Reading(Reader read, std::string_view lines)
    {
        CDxfMemory memory(lines);
        CDxfStream stream(memory);
        result = (this->*read)(stream, entities);
        next = stream.getline();
    }

    std::string Changed() const
    {
        return entities.size() == 1 ? ChangedFields(*entities[0]) : "not one entity";
    }

    bool result;
    std::string next; // the first line that was not read
};

struct Entity {
    const char* type;
    Reader read;
    int kind;
    std::map<int, const char*> reals;
    std::map<int, const char*> integers;
};

const std::vector<Entity> kEntities = {
    {"LINE",
     &CDxfRead::ReadENTITIES_LINE,
     1,
     {{10, "m_dStartX"},
      {20, "m_dStartY"},
      {30, "m_dStartZ"},
      {11, "m_dEndX"},
      {21, "m_dEndY"},
      {31, "m_dEndZ"},
      {39, "m_dThickness"},
      {210, "m_dExtrusionX"},
      {220, "m_dExtrusionY"},
      {230, "m_dExtrusionZ"}},
     {}},
    {"ARC",
     &CDxfRead::ReadENTITIES_ARC,
     2,
     {{10, "m_dCenterX"},
      {20, "m_dCenterY"},
      {30, "m_dCenterZ"},
      {39, "m_dThickness"},
      {40, "m_dRadius"},
      {50, "m_dStartAngle"},
      {51, "m_dEndAngle"},
      {210, "m_dExtrusionX"},
      {220, "m_dExtrusionY"},
      {230, "m_dExtrusionZ"}},
     {}},
    {"CIRCLE",
     &CDxfRead::ReadENTITIES_CIRCLE,
     3,
     {{10, "m_dCenterX"},
      {20, "m_dCenterY"},
      {30, "m_dCenterZ"},
      {39, "m_dThickness"},
      {40, "m_dRadius"},
      {210, "m_dExtrusionX"},
      {220, "m_dExtrusionY"},
      {230, "m_dExtrusionZ"}},
     {}},
    {"ELLIPSE",
     &CDxfRead::ReadENTITIES_ELLIPSE,
     4,
     {{10, "m_dCenterX"},
      {20, "m_dCenterY"},
      {30, "m_dCenterZ"},
      {11, "m_dMajorAxisX"},
      {21, "m_dMajorAxisY"},
      {31, "m_dMajorAxisZ"},
      {40, "m_dRatio"},
      {41, "m_dStartParam"},
      {42, "m_dEndParam"},
      {210, "m_dExtrusionX"},
      {220, "m_dExtrusionY"},
      {230, "m_dExtrusionZ"}},
     {}},
    {"LWPOLYLINE",
     &CDxfRead::ReadENTITIES_LWPOLYLINE,
     5,
     {{38, "m_dElevation"},
      {39, "m_dThickness"},
      {43, "m_dConstantWidth"},
      {210, "m_dExtrusionX"},
      {220, "m_dExtrusionY"},
      {230, "m_dExtrusionZ"}},
     {{40, "m_nStartWidth"},
      {41, "m_nEndWidth"},
      {42, "m_nBulge"},
      {70, "m_nFlags"},
      {90, "m_nVertexCount"},
      {91, "m_nVertexId"}}},
};

const std::set<int> kCommonCodes = {5,   6,   8,   48,  60,  62,  67,  92,  100, 102,
                                    284, 310, 330, 347, 370, 390, 410, 420, 430, 440};

std::string Polyline(std::initializer_list<Group> groups)
{
    return Reading(&CDxfRead::ReadENTITIES_LWPOLYLINE, Dxf(groups) + "0\n").Changed();
}

} // namespace

TEST(GeometryReader, EachRealFillsItsField)
{
    for (const Entity& entity : kEntities)
        for (const auto& [code, field] : entity.reals) {
            const Reading reading(entity.read, Dxf({{code, " -12.625e1x"}}) + Dxf({{0, "NEXT"}}));
            EXPECT_EQ(reading.Changed(), std::string(field) + "=-126.25") << entity.type << ' ' << code;
            EXPECT_EQ(reading.errors, Texts());
        }
}

TEST(GeometryReader, EachIntegerFillsItsFieldWithoutItsFraction)
{
    for (const Entity& entity : kEntities)
        for (const auto& [code, field] : entity.integers) {
            EXPECT_EQ(Reading(entity.read, Dxf({{code, " -12.9"}}) + "0\n").Changed(),
                      std::string(field) + "=-12")
                << code;
            EXPECT_EQ(Reading(entity.read, Dxf({{code, "0.999"}}) + "0\n").Changed(), "") << code;
        }
}

TEST(GeometryReader, LaterValueReplacesTheEarlier)
{
    for (const Entity& entity : kEntities) {
        for (const auto& [code, field] : entity.reals)
            EXPECT_EQ(Reading(entity.read, Dxf({{code, "1.5"}, {code, "2.5"}}) + "0\n").Changed(),
                      std::string(field) + "=2.5");
        for (const auto& [code, field] : entity.integers)
            EXPECT_EQ(Reading(entity.read, Dxf({{code, "1"}, {code, "2"}}) + "0\n").Changed(),
                      std::string(field) + "=2");
    }
}

TEST(GeometryReader, ValueThatIsNoNumberIsZeroWithoutAMessage)
{
    for (const Entity& entity : kEntities)
        for (const auto& [code, field] : entity.reals) {
            const Reading reading(entity.read, Dxf({{code, "7"}, {code, "abc"}}) + "0\n");
            EXPECT_EQ(reading.Changed(), code == 230 ? std::string(field) + "=0" : "")
                << entity.type << ' ' << code;
            EXPECT_EQ(reading.errors, Texts());
        }
}

TEST(GeometryReader, EveryOtherCodeIsReportedUnlessEntitiesShareIt)
{
    for (const Entity& entity : kEntities)
        for (int code = -5; code <= 1100; ++code) {
            const bool isVertex = entity.kind == 5 && (code == 10 || code == 20);
            if (code == 0 || isVertex ||
                entity.reals.count(code) + entity.integers.count(code) + kCommonCodes.count(code))
                continue;
            const Reading reading(entity.read, Dxf({{code, " 7 "}}) + "0\n");
            EXPECT_EQ(reading.Changed(), "") << entity.type << ' ' << code;
            EXPECT_EQ(reading.errors, (Texts{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('" +
                                             std::to_string(code) + "' = '7') Line:2"}))
                << entity.type;
        }
}

TEST(GeometryReader, KindIsSet)
{
    for (const Entity& entity : kEntities)
        EXPECT_EQ(Reading(entity.read, "0\n").entities[0]->m_nEntityType, entity.kind) << entity.type;
}

TEST(GeometryReader, ZeroEndsTheEntityWithTheNextTypeNameUnread)
{
    for (const Entity& entity : kEntities) {
        const Reading reading(entity.read, "8\na\n  0\nNEXT\n");
        EXPECT_TRUE(reading.result) << entity.type;
        EXPECT_EQ(reading.next, "NEXT") << entity.type;
        EXPECT_EQ(reading.lineCount, 3) << entity.type;
    }
}

TEST(GeometryReader, CodeThatIsNoIntegerIsReportedAndEndsTheReading)
{
    for (const Entity& entity : kEntities) {
        const Reading reading(entity.read, "8\na\n x1 \nNEXT\n8\nb\n0\n");
        EXPECT_FALSE(reading.result) << entity.type;
        EXPECT_EQ(reading.next, "NEXT") << entity.type;
        EXPECT_EQ(reading.Changed(), "m_strLayer=\"a\"") << entity.type;
        EXPECT_EQ(reading.errors, (Texts{std::string("0 3 ReadENTITIES_") + entity.type +
                                         " Failed to read integer from 'x1', Line:3"}));
    }
}

TEST(GeometryReader, EndOfTheFileEndsTheReadingWithWhatWasRead)
{
    for (const Entity& entity : kEntities) {
        const Reading behindALine(entity.read, Dxf({{8, "a"}}));
        EXPECT_FALSE(behindALine.result) << entity.type;
        EXPECT_EQ(behindALine.Changed(), "m_strLayer=\"a\"") << entity.type;
        EXPECT_EQ(behindALine.errors, (Texts{std::string("0 3 ReadENTITIES_") + entity.type +
                                             " Failed to read integer from '', Line:3"}));
        const Reading withinALine(entity.read, "8\na");
        EXPECT_FALSE(withinALine.result) << entity.type;
        EXPECT_EQ(withinALine.Changed(), "m_strLayer=\"a\"") << entity.type;
        EXPECT_EQ(withinALine.errors, Texts()) << entity.type;
    }
}

TEST(GeometryReader, CodesMayHaveBlanksASignZerosAndLettersAfterThem)
{
    for (const char* const code : {"10", "  10", "\t10", "+10", "010", "10abc", "10 20", "10.5"})
        EXPECT_EQ(Reading(&CDxfRead::ReadENTITIES_LINE, code + std::string("\n3\n0\n")).Changed(),
                  "m_dStartX=3")
            << code;
}

TEST(GeometryReader, LineHasTwoPointsAndNoMore)
{
    const Reading reading(&CDxfRead::ReadENTITIES_LINE,
                          Dxf({{10, 1}, {20, 2}, {11, 3}, {21, 4}, {0, "NEXT"}}));
    EXPECT_TRUE(reading.result);
    EXPECT_EQ(reading.Changed(), "m_dStartX=1 m_dStartY=2 m_dEndX=3 m_dEndY=4");
    EXPECT_EQ(reading.next, "NEXT");
}

TEST(GeometryReader, ThicknessIsARealAndTheLineTypeScaleAnInteger)
{
    EXPECT_EQ(Reading(&CDxfRead::ReadENTITIES_LINE, Dxf({{39, 0.25}, {48, 0.25}}) + "0\n").Changed(),
              "m_dLineTypeScale=0 m_dThickness=0.25");
}

TEST(GeometryReader, ArcOfARadiusAloneKeepsItsDefaults)
{
    EXPECT_EQ(Reading(&CDxfRead::ReadENTITIES_ARC, Dxf({{40, 5}}) + "0\n").Changed(), "m_dRadius=5");
}

TEST(GeometryReader, EllipseHasNoThickness)
{
    const Reading reading(&CDxfRead::ReadENTITIES_ELLIPSE, Dxf({{39, 2}}) + "0\n");
    EXPECT_EQ(reading.Changed(), "");
    EXPECT_EQ(reading.errors, (Texts{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('39' = '2') Line:2"}));
}

TEST(GeometryReader, LineThatEndsTheFileStaysInTheList)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n1.5");
    ASSERT_EQ(reader.entities.size(), 1u);
    EXPECT_EQ(ChangedFields(*reader.entities[0]), "m_dStartX=1.5");
    EXPECT_EQ(reader.errors, (Texts{"0 5 ReadENTITIES_LINE() Failed to read line, Line:8"}));
}

TEST(LwpolylineReader, EachTwentyMakesAVertex)
{
    EXPECT_EQ(Polyline({{90, 3}, {70, 1}, {10, 1}, {20, 2}, {10, 3}, {20, 4}, {10, 5}, {20, 6}}),
              "m_nVertexCount=3 m_nFlags=1 m_vertices=(1,2)(3,4)(5,6)");
}

TEST(LwpolylineReader, StatedCountIsKeptAndNotCompared)
{
    EXPECT_EQ(Polyline({{90, 5}, {10, 1}, {20, 2}, {10, 3}, {20, 4}, {10, 5}, {20, 6}}),
              "m_nVertexCount=5 m_vertices=(1,2)(3,4)(5,6)");
    EXPECT_EQ(Polyline({{90, -1}}), "m_nVertexCount=-1");
}

TEST(LwpolylineReader, TenWithoutTwentyAddsNoVertex)
{
    EXPECT_EQ(Polyline({{10, 1}}), "");
    EXPECT_EQ(Polyline({{10, 1}, {10, 2}, {20, 3}, {10, 4}}), "m_vertices=(2,3)");
}

TEST(LwpolylineReader, TwentyWithoutTenRepeatsX)
{
    EXPECT_EQ(Polyline({{20, 2}}), "m_vertices=(0,2)");
    EXPECT_EQ(Polyline({{10, 1.5}, {20, 2}, {20, 3}, {20, 4}}), "m_vertices=(1.5,2)(1.5,3)(1.5,4)");
}

TEST(LwpolylineReader, NextPolylineBeginsAtZeroAgain)
{
    ReportingReader reader;
    reader.ReadText(EntitiesSection({{0, "LWPOLYLINE"}, {10, 7}, {20, 1}, {0, "LWPOLYLINE"}, {20, 2}}));
    ASSERT_EQ(reader.entities.size(), 2u);
    EXPECT_EQ(ChangedFields(*reader.entities[0]), "m_vertices=(7,1)");
    EXPECT_EQ(ChangedFields(*reader.entities[1]), "m_vertices=(0,2)");
}

TEST(LwpolylineReader, ValuesOfVerticesAreKeptOnceAsLastRead)
{
    EXPECT_EQ(
        Polyline(
            {{10, 1}, {20, 2}, {40, 1}, {41, 2}, {42, 3}, {91, 4}, {10, 3}, {20, 4}, {40, 5.9}, {42, 1.7}}),
        "m_vertices=(1,2)(3,4) m_nVertexId=4 m_nStartWidth=5 m_nEndWidth=2 m_nBulge=1");
}

TEST(LwpolylineReader, BulgeBelowOneIsZero)
{
    EXPECT_EQ(Polyline({{10, 1}, {20, 2}, {10, 3}, {20, 4}, {10, 5}, {20, 6}, {42, 0.999}}),
              "m_vertices=(1,2)(3,4)(5,6)");
    EXPECT_EQ(Polyline({{42, 5}, {42, -0.5}}), "");
}

TEST(LwpolylineReader, AnyNumberOfVerticesIsKept)
{
    std::string lines;
    for (int i = 0; i < 100000; ++i)
        lines += Dxf({{10, i}, {20, 0.5}});
    const Reading reading(&CDxfRead::ReadENTITIES_LWPOLYLINE, lines + "0\n");
    const auto& vertices = static_cast<const DXF_GRAPHIC_LWPOLYLINE&>(*reading.entities[0]).m_vertices;
    ASSERT_EQ(vertices.size(), 100000u);
    for (std::size_t i = 0; i < vertices.size(); ++i)
        ASSERT_EQ(vertices[i].x, static_cast<double>(i));
}
