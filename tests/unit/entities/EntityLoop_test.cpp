// One entity by its type name: read, skipped or reported, and how reading falls back into step.
#include "input/CDxfMemory.h"
#include "support/Callbacks.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using Texts = std::vector<std::string>;

Texts ErrorsOf(std::string_view dxf)
{
    ReportingReader reader;
    reader.ReadText(dxf);
    return reader.errors;
}

// A type that is read or skipped, with the name that its messages begin with.
struct Type {
    std::string name;
    std::string integerMessage; // before " Failed to read integer from"
    int records;
};

const std::vector<Type> kTypes = {
    {"LINE", "ReadENTITIES_LINE", 1},
    {"ARC", "ReadENTITIES_ARC", 1},
    {"CIRCLE", "ReadENTITIES_CIRCLE", 1},
    {"MTEXT", "ReadENTITIES_MTEXT", 1},
    {"TEXT", "ReadENTITIES_TEXT", 1},
    {"ELLIPSE", "ReadENTITIES_ELLIPSE", 1},
    {"LWPOLYLINE", "ReadENTITIES_LWPOLYLINE", 1},
    {"INSERT", "ReadENTITIES_INSERT", 1},
    {"POLYLINE", "ReadENTITIES_POLYLINE", 0},
    {"SPLINE", "ReadENTITIES_SPLINE", 0},
    {"POINT", "ReadENTITIES_POINT", 0},
    {"HATCH", "ReadENTITIES_HATCH()", 0},
    {"VIEWPORT", "ReadENTITIES_VIEWPORT()", 0},
};

std::string Integer(const Type& type, std::string_view quoted, int line)
{
    return "0 3 " + type.integerMessage + " Failed to read integer from '" + std::string(quoted) +
           "', Line:" + std::to_string(line);
}

std::string Failed(const Type& type, int line)
{
    return "0 5 ReadENTITIES_" + type.name + "() Failed to read line, Line:" + std::to_string(line);
}

constexpr const char* kEntityTypeNames[] = {"3DFACE",    "3DSOLID",  "ACAD_PROXY_ENTITY",
                                            "ARC",       "ATTDEF",   "ATTRIB",
                                            "BODY",      "CIRCLE",   "DIMENSION",
                                            "ELLIPSE",   "HATCH",    "HELIX",
                                            "IMAGE",     "INSERT",   "LEADER",
                                            "LIGHT",     "LINE",     "LWPOLYLINE",
                                            "MESH",      "MLEADER",  "MLEADERSTYLE",
                                            "MLINE",     "MTEXT",    "OLEFRAME",
                                            "OLE2FRAME", "POINT",    "POLYLINE",
                                            "RAY",       "REGION",   "SECTION",
                                            "SEQEND",    "SHAPE",    "SOLID",
                                            "SPLINE",    "SUN",      "SURFACE",
                                            "TABLE",     "TEXT",     "TOLERANCE",
                                            "TRACE",     "UNDERLAY", "VERTEX",
                                            "VIEWPORT",  "WIPEOUT",  "XLINE"};

} // namespace

TEST(EntityLoop, LineOnALayerIsOneRecordAndNoMessage)
{
    ReportingReader reader;
    reader.ReadText(EntitiesSection({{0, "LINE"}, {8, "Walls"}}));
    ASSERT_EQ(reader.entities.size(), 1u);
    EXPECT_EQ(ChangedFields(*reader.entities[0]), "m_strLayer=\"Walls\"");
    EXPECT_EQ(reader.errors, Texts());
}

TEST(EntityLoop, KnownTypesAreReadOrSkippedWithoutAMessage)
{
    for (const Type& type : kTypes) {
        ReportingReader reader;
        reader.ReadText(
            EntitiesSection({{0, type.name}, {8, "a"}, {0, type.name}, {8, "b"}, {0, "LINE"}, {8, "c"}}));
        EXPECT_EQ(reader.entities.size(), static_cast<std::size_t>(2 * type.records + 1)) << type.name;
        EXPECT_EQ(reader.errors, Texts()) << type.name;
    }
}

TEST(EntityLoop, CodeThatIsNoIntegerGivesTheReadersMessageAndThenTheLoops)
{
    for (const Type& type : kTypes) {
        ReportingReader reader;
        reader.ReadText(
            EntitiesSection({{0, type.name}, {8, "Walls"}, {" abc ", "x"}, {8, "b"}, {0, "LINE"}, {8, "c"}}));
        EXPECT_EQ(reader.errors,
                  (Texts{Integer(type, "abc", 9), Failed(type, 9), "0 6 x - Unknown Object Type Name (10)"}))
            << type.name;
        EXPECT_EQ(reader.entities.size(), static_cast<std::size_t>(type.records + 1)) << type.name;
    }
}

