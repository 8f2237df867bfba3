// The callback pass: which record goes to which callback, and in what order.
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "input/CDxfMemory.h"
#include "support/Callbacks.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Calls = std::vector<std::string>;

// A block with these lines between its name and its ENDBLK.
std::string Block(std::string_view name, std::initializer_list<Group> entities)
{
    return Dxf({{0, "BLOCK"}, {2, name}}) + Dxf(entities) + Dxf({{0, "ENDBLK"}});
}

std::string Blocks(const std::string& blocks)
{
    return Section("BLOCKS", blocks);
}

// Every kind of entity, each on the layer that is named after its order.
const std::string kEveryKind = Dxf({{0, "DIMENSION"},
                                    {8, "a"},
                                    {100, "AcDbEntity"},
                                    {0, "INSERT"},
                                    {8, "b"},
                                    {0, "MTEXT"},
                                    {8, "c"},
                                    {0, "TEXT"},
                                    {8, "d"},
                                    {0, "LWPOLYLINE"},
                                    {8, "e"},
                                    {0, "ELLIPSE"},
                                    {8, "f"},
                                    {0, "CIRCLE"},
                                    {8, "g"},
                                    {0, "ARC"},
                                    {8, "h"},
                                    {0, "LINE"},
                                    {8, "i"}});

// A reader with records that no drawing has.
class OddRecords : public CallbackReader {
public:
    template <class Record>
    void Add(DXF_ENTITY_LIST& list, std::int32_t kind, std::string_view layer)
    {
        auto* const record = store.New<Record>();
        record->m_nEntityType = kind;
        record->m_strLayer = store.Keep(layer);
        list.Add(store, record);
    }
    DXF_BLOCKS_BLOCK& AddBlock(std::string_view name)
    {
        auto* const block = store.New<DXF_BLOCKS_BLOCK>();
        block->m_strName = store.Keep(name);
        blocks.Add(store, block);
        return *block;
    }
};

// Keeps the places of the records that the callbacks got.
class Borrower : public CDxfRead {
public:
    void OnBlockBegin(const DXF_BLOCKS_BLOCK& block) override { got.push_back(&block); }
    void OnBlockEnd(const DXF_BLOCKS_BLOCK& block) override { got.push_back(&block); }
    void OnArc(DXF_GRAPHIC_ARC& arc) override
    {
        got.push_back(&arc);
        arc.m_dStartAngle += 1.0;
    }
    void OnInsert(const DXF_GRAPHIC_INSERT& insert) override { got.push_back(&insert); }

    std::vector<const void*> got;
};

} // namespace

TEST(EmitCallbacks, EachKindOfEntityGoesToItsCallbackInFileOrder)
{
    EXPECT_EQ(CallbacksOf(Section("ENTITIES", kEveryKind)),
              (Calls{"OnDimension a", "OnInsert b", "OnMText c", "OnText d", "OnLWPolyline e", "OnEllipse f",
                     "OnCircle g", "OnArc h", "OnLine i"}));
}

TEST(EmitCallbacks, EntitiesOfABlockComeBetweenItsBeginAndItsEndInFileOrder)
{
    EXPECT_EQ(
        CallbacksOf(Blocks(Dxf({{0, "BLOCK"}, {2, "All"}}) + kEveryKind + Dxf({{0, "ENDBLK"}}))),
        (Calls{"OnBlockBegin All", "OnDimension a", "OnInsert b", "OnMText c", "OnText d", "OnLWPolyline e",
               "OnEllipse f", "OnCircle g", "OnArc h", "OnLine i", "OnBlockEnd All"}));
}

TEST(EmitCallbacks, NothingIsCalledForADrawingWithoutRecords)
{
    EXPECT_EQ(CallbacksOf(""), Calls());
    EXPECT_EQ(CallbacksOf(Dxf({{0, "EOF"}})), Calls());
    EXPECT_EQ(CallbacksOf(Blocks("") + EntitiesSection({})), Calls());
}

TEST(EmitCallbacks, EmptyBlockIsBegunAndEnded)
{
    EXPECT_EQ(CallbacksOf(Blocks(Block("A", {}))), (Calls{"OnBlockBegin A", "OnBlockEnd A"}));
}

