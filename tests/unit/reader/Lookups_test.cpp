// Layers and line types by name, colours by number.
#include "support/Import.h"

#include <gtest/gtest.h>

namespace {

class Drawing : public ReportingReader {
public:
    explicit Drawing(std::string_view lines) { ReadText(Section("TABLES", lines)); }
};

std::string Layer(std::string_view name, std::string_view color)
{
    return Dxf({{0, "LAYER"}, {100, "m"}, {2, name}, {62, color}});
}

std::string LineType(std::string_view name, std::string_view length)
{
    return Dxf({{0, "LTYPE"}, {100, "m"}, {2, name}, {40, length}});
}

std::string Table(std::string_view entries)
{
    return Dxf({{0, "TABLE"}, {2, "ANY"}}) + std::string(entries) + Dxf({{0, "ENDTAB"}});
}

std::uint32_t ColorOfLayerWith(std::string_view color)
{
    return Drawing(Table(Layer("Walls", color))).GetLayerColor(L"Walls");
}

} // namespace

TEST(Lookups, LayerAndLineTypeAreFoundByName)
{
    Drawing drawing(Table(LineType("Dashed", "3")) + Table(Layer("Walls", "1") + Layer("Doors", "2")));
    ASSERT_NE(drawing.FindLayer(L"Doors"), nullptr);
    EXPECT_EQ(drawing.FindLayer(L"Doors")->m_nColor, 2);
    EXPECT_EQ(drawing.FindLayer(L"Walls")->m_nColor, 1);
    ASSERT_NE(drawing.FindLineType(L"Dashed"), nullptr);
    EXPECT_EQ(drawing.FindLineType(L"Dashed")->m_dPatternLength, 3.0);
}

TEST(Lookups, NamesAreComparedToTheLetter)
{
    Drawing drawing(Table(Layer("Walls", "1") + LineType("Dashed", "3")));
    for (const wchar_t* const name : {L"walls", L"WALLS", L"Wall", L"Walls2", L" Walls", L"Dashed", L""})
        EXPECT_EQ(drawing.FindLayer(name), nullptr);
    for (const wchar_t* const name : {L"dashed", L"Dashed ", L"Walls", L""})
        EXPECT_EQ(drawing.FindLineType(name), nullptr);
}

TEST(Lookups, EmptyNameFindsNothingThoughAnEntryHasIt)
{
    Drawing drawing(Table(Layer("", "1") + LineType("", "3")));
    EXPECT_EQ(drawing.FindLayer(L""), nullptr);
    EXPECT_EQ(drawing.FindLineType(L""), nullptr);
    EXPECT_EQ(drawing.GetLayerColor(L""), 0xFFFFFFu);
}

TEST(Lookups, FirstEntryOfANameIsFound)
{
    Drawing drawing(Table(Layer("a", "1") + LineType("a", "3")) +
                    Table(LineType("a", "4") + Layer("a", "2")));
    EXPECT_EQ(drawing.FindLayer(L"a")->m_nColor, 1);
    EXPECT_EQ(drawing.FindLineType(L"a")->m_dPatternLength, 3.0);
}

TEST(Lookups, FirstEntryOfANameHidesALaterOneThatHasAColour)
{
    Drawing drawing(Table(Layer("a", "-1") + Layer("a", "1")));
    EXPECT_EQ(drawing.GetLayerColor(L"a"), 0xFFFFFFu);
}

TEST(Lookups, BlockRecordOfTheNameIsNoLayerAndNoLineType)
{
    Drawing drawing(Table(Dxf({{0, "BLOCK_RECORD"}, {100, "m"}, {2, "a"}})));
    EXPECT_EQ(drawing.FindLayer(L"a"), nullptr);
    EXPECT_EQ(drawing.FindLineType(L"a"), nullptr);
}

TEST(Lookups, NothingIsFoundInADrawingWithoutTables)
{
    ReportingReader reader;
    EXPECT_EQ(reader.FindLayer(L"a"), nullptr);
    EXPECT_EQ(reader.FindLineType(L"a"), nullptr);
    EXPECT_EQ(reader.GetLayerColor(L"a"), 0xFFFFFFu);
}

TEST(Lookups, EntriesReadLaterAreFoundToo)
{
    ReportingReader reader;
    reader.ReadText(Section("TABLES", Table(Layer("a", "1"))));
    EXPECT_EQ(reader.FindLayer(L"b"), nullptr);
    reader.ReadText(Section("TABLES", Table(Layer("b", "2"))));
    EXPECT_NE(reader.FindLayer(L"a"), nullptr);
    EXPECT_NE(reader.FindLayer(L"b"), nullptr);
}

TEST(Lookups, EachOfManyIsFound)
{
    std::string entries;
    for (int i = 0; i < 3000; ++i)
        entries += Layer("L" + std::to_string(i), std::to_string(i)) + LineType("L" + std::to_string(i), "1");
    Drawing drawing(Table(entries));
    for (int i = 0; i < 3000; ++i) {
        const std::wstring name = L"L" + std::to_wstring(i);
        ASSERT_NE(drawing.FindLayer(name), nullptr);
        ASSERT_EQ(drawing.FindLayer(name)->m_nColor, i);
        ASSERT_NE(drawing.FindLineType(name), nullptr);
    }
}

TEST(Lookups, LayerLendsTheColourOfItsNumber)
{
    EXPECT_EQ(ColorOfLayerWith("1"), 0x0000FFu);
    EXPECT_EQ(ColorOfLayerWith("5"), 0xFF0000u);
    EXPECT_EQ(ColorOfLayerWith("250"), 0x333333u);
    EXPECT_EQ(ColorOfLayerWith("254"), 0xBEBEBEu);
}

TEST(Lookups, LayerWithoutAColourOfTheTableLendsWhite)
{
    for (const char* const color :
         {"0", "-1", "-3", "-250", "256", "257", "1000", "-2147483648", "2147483647", "", "x"})
        EXPECT_EQ(ColorOfLayerWith(color), 0xFFFFFFu) << color;
}

TEST(Lookups, LayerThatIsOffKeepsItsNumberAndLendsWhite)
{
    Drawing drawing(Dxf({{0, "TABLE"},
                         {2, "LAYER"},
                         {0, "LAYER"},
                         {5, "10"},
                         {100, "AcDbSymbolTableRecord"},
                         {100, "AcDbLayerTableRecord"},
                         {2, "Walls"},
                         {70, 0},
                         {62, -3},
                         {6, "CONTINUOUS"},
                         {0, "ENDTAB"}}));
    ASSERT_NE(drawing.FindLayer(L"Walls"), nullptr);
    EXPECT_EQ(drawing.FindLayer(L"Walls")->m_nColor, -3);
    EXPECT_EQ(drawing.FindLayer(L"walls"), nullptr);
    EXPECT_EQ(drawing.GetLayerColor(L"Walls"), 0xFFFFFFu);
}

TEST(Lookups, LayerWithoutAColourLendsWhite)
{
    Drawing drawing(Table(Dxf({{0, "LAYER"}, {100, "m"}, {2, "Walls"}})));
    EXPECT_EQ(drawing.GetLayerColor(L"Walls"), 0xFFFFFFu);
}
