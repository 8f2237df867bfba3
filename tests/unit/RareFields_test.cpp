// The fields that few entities have: made when the file gives one, and not for values that are the default.
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "support/Import.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

namespace {

// What a line of the groups of its entity becomes.
class ReadLine : public ReportingReader {
public:
    explicit ReadLine(std::string_view groups)
    {
        CDxfMemory memory(groups);
        CDxfStream stream(memory);
        ReadENTITIES_LINE(stream, entities);
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
    const ReadLine line(
        "39\n0.0\n210\n0\n220\n0.0\n230\n1.0\n48\n1\n67\n0\n92\n0\n284\n0\n410\n\n390\n\n0\n");
    EXPECT_FALSE(line.HasRare());
    EXPECT_EQ(ChangedFields(line.Record()), "");
}

TEST(RareFields, EveryOtherValueIsKept)
{
    const ReadLine line("67\n1\n410\nLayout1\n230\n-1\n0\n");
    EXPECT_TRUE(line.HasRare());
    EXPECT_EQ(ChangedFields(line.Record()), "m_nPaperSpace=1 m_strLayout=\"Layout1\" m_dExtrusionZ=-1");
}

TEST(RareFields, LaterDefaultTakesBackAnEarlierValue)
{
    EXPECT_EQ(ChangedFields(ReadLine("230\n-1\n67\n1\n230\n1\n67\n0\n0\n").Record()), "");
}

TEST(RareFields, NegativeZeroIsNoDefault)
{
    EXPECT_EQ(ChangedFields(ReadLine("39\n-0\n0\n").Record()), "m_dThickness=-0");
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