TEST(EmitCallbacks, BlocksComeBeforeEntitiesWhicheverSectionIsFirst)
{
    const Calls expected{"OnBlockBegin A", "OnArc b", "OnBlockEnd A", "OnLine e"};
    const std::string blocks = Blocks(Block("A", {{0, "ARC"}, {8, "b"}}));
    const std::string entities = Section("ENTITIES", Dxf({{0, "LINE"}, {8, "e"}}));
    EXPECT_EQ(CallbacksOf(blocks + entities), expected);
    EXPECT_EQ(CallbacksOf(entities + blocks), expected);
}

TEST(EmitCallbacks, BlocksWithInsertsComeAfterThoseWithoutEachInFileOrder)
{
    EXPECT_EQ(
        CallbacksOf(Blocks(Block("N1", {{0, "LINE"}, {8, "x"}, {0, "INSERT"}, {8, "y"}}) +
                           Block("P1", {{0, "LINE"}, {8, "p"}}) +
                           Block("N2", {{0, "INSERT"}, {8, "z"}, {0, "LINE"}, {8, "w"}}) + Block("P2", {})) +
                    EntitiesSection({{0, "INSERT"}, {8, "top"}})),
        (Calls{"OnBlockBegin P1", "OnLine p", "OnBlockEnd P1", "OnBlockBegin P2", "OnBlockEnd P2",
               "OnBlockBegin N1", "OnLine x", "OnInsert y", "OnBlockEnd N1", "OnBlockBegin N2", "OnInsert z",
               "OnLine w", "OnBlockEnd N2", "OnInsert top"}));
}

TEST(EmitCallbacks, DeeperNestingKeepsTheFileOrder)
{
    EXPECT_EQ(CallbacksOf(Blocks(Block("Top", {{0, "INSERT"}, {2, "Middle"}}) +
                                 Block("Middle", {{0, "INSERT"}, {2, "Leaf"}}) + Block("Leaf", {}))),
              (Calls{"OnBlockBegin Leaf", "OnBlockEnd Leaf", "OnBlockBegin Top", "OnInsert ",
                     "OnBlockEnd Top", "OnBlockBegin Middle", "OnInsert ", "OnBlockEnd Middle"}));
}

TEST(EmitCallbacks, BlocksOfTheSameNameAreAllEmitted)
{
    EXPECT_EQ(CallbacksOf(Blocks(Block("A", {{0, "LINE"}, {8, "1"}}) + Block("A", {{0, "LINE"}, {8, "2"}})) +
                          Blocks(Block("A", {{0, "LINE"}, {8, "3"}}))),
              (Calls{"OnBlockBegin A", "OnLine 1", "OnBlockEnd A", "OnBlockBegin A", "OnLine 2",
                     "OnBlockEnd A", "OnBlockBegin A", "OnLine 3", "OnBlockEnd A"}));
}

TEST(EmitCallbacks, MessagesOfTheWholeFileComeBeforeAnyDrawing)
{
    EXPECT_EQ(CallbacksOf(Blocks(Block("A", {{0, "ATTDEF"}, {1, "x"}})) +
                          EntitiesSection({{0, "LINE"}, {0, "SOLID"}})),
              (Calls{"OnError 0 6 ATTDEF - Unknown Object Type Name (10)",
                     "OnError 0 6 SOLID - Unknown Object Type Name (24)", "OnBlockBegin A", "OnBlockEnd A",
                     "OnLine "}));
}

TEST(EmitCallbacks, FileThatIsCutOffIsEmittedAsFarAsItWasRead)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\ncut"),
              (Calls{"OnError 0 5 ReadENTITIES_LINE() Failed to read line, Line:8", "OnLine cut"}));
}

TEST(EmitCallbacks, InsertMarksTheBlockThatHoldsIt)
{
    ReportingReader reader;
    reader.ReadText(Blocks(Block("Plain", {{0, "LINE"}}) + Block("Nested", {{0, "LINE"}, {0, "INSERT"}}) +
                           Block("Empty", {})));
    ASSERT_EQ(reader.blocks.size(), 3u);
    EXPECT_FALSE(reader.blocks[0]->hasNestedInsert);
    EXPECT_TRUE(reader.blocks[1]->hasNestedInsert);
    EXPECT_FALSE(reader.blocks[2]->hasNestedInsert);
}

TEST(EmitCallbacks, BlockThatIsMarkedAlreadyComesAfterThoseThatAreNot)
{
    OddRecords reader;
    reader.AddBlock("Marked").hasNestedInsert = true;
    reader.AddBlock("Plain");
    reader.EmitCallbacks();
    EXPECT_EQ(reader.calls,
              (Calls{"OnBlockBegin Plain", "OnBlockEnd Plain", "OnBlockBegin Marked", "OnBlockEnd Marked"}));
}

