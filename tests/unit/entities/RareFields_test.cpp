// The fields that few entities have: made when the file gives one, and not for values that are the default.
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "input/CDxfMemory.h"
#include "support/Import.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Reader = bool (CDxfRead::*)(CDxfStream& stream, DXF_ENTITY_LIST& list);

// What a reader makes of the groups of an entity.
class ReadOne : public ReportingReader {
public:
    explicit ReadOne(std::initializer_list<Group> groups, Reader read = &CDxfRead::ReadENTITIES_LINE)
    {
        const std::string drawing = Dxf(groups) + "0\n";
        CDxfMemory memory(drawing);
        CDxfStream stream(memory);
        (this->*read)(stream, entities);
    }
    const DXF_GRAPHIC_BASE& Record() const { return *entities[0]; }
    bool HasRare() const { return Record().m_rare != &kDxfNoRare; }
};

TEST(RareFields, LineWithoutThemTakesTwoCacheLines)
{
    EXPECT_LE(sizeof(DXF_GRAPHIC_LINE), 128u);
}

TEST(RareFields, ValuesThatAreTheDefaultMakeNothing)
{
    for (const Reader read : {&CDxfRead::ReadENTITIES_LINE, &CDxfRead::ReadENTITIES_ARC,
                              &CDxfRead::ReadENTITIES_CIRCLE, &CDxfRead::ReadENTITIES_LWPOLYLINE}) {
        const ReadOne one({{39, "0.0"},
                           {48, 1},
                           {67, 0},
                           {92, 0},
                           {210, 0},
                           {220, "0.0"},
                           {230, "1.0"},
                           {284, 0},
                           {310, ""},
                           {347, ""},
                           {390, ""},
                           {410, ""},
                           {430, ""},
                           {440, ""}},
                          read);
        EXPECT_FALSE(one.HasRare());
        EXPECT_EQ(ChangedFields(one.Record()), "");
        EXPECT_EQ(one.errors, std::vector<std::string>());
    }
}

TEST(RareFields, EveryOtherValueIsKept)
{
    const std::pair<Group, const char*> kGroups[] = {{{39, 2}, "m_dThickness=2"},
                                                     {{48, 2}, "m_dLineTypeScale=2"},
                                                     {{67, 1}, "m_nPaperSpace=1"},
                                                     {{92, 7}, "m_nProxyByteCount=7"},
                                                     {{210, 1}, "m_dExtrusionX=1"},
                                                     {{220, 1}, "m_dExtrusionY=1"},
                                                     {{230, -1}, "m_dExtrusionZ=-1"},
                                                     {{284, 3}, "m_nShadowMode=3"},
                                                     {{310, "AB"}, "m_strProxyData=\"AB\""},
                                                     {{347, "1F"}, "m_strMaterial=\"1F\""},
                                                     {{390, "2A"}, "m_strPlotStyle=\"2A\""},
                                                     {{410, "Model"}, "m_strLayout=\"Model\""},
                                                     {{430, "Red"}, "m_strColorName=\"Red\""},
                                                     {{440, "5"}, "m_strTransparency=\"5\""}};
    for (const auto& [group, field] : kGroups)
        EXPECT_EQ(ChangedFields(ReadOne({group}).Record()), field);
    EXPECT_EQ(ChangedFields(ReadOne({{102, "{A"}, {102, "}"}}).Record()), "m_strAppData=\"{A\"");
}

TEST(RareFields, LaterDefaultTakesBackAnEarlierValue)
{
    EXPECT_EQ(ChangedFields(ReadOne({{230, -1}, {67, 1}, {230, 1}, {67, 0}}).Record()), "");
}

TEST(RareFields, NegativeZeroIsNoDefault)
{
    EXPECT_EQ(ChangedFields(ReadOne({{39, "-0"}}).Record()), "m_dThickness=-0");
}

TEST(RareFields, RecordsDoNotShareThem)
{
    ReportingReader reader;
    reader.ReadText(Dxf({{0, "SECTION"},
                         {2, "ENTITIES"},
                         {0, "LINE"},
                         {39, 2},
                         {0, "CIRCLE"},
                         {0, "LINE"},
                         {39, 3},
                         {0, "ENDSEC"},
                         {0, "EOF"}}));
    EXPECT_EQ(ChangedFields(*reader.entities[0]), "m_dThickness=2");
    EXPECT_EQ(ChangedFields(*reader.entities[1]), "");
    EXPECT_EQ(ChangedFields(*reader.entities[2]), "m_dThickness=3");
}

} // namespace
