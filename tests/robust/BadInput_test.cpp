// Input that is no drawing: each ends at once, with its message.
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/TempFile.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

const char* const kNotOpened = "qlmSetLastError(0, \"DXF\", 1, \"Failed to load DXF file.\", false, 0)\n";

constexpr int kEndOfFile = 0x1A; // the byte

// Its message shows that the reader came as far.
const std::string kUnknownSection = Dxf({{0, "SECTION"}, {2, "X"}});

std::string TraceOfPath(const std::wstring& path)
{
    RecordingHost::OfThread().Reset();
    EXPECT_TRUE(dxfFileOpen(path.c_str(), RecordingHost::Context()));
    return RecordingHost::OfThread().Trace();
}

std::string TraceOfFile(std::string_view bytes)
{
    const TempFile file(bytes);
    return TraceOfPath(file.WidePath());
}

std::string Message(int kind, const std::string& text)
{
    return "qlmSetLastError(0, \"DXF\", " + std::to_string(kind) + ", \"" + text + "\", false, 0)\n";
}

} // namespace

TEST(BadInput, MissingFileIsNotOpened)
{
    std::wstring path;
    {
        const TempFile file("");
        path = file.WidePath();
    }
    EXPECT_EQ(TraceOfPath(path), kNotOpened);
}

TEST(BadInput, EmptyPathIsNotOpened)
{
    EXPECT_EQ(TraceOfPath(std::wstring()), kNotOpened);
}

TEST(BadInput, DirectoryIsNotOpened)
{
    EXPECT_EQ(TraceOfPath(std::filesystem::temp_directory_path().wstring()), kNotOpened);
    EXPECT_EQ(TraceOfPath(L"."), kNotOpened);
}