TEST(EntityLoop, FileThatEndsAfterALineEndGivesBothMessagesQuotingTheEmptyLine)
{
    for (const Type& type : kTypes)
        EXPECT_EQ(ErrorsOf("0\nSECTION\n2\nENTITIES\n0\n" + type.name + "\n8\na\n"),
                  (Texts{Integer(type, "", 9), Failed(type, 9)}));
}

TEST(EntityLoop, FileThatEndsWithoutALineEndGivesTheLoopsMessageAlone)
{
    for (const Type& type : kTypes) {
        EXPECT_EQ(ErrorsOf("0\nSECTION\n2\nENTITIES\n0\n" + type.name + "\n8\na"), (Texts{Failed(type, 8)}));
        EXPECT_EQ(ErrorsOf("0\nSECTION\n2\nENTITIES\n0\n" + type.name + "\n8"), (Texts{Failed(type, 8)}));
        EXPECT_EQ(ErrorsOf("0\nSECTION\n2\nENTITIES\n0\n" + type.name), (Texts{Failed(type, 6)}));
    }
}

TEST(EntityLoop, FileThatEndsWithTheZeroOfAnEntityGivesNoMessage)
{
    for (const Type& type : kTypes) {
        EXPECT_EQ(ErrorsOf("0\nSECTION\n2\nENTITIES\n0\n" + type.name + "\n8\na\n0\n"), Texts()) << type.name;
        EXPECT_EQ(ErrorsOf("0\nSECTION\n2\nENTITIES\n0\n" + type.name + "\n8\na\n0"), Texts()) << type.name;
    }
}

TEST(EntityLoop, SkippedTypesReportNoCodeAndKeepStep)
{
    for (const Type& type : kTypes) {
        if (type.records != 0)
            continue;
        EXPECT_EQ(
            ErrorsOf(EntitiesSection(
                {{0, type.name}, {999, "x"}, {102, "{A"}, {8, "0"}, {1, "ENDSEC"}, {-7, "y"}, {0, "LINE"}})),
            Texts())
            << type.name;
    }
}

TEST(EntityLoop, TypeNamesAreComparedToTheLetter)
{
    for (const std::string_view name : {"line", "Line", "LINES", "LIN", "XLINE", "MLINE"})
        EXPECT_EQ(ErrorsOf(EntitiesSection({{0, name}, {8, "a"}})),
                  (Texts{"0 6 " + std::string(name) + " - Unknown Object Type Name (6)"}));
    EXPECT_EQ(CallbacksOf(EntitiesSection({{0, "  LINE\t"}, {8, "a"}})), (Texts{"OnLine a"}));
}

TEST(EntityLoop, SolidIsReportedOnceAndLeavesNoRecord)
{
    ReportingReader reader;
    reader.ReadText(EntitiesSection({{0, "SOLID"}, {8, "a"}, {10, 1}, {999, "x"}}));
    EXPECT_EQ(reader.errors, (Texts{"0 6 SOLID - Unknown Object Type Name (6)"}));
    EXPECT_TRUE(reader.entities.empty());
}

TEST(EntityLoop, EveryOtherTypeIsReportedEachTimeItOccurs)
{
    std::set<std::string> known = {"DIMENSION"};
    for (const Type& type : kTypes)
        known.insert(type.name);
    for (const char* const name : kEntityTypeNames) {
        if (known.count(name) != 0)
            continue;
        const std::string unknown = std::string("0 6 ") + name + " - Unknown Object Type Name ";
        EXPECT_EQ(ErrorsOf(EntitiesSection({{0, name}, {8, "a"}, {0, name}, {0, "LINE"}})),
                  (Texts{unknown + "(6)", unknown + "(10)"}));
    }
}

TEST(EntityLoop, VerticesAndTheEndOfAPolylineAreReportedAsUnknown)
{
    ReportingReader reader;
    reader.ReadText(EntitiesSection(
        {{0, "POLYLINE"}, {66, 1}, {0, "VERTEX"}, {10, 1}, {0, "VERTEX"}, {10, 2}, {0, "SEQEND"}, {8, "a"}}));
    EXPECT_EQ(reader.errors, (Texts{"0 6 VERTEX - Unknown Object Type Name (10)",
                                    "0 6 VERTEX - Unknown Object Type Name (14)",
                                    "0 6 SEQEND - Unknown Object Type Name (18)"}));
    EXPECT_TRUE(reader.entities.empty());
}

TEST(EntityLoop, CodeThatIsNoIntegerInAnUnknownEntityIsReportedAlone)
{
    EXPECT_EQ(ErrorsOf(EntitiesSection({{0, "SOLID"}, {8, "a"}, {" z9", "b"}, {8, "c"}, {0, "LINE"}})),
              (Texts{"0 6 SOLID - Unknown Object Type Name (6)",
                     "0 3 Read_UNKNOWN() Failed to read integer from 'z9', Line:9",
                     "0 6 b - Unknown Object Type Name (10)"}));
}

