// The fields that few entities have: made when the file gives one, and not for values that are the default.
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "support/Import.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

const std::string kDefaults =
    "39\n0.0\n48\n1\n67\n0\n92\n0\n210\n0\n220\n0.0\n230\n1.0\n284\n0\n310\n\n347\n\n"
    "390\n\n410\n\n430\n\n440\n\n0\n";

using READER = bool (CDxfRead::*)(CDxfStream& stream, DXF_ENTITY_LIST& list);

// What a reader makes of the groups of an entity.
class ReadOne : public ReportingReader {
public:
    explicit ReadOne(std::string_view groups, READER read = &CDxfRead::ReadENTITIES_LINE)
    {
        CDxfMemory memory(groups);
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
    for (const READER read : {&CDxfRead::ReadENTITIES_LINE, &CDxfRead::ReadENTITIES_ARC,
                              &CDxfRead::ReadENTITIES_CIRCLE, &CDxfRead::ReadENTITIES_LWPOLYLINE}) {
        const ReadOne one(kDefaults, read);
        EXPECT_FALSE(one.HasRare());
        EXPECT_EQ(ChangedFields(one.Record()), "");
        EXPECT_EQ(one.errors, std::vector<std::string>());
    }
}

TEST(RareFields, EveryOtherValueIsKept)
{
    const std::pair<const char*, const char*> kGroups[] = {{"39\n2", "m_dThickness=2"},
                                                           {"48\n2", "m_dLineTypeScale=2"},
                                                           {"67\n1", "m_nPaperSpace=1"},
                                                           {"92\n7", "m_nProxyByteCount=7"},
                                                           {"210\n1", "m_dExtrusionX=1"},
                                                           {"220\n1", "m_dExtrusionY=1"},
                                                           {"230\n-1", "m_dExtrusionZ=-1"},
                                                           {"284\n3", "m_nShadowMode=3"},
                                                           {"310\nAB", "m_strProxyData=\"AB\""},
                                                           {"347\n1F", "m_strMaterial=\"1F\""},
                                                           {"390\n2A", "m_strPlotStyle=\"2A\""},
                                                           {"410\nModel", "m_strLayout=\"Model\""},
                                                           {"430\nRed", "m_strColorName=\"Red\""},
                                                           {"440\n5", "m_strTransparency=\"5\""},
                                                           {"102\n{A\n102\n}", "m_strAppData=\"{A\""}};
    for (const auto& [group, field] : kGroups)
        EXPECT_EQ(ChangedFields(ReadOne(std::string(group) + "\n0\n").Record()), field);
}

TEST(RareFields, LaterDefaultTakesBackAnEarlierValue)
{
    EXPECT_EQ(ChangedFields(ReadOne("230\n-1\n67\n1\n230\n1\n67\n0\n0\n").Record()), "");
}

TEST(RareFields, NegativeZeroIsNoDefault)
{
    EXPECT_EQ(ChangedFields(ReadOne("39\n-0\n0\n").Record()), "m_dThickness=-0");
}

TEST(RareFields, RecordsDoNotShareThem)
{
    ReportingReader reader;
    reader.ReadText(
        "0\nSECTION\n2\nENTITIES\n0\nLINE\n39\n2\n0\nCIRCLE\n0\nLINE\n39\n3\n0\nENDSEC\n0\nEOF\n");
    EXPECT_EQ(ChangedFields(*reader.entities[0]), "m_dThickness=2");
    EXPECT_EQ(ChangedFields(*reader.entities[1]), "");
    EXPECT_EQ(ChangedFields(*reader.entities[2]), "m_dThickness=3");
}

} // namespace