TEST(BadInput, PathOfManyCharactersIsNotOpened)
{
    EXPECT_EQ(TraceOfPath(std::wstring(100'000, L'x')), kNotOpened);
}

// Two halves of a pair in the wrong order: no code page has an equivalent.
TEST(BadInput, PathThatHasNoNarrowFormIsNotOpened)
{
    std::wstring path = L"a";
    path += static_cast<wchar_t>(0xDC00);
    path += static_cast<wchar_t>(0xD800);
    EXPECT_EQ(TraceOfPath(path), kNotOpened);
}

TEST(BadInput, EmptyFileGivesNothing)
{
    EXPECT_EQ(TraceOfFile(""), "");
    EXPECT_EQ(TraceOfFile("\n"), "");
    EXPECT_EQ(TraceOfFile(Dxf({{0, "EOF"}})), "");
    EXPECT_EQ(TraceOfFile("EOF"), "");
}

TEST(BadInput, EveryByteValueGivesNothing)
{
    std::string bytes;
    for (int value = 0; value < 256; ++value)
        if (value != kEndOfFile)
            bytes += static_cast<char>(value);
    EXPECT_EQ(TraceOfFile(bytes), "");
    EXPECT_EQ(TraceOfFile(bytes + "\n" + bytes + "\r\n" + bytes), "");
    EXPECT_EQ(TraceOfFile(bytes + "\n" + kUnknownSection), Message(2, "X - Unknown Section Name Line (6)"))
        << "the file is read to its end";
}

TEST(BadInput, BinaryFormGivesNothingButLinesThatAreTooLong)
{
    std::mt19937 random(1); // fixed: the same bytes each time
    std::string bytes = "Binary drawing\r\n";
    for (int i = 0; i < 200'000; ++i) {
        const auto value = random() % 256;
        bytes += static_cast<char>(value == kEndOfFile ? 0 : value);
    }
    const std::string trace = TraceOfFile(bytes + "\n" + kUnknownSection);
    const auto lines = std::count(bytes.begin(), bytes.end(), '\n') + 1;
    EXPECT_EQ(Without("qlmSetLastError(0, \"DXF\", 10, ", trace),
              Message(2, "X - Unknown Section Name Line (" + std::to_string(lines + 4) + ")"));
}

TEST(BadInput, OverlongLineIsCutAndReported)
{
    const std::string longest(1023, 'x');
    EXPECT_EQ(TraceOfFile(longest + "\n" + Dxf({{0, "EOF"}})), "");
    EXPECT_EQ(TraceOfFile(longest + "y\n" + Dxf({{0, "EOF"}})),
              Message(10, "CDxfRead Line longer than 1023 characters cut, Line:1"));
    EXPECT_EQ(TraceOfFile("\n" + std::string(10'000'000, 'x') + "\n0\nSECTION\n2\nX"),
              Message(10, "CDxfRead Line longer than 1023 characters cut, Line:2") +
                  Message(2, "X - Unknown Section Name Line (6)"));
}

TEST(BadInput, OverlongTextIsItsFirst1023Characters)
{
    const std::string longest(1023, 'x');
    const std::string trace = TraceOf(EntitiesSection({{0, "TEXT"}, {1, longest + "yyy"}, {40, 1}}));
    EXPECT_EQ(trace.substr(0, trace.find("qlmSetAttribute")),
              Message(10, "CDxfRead Line longer than 1023 characters cut, Line:8") +
                  "qlmCreateText(ctx, \"\", 0, 1, 0, 0, \"" + longest + "\", 0, 0) = n1\n");
}

TEST(BadInput, NulByteEndsItsLine)
{
    using namespace std::string_literals;
    EXPECT_EQ(TraceOf("0\0x\nSECTION\0\n2\nENTITIES\n0\nTEXT\n40\n1\n1\nbe\0hind\n0\nENDSEC\n"s),
              "qlmCreateText(ctx, \"\", 0, 1, 0, 0, \"be\", 0, 0) = n1\n" +
                  Attribute("n1", "font-size", "1.00") + Attribute("n1", "stroke", "RGB(255,255,255)"));
    EXPECT_EQ(TraceOf(std::string(1'000'000, '\0')),
              Message(10, "CDxfRead Line longer than 1023 characters cut, Line:1"));
}

TEST(BadInput, Byte1AEndsTheFile)
{
    EXPECT_EQ(TraceOf("0\nSECTION\n2\nENTITIES\n0\nLINE\n11\n1\x1A\n11\n2\n0\nENDSEC\n0\nEOF\n"),
              Message(5, "ReadENTITIES_LINE() Failed to read line, Line:8") +
                  "qlmCreateLine(ctx, \"\", 0, -0, 1, -0, 0, 0) = n1\n" + Style("n1"));
}

// 4294967306 is 2 to the 32nd and 10, -4294967276 the same below 0 and 20.
TEST(BadInput, GroupCodesBeyond32BitsWrap)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LINE"}, {"4294967306", 5}, {"-4294967276", 6}})),
              "qlmCreateLine(ctx, \"\", 5, -6, 0, -0, 0, 0) = n1\n" + Style("n1"));
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LINE"}, {"99999999999999999999", "x"}, {"2147483648", "y"}})),
              "qlmSetLastError(1, \"DXF\", 7, \"ReadENTITIES_COMMON Unknown Dimension type  ('1661992959' = "
              "'x') Line:8\", false, 0)\n"
              "qlmSetLastError(1, \"DXF\", 7, \"ReadENTITIES_COMMON Unknown Dimension type  ('-2147483648' = "
              "'y') Line:10\", false, 0)\n"
              "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n1\n" +
                  Style("n1"));
}