TEST(EmitCallbacks, KindsOutsideOneToNineArePassedOver)
{
    OddRecords reader;
    DXF_BLOCKS_BLOCK& block = reader.AddBlock("A");
    const std::int32_t kinds[] = {
        0, 10, -1, 257, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
    for (const std::int32_t kind : kinds) {
        reader.Add<DXF_GRAPHIC_LINE>(block.m_entities, kind, "odd");
        reader.Add<DXF_GRAPHIC_LINE>(reader.entities, kind, "odd");
    }
    reader.Add<DXF_GRAPHIC_LINE>(block.m_entities, DXF_ENTITY_LINE, "inner");
    reader.Add<DXF_GRAPHIC_LINE>(reader.entities, DXF_ENTITY_LINE, "outer");
    reader.EmitCallbacks();
    EXPECT_EQ(reader.calls, (Calls{"OnBlockBegin A", "OnLine inner", "OnBlockEnd A", "OnLine outer"}));
}

TEST(EmitCallbacks, KindSaysWhatARecordIsAndNotItsClass)
{
    OddRecords reader;
    DXF_BLOCKS_BLOCK& block = reader.AddBlock("A");
    reader.Add<DXF_GRAPHIC_INSERT>(block.m_entities, DXF_ENTITY_NONE, "unset");
    reader.AddBlock("B");
    reader.EmitCallbacks();
    EXPECT_FALSE(block.hasNestedInsert);
    EXPECT_EQ(reader.calls, (Calls{"OnBlockBegin A", "OnBlockEnd A", "OnBlockBegin B", "OnBlockEnd B"}));
}

TEST(EmitCallbacks, CallbacksGetTheRecordsThemselvesWhichOutliveThePass)
{
    const std::string drawing =
        Blocks(Block("A", {{0, "INSERT"}, {2, "B"}})) + EntitiesSection({{0, "ARC"}, {8, "Walls"}, {50, 30}});
    CDxfMemory memory(drawing);
    Borrower reader;
    reader.ReadDxfSource(memory);
    ASSERT_EQ(reader.blocks.size(), 1u);
    ASSERT_EQ(reader.entities.size(), 1u);
    const DXF_BLOCKS_BLOCK* const block = reader.blocks[0];
    EXPECT_EQ(reader.got, (std::vector<const void*>{block, block->m_entities[0], block, reader.entities[0]}));
    // OnArc may change its record.
    EXPECT_EQ(static_cast<const DXF_GRAPHIC_ARC*>(reader.entities[0])->m_dStartAngle, 31.0);
    EXPECT_EQ(reader.entities[0]->m_strLayer, std::wstring_view(L"Walls"));
}

TEST(EmitCallbacks, PlainReaderReadsAFileAndDoesNothingWithIt)
{
    const std::string drawing = Blocks(Dxf({{0, "BLOCK"}, {2, "All"}}) + kEveryKind + Dxf({{0, "ENDBLK"}})) +
                                Section("ENTITIES", kEveryKind) + Dxf({{0, "SECTION"}, {2, "ODD"}});
    RecordingHost::OfThread().Reset();
    CDxfMemory memory(drawing);
    CDxfRead reader;
    reader.ReadDxfSource(memory);
    EXPECT_EQ(RecordingHost::OfThread().Trace(), "");
    ASSERT_EQ(reader.blocks.size(), 1u);
    EXPECT_EQ(reader.blocks[0]->m_entities.size(), 9u);
    EXPECT_EQ(reader.entities.size(), 9u);
    EXPECT_EQ(reader.OnError(0, 1, L"", 0), 0);
}

TEST(EmitCallbacks, ReadersShareNothing)
{
    CallbackReader first, second;
    first.ReadText(Blocks(Block("A", {{0, "LINE"}, {8, "1"}})));
    second.ReadText(EntitiesSection({{0, "LINE"}, {8, "2"}}));
    EXPECT_EQ(first.calls, (Calls{"OnBlockBegin A", "OnLine 1", "OnBlockEnd A"}));
    EXPECT_EQ(second.calls, Calls{"OnLine 2"});
    EXPECT_TRUE(second.blocks.empty());
    EXPECT_TRUE(first.entities.empty());
}
