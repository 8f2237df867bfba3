// TEXT and MTEXT records in the host's document.
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "support/Import.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// The two bytes that UTF-8 has for an e with an acute accent, as they come out of the system's code page.
#ifdef _WIN32
constexpr const char* kAccent = "\xC3\x83\xC2\xA9"; // 1252: two characters
#else
constexpr const char* kAccent = "\xC3\xA9"; // UTF-8
#endif

class TextDrawing : public ::testing::Test {
protected:
    void SetUp() override
    {
        host.Reset();
        converter.InitColorTable();
    }

    std::string Draw(const DXF_GRAPHIC_TEXT& text)
    {
        host.Reset();
        converter.OnText(text);
        return host.Trace();
    }
    std::string Draw(const DXF_GRAPHIC_MTEXT& text)
    {
        host.Reset();
        converter.OnMText(text);
        return host.Trace();
    }

    // The value of an attribute in a trace, "unset" if it is not there.
    static std::string Attribute(std::string_view trace, std::string_view name)
    {
        const std::string start = "n1, \"" + std::string(name) + "\", \"";
        const std::size_t at = trace.find(start);
        if (at == trace.npos)
            return "unset";
        trace.remove_prefix(at + start.size());
        return std::string(trace.substr(0, trace.find('"')));
    }
    std::string FontSize(double height)
    {
        DXF_GRAPHIC_TEXT text;
        text.m_dHeight = height;
        return Attribute(Draw(text), "font-size");
    }
    // The first two numbers of qlmCreateText.
    std::string Place(double x, double y, double height)
    {
        DXF_GRAPHIC_TEXT text;
        text.m_dInsertX = x;
        text.m_dInsertY = y;
        text.m_dHeight = height;
        const std::string trace = Draw(text), start = "qlmCreateText(ctx, \"\", ";
        return trace.substr(start.size(), trace.find(", 0, 0, \"") - start.size());
    }

    RecordingHost& host = RecordingHost::OfThread();
    CDxfReadToQuillmar converter{RecordingHost::Context()};
};

} // namespace

TEST_F(TextDrawing, TextIsOneHeightBelowItsInsertionPoint)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "TEXT"}, {10, 10}, {20, 20}, {40, 2.5}, {1, "Hello"}})),
              "qlmCreateText(ctx, \"\", 10, -17.5, 0, 0, \"Hello\", 0, 0) = n1\n"
              "qlmSetAttributeByNode(ctx, n1, \"font-size\", \"2.50\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke\", \"RGB(255,255,255)\")\n");
}

TEST_F(TextDrawing, MTextIsOneHeightBelowItsInsertionPointWithAnAnchor)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "MTEXT"}, {10, 10}, {20, 20}, {40, 2.5}, {1, "Hello"}})),
              "qlmCreateText(ctx, \"\", 10, -17.5, 0, 0, \"Hello\", 0, 0) = n1\n"
              "qlmSetAttributeByNode(ctx, n1, \"font-size\", \"2.50\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke\", \"RGB(255,255,255)\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"text-anchor\", \"left\")\n");
}

TEST_F(TextDrawing, TextWithoutGroupsIsEmptyAndFiveHigh)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "TEXT"}})),
              "qlmCreateText(ctx, \"\", 0, 5, 0, 0, \"\", 0, 0) = n1\n"
              "qlmSetAttributeByNode(ctx, n1, \"font-size\", \"5.00\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke\", \"RGB(255,255,255)\")\n");
}

TEST_F(TextDrawing, AnchorOfATextComesFromItsHorizontalJustification)
{
    const auto anchor = [&](int align) {
        DXF_GRAPHIC_TEXT text;
        text.m_nHorzAlign = align;
        return Attribute(Draw(text), "text-anchor");
    };
    EXPECT_EQ(anchor(1), "middle");
    EXPECT_EQ(anchor(2), "end");
    for (const int align : {-1, 0, 3, 4, 5, 6, 257})
        EXPECT_EQ(anchor(align), "unset") << align;
}

TEST_F(TextDrawing, AnchorOfAnMTextComesFromItsAttachment)
{
    const auto anchor = [&](int attachment) {
        DXF_GRAPHIC_MTEXT text;
        text.m_nAttachment = attachment;
        return Attribute(Draw(text), "text-anchor");
    };
    EXPECT_EQ(anchor(1), "left");
    EXPECT_EQ(anchor(2), "middle");
    EXPECT_EQ(anchor(3), "right");
    for (const int attachment : {-1, 0, 4, 5, 6, 7, 8, 9, 10, 257})
        EXPECT_EQ(anchor(attachment), "unset") << attachment;
}