TEST(BadInput, HugeNumbersAreDrawnInAnyPlace)
{
    for (const char* number : {"1e308", "-1e308", "1e400", "-1e400", "1e-400", "1e99999999999999999999"}) {
        std::string pairs;
        for (const char* code : {"10", "20", "30", "11", "21", "31", "40", "41", "42", "50",
                                 "51", "13", "23", "14", "24", "15", "25", "16", "26", "230"})
            pairs += Dxf({{code, number}});
        std::string drawing = Dxf({{0, "SECTION"}, {2, "ENTITIES"}});
        for (const char* name : {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "TEXT", "MTEXT", "INSERT"})
            drawing += Dxf({{0, name}}) + pairs;
        for (const char* part : {"AlignedDimension", "RotatedDimension", "RadialDimension",
                                 "DiametricDimension", "2LineAngularDimension", "OrdinateDimension"})
            drawing += Dxf({{0, "DIMENSION"}, {100, "AcDbDimension"}}) + pairs +
                       Dxf({{100, "AcDbAlignedDimension"}}) + pairs +
                       Dxf({{100, std::string("AcDb") + part}}) + pairs;
        const std::string trace =
            Without("qlmSetLastError(1, \"DXF\", 7, ", TraceOf(drawing + Dxf({{0, "ENDSEC"}})));
        EXPECT_EQ(trace.find("qlmSetLastError"), std::string::npos) << number;
        for (const char* created : {"Line", "Path", "Circle", "Polyline", "Text", "Use", "G"})
            EXPECT_NE(trace.find(std::string("qlmCreate") + created + "("), std::string::npos)
                << number << created;
    }
}

// 2e300 degrees in a loop that adds 360 would never come to an end.
TEST(BadInput, HugeAnglesEndAtOnce)
{
    for (const char* angle : {"1e300", "-1e300", "2e300", "1e17", "-1e17", "1e400", "-1e400"}) {
        const std::string trace = TraceOf(EntitiesSection({{0, "ARC"},
                                                           {40, 1},
                                                           {50, angle},
                                                           {51, angle},
                                                           {0, "ELLIPSE"},
                                                           {11, 1},
                                                           {40, 0.5},
                                                           {41, angle},
                                                           {42, 1},
                                                           {0, "INSERT"},
                                                           {50, angle},
                                                           {0, "TEXT"},
                                                           {50, angle},
                                                           {0, "MTEXT"},
                                                           {50, angle}}));
        EXPECT_EQ(trace.find("qlmCreatePath(ctx, \"\", \"M "), 0u) << angle;
        EXPECT_NE(trace.find("qlmCreateUse("), std::string::npos) << angle;
    }
}

TEST(BadInput, OfRandomPairsIsReadToItsEnd)
{
    const char* const values[] = {"0",      "SECTION", "ENTITIES", "BLOCKS",    "TABLES",
                                  "TABLE",  "LAYER",   "LTYPE",    "ENDTAB",    "ENDSEC",
                                  "BLOCK",  "ENDBLK",  "LINE",     "DIMENSION", "AcDbDimension",
                                  "2",      "100",     "102",      "}",         "1000",
                                  "DSTYLE", "1002",    "-1e9",     "",          "EOF"};
    std::mt19937 random(7);
    for (unsigned round = 0; round < 3000; ++round) {
        // In every other round nothing may end the reading but the end of the file.
        const bool mayHoldEOF = round % 2 == 0;
        const std::size_t count = std::size(values) - (mayHoldEOF ? 0 : 1);
        std::string drawing = "0\nSECTION\n2\n" + std::string(values[2 + random() % 3]) + "\n0\n";
        for (int i = 0; i < 40; ++i)
            drawing += std::string(values[random() % count]) + "\n";
        ReportingReader reader;
        reader.ReadText(drawing);
        constexpr int kLines = 45; // of the drawing
        // The empty line that shows the end is read at least, and by a few that do not look for it.
        EXPECT_GE(reader.lineCount, mayHoldEOF ? 6 : kLines + 1) << drawing;
        EXPECT_LE(reader.lineCount, kLines + 10) << drawing;
        const std::string trace = TraceOf(drawing);
        EXPECT_EQ(trace.find("\"DXF\", 12,"), std::string::npos) << drawing;
        EXPECT_EQ(RecordingHost::OfThread().currentNode, nullptr) << drawing;
    }
}