TEST(EntityLoop, FileThatEndsWithinAnUnknownEntityQuotesTheEmptyLine)
{
    EXPECT_EQ(ErrorsOf(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "SOLID"}, {8, "a"}})),
              (Texts{"0 6 SOLID - Unknown Object Type Name (6)",
                     "0 3 Read_UNKNOWN() Failed to read integer from '', Line:9"}));
    EXPECT_EQ(ErrorsOf("0\nSECTION\n2\nENTITIES\n0\nSOLID\n8\na"),
              (Texts{"0 6 SOLID - Unknown Object Type Name (6)"}));
}

TEST(EntityLoop, ValueLineAfterAFailedEntityThatReadsLikeATypeStartsARecord)
{
    EXPECT_EQ(
        CallbacksOf(EntitiesSection({{0, "CIRCLE"}, {8, "a"}, {"abc", "LINE"}, {8, "b"}})),
        (Texts{"OnError 0 3 ReadENTITIES_CIRCLE Failed to read integer from 'abc', Line:9",
               "OnError 0 5 ReadENTITIES_CIRCLE() Failed to read line, Line:9", "OnCircle a", "OnLine b"}));
}

TEST(EntityLoop, EndsecAsTheValueAfterAFailedEntityEndsTheSection)
{
    EXPECT_EQ(ErrorsOf(EntitiesSection({{0, "POINT"}, {"abc", "ENDSEC"}, {8, "a"}, {0, "SOLID"}})),
              (Texts{"0 3 ReadENTITIES_POINT Failed to read integer from 'abc', Line:7",
                     "0 5 ReadENTITIES_POINT() Failed to read line, Line:7"}));
}

TEST(EntityLoop, ReadUnknownReturnsWhetherItMetAZero)
{
    const auto skip = [](std::string_view text) {
        ReportingReader reader;
        CDxfMemory memory(text);
        CDxfStream stream(memory);
        const std::string result = reader.Read_UNKNOWN(stream) ? "true" : "false";
        return result + " then " + std::string(stream.getline()) + " with " +
               std::to_string(reader.errors.size());
    };
    EXPECT_EQ(skip(Dxf({{8, "a"}, {0, "LINE"}})), "true then LINE with 0");
    EXPECT_EQ(skip("8\na\n0"), "true then  with 0");
    EXPECT_EQ(skip("0x\nLINE\n"), "true then LINE with 0");
    EXPECT_EQ(skip("8\nx\nx\nLINE\n"), "false then LINE with 1");
    EXPECT_EQ(skip("8\nx"), "false then  with 0");
    EXPECT_EQ(skip("8"), "false then  with 0");
}

TEST(EntityLoop, ReaderLeavesTheNextTypeNameToRead)
{
    for (const Type& type : kTypes) {
        ReportingReader reader;
        CDxfMemory memory("8\na\n  0\nNEXT\n");
        CDxfStream stream(memory);
        reader.ReadENTITIES(stream, type.name, reader.entities);
        EXPECT_EQ(stream.getline(), "NEXT") << type.name;
        EXPECT_EQ(reader.lineCount, 3) << type.name;
    }
}

TEST(EntityLoop, RecordsGoToTheListThatIsGiven)
{
    ReportingReader reader;
    DXF_ENTITY_LIST list;
    CDxfMemory memory("8\na\n0\n");
    CDxfStream stream(memory);
    reader.ReadENTITIES(stream, "LINE", list);
    EXPECT_EQ(list.size(), 1u);
    EXPECT_TRUE(reader.entities.empty());
}

TEST(IsEntityTypeName, HoldsForThe45Names)
{
    const std::set<std::string> names(std::begin(kEntityTypeNames), std::end(kEntityTypeNames));
    EXPECT_EQ(names.size(), 45u);
    for (const std::string& name : names)
        EXPECT_TRUE(CDxfRead::IsEntityTypeName(name)) << name;
}

TEST(IsEntityTypeName, HoldsForNothingElse)
{
    for (const char* const name : kEntityTypeNames) {
        const std::string text = name;
        std::string lower = text;
        for (char& character : lower)
            character = static_cast<char>(character >= 'A' && character <= 'Z' ? character + 32 : character);
        for (const std::string& other : {lower, text + "X", " " + text, text + " ", "X" + text})
            EXPECT_EQ(CDxfRead::IsEntityTypeName(other), other == "XLINE") << other;
    }
    for (const char* const name : {"", "0", "BLOCK", "ENDBLK", "ENDSEC", "EOF", "3DLINE", "ACAD_TABLE",
                                   "ARCALIGNEDTEXT", "MULTILEADER", "PDFUNDERLAY", "ZZZ", "A"})
        EXPECT_FALSE(CDxfRead::IsEntityTypeName(name)) << name;
}