TEST_F(TextDrawing, FontSizeHasTwoDecimalsAndAtLeastFourCharacters)
{
    EXPECT_EQ(FontSize(1234.567), "1234.57");
    EXPECT_EQ(FontSize(0.5), "0.50");
    EXPECT_EQ(FontSize(0.0), "0.00");
    EXPECT_EQ(FontSize(-0.0), "-0.00");
    EXPECT_EQ(FontSize(-2.5), "-2.50");
    EXPECT_EQ(FontSize(0.125), "0.12"); // a tie goes to the even digit
    EXPECT_EQ(FontSize(0.375), "0.38");
    EXPECT_EQ(FontSize(1.005), "1.00"); // just below the tie
    EXPECT_EQ(FontSize(1e15), "1000000000000000.00");
}

TEST_F(TextDrawing, FontSizeThatIsNotFiniteIsPaddedLikeAnyText)
{
    EXPECT_EQ(FontSize(std::numeric_limits<double>::infinity()), " inf");
    EXPECT_EQ(FontSize(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(FontSize(std::numeric_limits<double>::quiet_NaN()), " nan");
    EXPECT_EQ(FontSize(-std::numeric_limits<double>::quiet_NaN()), " nan");
    EXPECT_NE(TraceOf(EntitiesSection({{0, "TEXT"}, {20, 1}, {40, "1e999"}}))
                  .find("qlmCreateText(ctx, \"\", 0, inf, 0, 0, \"\", 0, 0) = n1\n"
                        "qlmSetAttributeByNode(ctx, n1, \"font-size\", \" inf\")\n"),
              std::string::npos);
}

TEST_F(TextDrawing, FontSizeIsNotNarrowedToAFloat)
{
    EXPECT_EQ(FontSize(16777217.25), "16777217.25");
}

TEST_F(TextDrawing, PlaceIsAddedInDoubleAndNarrowedOnce)
{
    // Narrowed one by one the sums would be 16777216 and 16777217, which is no float either.
    EXPECT_EQ(Place(16777217.0, -16777217.0, 1.0), "16777216, 16777218");
    EXPECT_EQ(Place(0.1, 0.0, 0.1), "0.1, 0.1");
    EXPECT_EQ(Place(1e39, 1.0, -1e39), "inf, -inf");
}

TEST_F(TextDrawing, HeightMovesTheTextDownWhetherYIsFlippedOrNot)
{
    EXPECT_EQ(Place(10.0, 20.0, 2.5), "10, -17.5");
    for (const int mode : {0, 1, 3, -2}) {
        converter.yAxisMode = mode;
        EXPECT_EQ(Place(10.0, 20.0, 2.5), "10, 22.5") << mode;
    }
}

TEST_F(TextDrawing, ScaleAppliesToThePlaceAndTheHeight)
{
    converter.scale = 4.0;
    DXF_GRAPHIC_MTEXT text;
    text.m_dInsertX = 10.0;
    text.m_dInsertY = 20.0;
    text.m_dHeight = 2.5;
    text.m_nAttachment = 5;
    EXPECT_EQ(Draw(text), "qlmCreateText(ctx, \"\", 40, -70, 0, 0, \"\", 0, 0) = n1\n"
                          "qlmSetAttributeByNode(ctx, n1, \"font-size\", \"10.00\")\n"
                          "qlmSetAttributeByNode(ctx, n1, \"stroke\", \"RGB(255,255,255)\")\n");
}

TEST_F(TextDrawing, NothingButPlaceSizeColorAndAnchorIsDrawn)
{
    const std::string plain = TraceOf(EntitiesSection({{0, "TEXT"}, {1, "A"}}));
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "TEXT"},
                                       {1, "A"},
                                       {7, "Roman"},
                                       {41, 0.5},
                                       {50, 90},
                                       {51, 15},
                                       {71, 2},
                                       {73, 3},
                                       {11, 7},
                                       {21, 8},
                                       {30, 9},
                                       {60, 1},
                                       {6, "DASHED"},
                                       {370, 50}})),
              plain);
    const std::string mtext = TraceOf(EntitiesSection({{0, "MTEXT"}, {1, "A"}}));
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "MTEXT"},
                                       {1, "A"},
                                       {3, "more"},
                                       {7, "Roman"},
                                       {11, 0},
                                       {21, 1},
                                       {50, 1},
                                       {41, 9},
                                       {30, 9},
                                       {60, 1},
                                       {44, 2},
                                       {63, 1},
                                       {420, 255},
                                       {6, "DASHED"},
                                       {370, 50}})),
              mtext);
}

TEST_F(TextDrawing, InvisibleTextIsCreatedWithoutVisibility)
{
    const std::string trace = TraceOf(EntitiesSection({{0, "TEXT"}, {60, 1}, {0, "MTEXT"}, {60, 1}}));
    EXPECT_EQ(trace.find("visibility"), std::string::npos);
    EXPECT_NE(trace.find("= n1\n"), std::string::npos);
    EXPECT_NE(trace.find("= n2\n"), std::string::npos);
}

