// Marks of layers in drawings that are written for the module.
#include "prepare/write/AgreedBlocks.h"
#include "support/WrittenDrawing.h"
#include "svghost/AgreedSymbols.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace prepare {
namespace {

class LayerMarks : public testing::Test {
protected:
    LayerMarks() { written.settings.marksLayers = true; }

    Style On(std::string_view layer)
    {
        Style style = StyleOf(7);
        style.layer = written.drawing.names.Of(layer);
        return style;
    }
    static void Draw(PlainSink& sink, const Style& style) { sink.Line(style, {0, 0}, {1, 1}); }
    // What is written from a place on: "mark A", "LINE", "INSERT PLEXORN_PART_1", "BLOCK ...", "end".
    static std::string Short(const std::string& text, const std::string& from, const std::string& to)
    {
        std::string all;
        std::string type;
        std::size_t at = text.find(from) + from.size();
        const std::size_t end = text.find(to, at);
        while (at < end) {
            const std::size_t line = text.find('\n', at), next = text.find('\n', line + 1);
            const std::string code = text.substr(at, line - at),
                              value = text.substr(line + 1, next - line - 1);
            at = next + 1;
            if (code == "0" && value != "INSERT" && value != "BLOCK")
                all += value + ";";
            if (code == "0")
                type = value;
            if (code == "2")
                all += type + " " + value + ";";
        }
        return all;
    }
    std::string Entities() { return Short(Text(), "2\nENTITIES\n", "0\nENDSEC\n"); }
    std::string Blocks() { return Short(Text(), "2\nBLOCKS\n", "0\nENDSEC\n"); }
    const std::string& Text()
    {
        if (m_text.empty())
            m_text = written.Text();
        return m_text;
    }

    WrittenDrawing written;

private:
    std::string m_text;
};

TEST_F(LayerMarks, ComeWhereTheLayerChanges)
{
    const std::vector<std::vector<Point2>> square{{{0, 0}, {10, 0}, {10, 10}}};
    Draw(written.Model(), On("A"));
    Draw(written.Model(), On("A"));
    written.Model().Fill(On("B"), square);
    written.Model().Text(On("B"), {"word", {0, 0}, {5, 0}, {0, 5}, Anchor::Start, kNoName});
    written.Model().Mask(square);
    written.Model().Text(On("A"), {"turned", {0, 0}, {0, 5}, {-5, 0}, Anchor::Start, kNoName});
    Draw(written.Model(), StyleOf(1));
    EXPECT_EQ(Entities(),
              "INSERT PLEXORN_LAYER_A;LINE;LINE;INSERT PLEXORN_LAYER_B;INSERT PLEXORN_FILL_1;TEXT;"
              "INSERT PLEXORN_LAYER_;INSERT PLEXORN_FILL_MASK_2;INSERT PLEXORN_LAYER_A;"
              "INSERT PLEXORN_TEXT_1;INSERT PLEXORN_LAYER_0;LINE;");
    EXPECT_EQ(Blocks(),
              "BLOCK PLEXORN_LAYER_;ENDBLK;BLOCK PLEXORN_LAYER_A;ENDBLK;BLOCK PLEXORN_LAYER_B;ENDBLK;"
              "BLOCK PLEXORN_LAYER_0;ENDBLK;BLOCK PLEXORN_FILL_1;LWPOLYLINE;ENDBLK;"
              "BLOCK PLEXORN_FILL_MASK_2;LWPOLYLINE;ENDBLK;BLOCK PLEXORN_TEXT_1;TEXT;ENDBLK;");
}

TEST_F(LayerMarks, BlockOfOneLayerIsOnThatLayer)
{
    const std::size_t inner = written.Writer().NewBlock("inner"), outer = written.Writer().NewBlock("outer");
    Draw(written.Writer().Block(inner), On("A"));
    Draw(written.Writer().Block(outer), On("A"));
    written.Writer().Block(outer).Insert(inner, {0, 0}, 0, false);
    Draw(written.Model(), On("A"));
    written.Model().Insert(outer, {0, 0}, 0, false);
    EXPECT_EQ(Entities(), "INSERT PLEXORN_LAYER_A;LINE;INSERT PLEXORN_PART_1;");
    EXPECT_EQ(Blocks(), "BLOCK PLEXORN_LAYER_;ENDBLK;BLOCK PLEXORN_LAYER_A;ENDBLK;"
                        "BLOCK PLEXORN_PART_1;LINE;INSERT PLEXORN_PART_2;ENDBLK;"
                        "BLOCK PLEXORN_PART_2;LINE;ENDBLK;");
}

TEST_F(LayerMarks, BlockOfSeveralLayersHasMarksOfItsOwn)
{
    const std::size_t inner = written.Writer().NewBlock("inner"), outer = written.Writer().NewBlock("outer");
    Draw(written.Writer().Block(inner), On("B"));
    Draw(written.Writer().Block(outer), On("A"));
    written.Writer().Block(outer).Insert(inner, {0, 0}, 0, false);
    Draw(written.Model(), On("A"));
    written.Model().Insert(outer, {0, 0}, 0, false);
    EXPECT_EQ(Entities(), "INSERT PLEXORN_LAYER_A;LINE;INSERT PLEXORN_LAYER_;INSERT PLEXORN_PART_1;");
    EXPECT_NE(Blocks().find("BLOCK PLEXORN_PART_1;INSERT PLEXORN_LAYER_A;LINE;INSERT PLEXORN_LAYER_B;"
                            "INSERT PLEXORN_PART_2;ENDBLK;BLOCK PLEXORN_PART_2;LINE;ENDBLK;"),
              std::string::npos)
        << Blocks();
}

TEST_F(LayerMarks, WrappedDrawingHasThemInItsBlock)
{
    written.settings.thinnest = 0.001;
    written.settings.thinnestWeight = 0;
    Draw(written.Model(), On("A"));
    EXPECT_EQ(Entities(), "INSERT PLEXORN_PART_W1;");
    EXPECT_NE(Blocks().find("BLOCK PLEXORN_PART_W1;INSERT PLEXORN_LAYER_A;LINE;ENDBLK;"), std::string::npos);
}

TEST_F(LayerMarks, LongNamesAreCut)
{
    Draw(written.Model(), On(std::string(5000, 'x')));
    EXPECT_NE(Text().find("PLEXORN_LAYER_" + std::string(1000, 'x') + "\n"), std::string::npos);
    EXPECT_EQ(Text().find(std::string(1001, 'x')), std::string::npos);
}

TEST_F(LayerMarks, AreNotWrittenUnlessTheyAreWanted)
{
    written.settings.marksLayers = false;
    Draw(written.Model(), On("A"));
    EXPECT_EQ(Text().find("PLEXORN_LAYER_"), std::string::npos);
}

TEST(LayerNames, AreThoseOfTheHost)
{
    EXPECT_EQ(std::wstring(kLayerPrefix.begin(), kLayerPrefix.end()), svghost::kLayerPrefix);
    EXPECT_EQ(std::wstring(kWrapPrefix.begin(), kWrapPrefix.end()), svghost::kWrapPrefix);
    EXPECT_TRUE(kWrapPrefix.starts_with(kPartPrefix));
}

} // namespace
} // namespace prepare