TEST_F(TextDrawing, StrokeIsTheColorOfTheEntity)
{
    DXF_GRAPHIC_TEXT text;
    text.m_nColor = 1;
    EXPECT_EQ(Attribute(Draw(text), "stroke"), "RGB(255,0,0)");
    text.m_nTrueColor = 0x123456; // its low byte is printed as red
    EXPECT_EQ(Attribute(Draw(text), "stroke"), "RGB(86,52,18)");
    DXF_GRAPHIC_MTEXT mtext;
    mtext.m_nColor = 5;
    mtext.m_nBackgroundTrueColor = 0x123456;
    EXPECT_EQ(Attribute(Draw(mtext), "stroke"), "RGB(0,0,255)");
}

TEST_F(TextDrawing, StrokeIsTheColorOfTheLayerWhereTheEntityHasNone)
{
    const std::string layer = Section("TABLES", Dxf({{0, "TABLE"},
                                                     {2, "LAYER"},
                                                     {0, "LAYER"},
                                                     {100, "AcDbSymbolTableRecord"},
                                                     {2, "Notes"},
                                                     {62, 3},
                                                     {0, "ENDTAB"}}));
    const std::string text = TraceOf(layer + EntitiesSection({{0, "TEXT"}, {8, "Notes"}}));
    EXPECT_EQ(Attribute(text, "stroke"), "RGB(0,255,0)");
    const std::string mtext = TraceOf(layer + EntitiesSection({{0, "MTEXT"}, {8, "Notes"}, {62, 256}}));
    EXPECT_EQ(Attribute(mtext, "stroke"), "RGB(0,255,0)");
}

TEST_F(TextDrawing, TextIsPassedOnExactlyAsRead)
{
    const auto passed = [](std::string_view type, std::string_view text) {
        const std::string trace = TraceOf(EntitiesSection({{0, type}, {1, text}}));
        const std::size_t begin = trace.find("0, 5, 0, 0, \"") + 13;
        return trace.substr(begin, trace.find("\", 0, 0) = n1") - begin);
    };
    for (const std::string_view type : {"TEXT", "MTEXT"}) {
        EXPECT_EQ(passed(type, "  two blanks  "), "  two blanks  ");
        EXPECT_EQ(passed(type, "50%%d <b>&amp;</b> %s %n"), "50%%d <b>&amp;</b> %s %n");
        // A backslash is \x5C in a trace.
        EXPECT_EQ(passed(type, "{\\fArial|b1;A}\\PB \\S1/2;\\U+00B0"),
                  "{\\x5CfArial|b1;A}\\x5CPB \\x5CS1/2;\\x5CU+00B0");
        EXPECT_EQ(passed(type, "caf\xC3\xA9"), std::string("caf") + kAccent);
        EXPECT_EQ(passed(type, std::string(1023, 'x')), std::string(1023, 'x'));
    }
}

TEST_F(TextDrawing, ChunksOfAnMTextAreNotDrawn)
{
    EXPECT_NE(TraceOf(EntitiesSection({{0, "MTEXT"}, {3, "part one"}, {1, "end"}})).find(", \"end\", 0, 0)"),
              std::string::npos);
    EXPECT_NE(TraceOf(EntitiesSection({{0, "MTEXT"}, {3, "part one"}})).find(", \"\", 0, 0)"),
              std::string::npos);
}

TEST_F(TextDrawing, NothingIsDrawnWhileDrawingIsOff)
{
    converter.drawEnabled = false;
    EXPECT_EQ(Draw(DXF_GRAPHIC_TEXT()), "");
    EXPECT_EQ(Draw(DXF_GRAPHIC_MTEXT()), "");
}

TEST_F(TextDrawing, NothingIsDrawnWithoutAContextNode)
{
    converter.parentNode = nullptr;
    EXPECT_EQ(Draw(DXF_GRAPHIC_TEXT()), "");
    EXPECT_EQ(Draw(DXF_GRAPHIC_MTEXT()), "");
}

TEST_F(TextDrawing, TextThatTheHostRefusesStillGetsItsAttributes)
{
    host.refuseAll = true;
    DXF_GRAPHIC_TEXT text;
    text.m_nHorzAlign = 1;
    converter.OnText(text);
    EXPECT_EQ(host.Trace(), "qlmCreateText(ctx, \"\", 0, 5, 0, 0, \"\", 0, 0) = 0\n"
                            "qlmSetAttributeByNode(ctx, 0, \"font-size\", \"5.00\")\n"
                            "qlmSetAttributeByNode(ctx, 0, \"stroke\", \"RGB(255,255,255)\")\n"
                            "qlmSetAttributeByNode(ctx, 0, \"text-anchor\", \"middle\")\n");
}
