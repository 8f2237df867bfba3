// Every message of the module, each reached by a drawing that is no longer than it must be; and that there
// are no others.
#include "input/CDxfMemory.h"
#include "reader/EntityTypes.h"
#include "support/Dimensions.h"
#include "support/Sources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <new>
#include <regex>
#include <set>

namespace {

using Errors = std::vector<std::string>;

// A message's format, and the drawing that reaches it with all the messages that it gives, as "code kind
// text".
struct Case {
    std::string format;
    std::string drawing;
    Errors errors;
};

// The start of a section: its head, groups from line 5 on, and lines as they are, where the drawing ends.
std::string In(std::string_view section, std::initializer_list<Group> groups, std::string_view last = "")
{
    return Dxf({{0, "SECTION"}, {2, section}}) + Dxf(groups) + std::string(last);
}

// Entities with a reader or a skip of their own: what comes before "Failed to read integer".
const std::pair<std::string, std::string> kEntities[] = {{"LINE", "ReadENTITIES_LINE"},
                                                         {"ARC", "ReadENTITIES_ARC"},
                                                         {"CIRCLE", "ReadENTITIES_CIRCLE"},
                                                         {"MTEXT", "ReadENTITIES_MTEXT"},
                                                         {"TEXT", "ReadENTITIES_TEXT"},
                                                         {"ELLIPSE", "ReadENTITIES_ELLIPSE"},
                                                         {"LWPOLYLINE", "ReadENTITIES_LWPOLYLINE"},
                                                         {"INSERT", "ReadENTITIES_INSERT"},
                                                         {"POLYLINE", "ReadENTITIES_POLYLINE"},
                                                         {"SPLINE", "ReadENTITIES_SPLINE"},
                                                         {"POINT", "ReadENTITIES_POINT"},
                                                         {"DIMENSION", "ReadENTITIES_DIMENSION"},
                                                         {"HATCH", "ReadENTITIES_HATCH()"},
                                                         {"VIEWPORT", "ReadENTITIES_VIEWPORT()"}};

void AddEntities(std::vector<Case>& cases)
{
    for (const auto& [type, name] : kEntities) {
        const std::string integer = name + " Failed to read integer from 'x', Line:7";
        const std::string line = "ReadENTITIES_" + type + "() Failed to read line, Line:7";
        const std::string drawing = In("ENTITIES", {{0, type}}, "x");
        cases.push_back({name + " Failed to read integer from '%s', Line:%d",
                         drawing,
                         {"0 3 " + integer, "0 5 " + line}});
        cases.push_back({"ReadENTITIES_" + type + "() Failed to read line, Line:%d",
                         In("ENTITIES", {{0, type}}, "5"),
                         {"0 5 ReadENTITIES_" + type + "() Failed to read line, Line:8"}});
    }
}

// Messages that a drawing's text can bring about.
std::vector<Case> Cases()
{
    std::vector<Case> cases = {
        {"%s - Unknown Section Name Line (%d)",
         In("WALLS", {}),
         {"0 2 WALLS - Unknown Section Name Line (4)"}},
        {"ReadTABLES() Failed to read integer from '%s' Line:%d",
         In("TABLES", {{0, "TABLE"}}, "x"),
         {"0 3 ReadTABLES() Failed to read integer from 'x' Line:7"}},
        {"ReaTABLES_COMMON() Unknown table name '%s', Line:%d",
         In("TABLES", {{0, "TABLE"}, {0, "WALLS"}}),
         {"0 4 ReaTABLES_COMMON() Unknown table name 'WALLS', Line:8"}},
        {"ReaTABLES_COMMON() Failed to read integer from '%s', Line:%d",
         In("TABLES", {{0, "TABLE"}, {0, "LAYER"}}, "x"),
         {"0 3 ReaTABLES_COMMON() Failed to read integer from 'x', Line:9"}},
        {"ReaTABLES_LAYER() Failed to read integer from '%s', Line:%d",
         In("TABLES", {{0, "TABLE"}, {0, "LAYER"}, {100, ""}}, "x\nENDTAB"),
         {"0 3 ReaTABLES_LAYER() Failed to read integer from 'x', Line:11"}},
        {"ReaTABLES_LTYPE() Failed to read integer from '%s', Line:%d",
         In("TABLES", {{0, "TABLE"}, {0, "LTYPE"}, {100, ""}}, "x\nENDTAB"),
         {"0 3 ReaTABLES_LTYPE() Failed to read integer from 'x', Line:11"}},
        {"ReaTABLES_BLOCK_RECORD() Failed to read integer from '%s', Line:%d",
         In("TABLES", {{0, "TABLE"}, {0, "BLOCK_RECORD"}, {100, ""}}, "x\nENDTAB"),
         {"0 3 ReaTABLES_BLOCK_RECORD() Failed to read integer from 'x', Line:11"}},
        {"ReadBLOCKS_BLOCK Failed to read integer from '%s', Line:%d",
         In("BLOCKS", {{0, "BLOCK"}}, "x"),
         {"0 3 ReadBLOCKS_BLOCK Failed to read integer from 'x', Line:7",
          "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:7"}},
        {"ReadBLOCKS_BLOCK() Failed to read line, Line:%d",
         In("BLOCKS", {{0, "BLOCK"}}, "2"),
         {"0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:8"}},
        {"%s - Unknown Object Type Name (%d)",
         In("ENTITIES", {{0, "SOLID"}}, "0"),
         {"0 6 SOLID - Unknown Object Type Name (6)"}},
        {"%s - Unknown Object Type Name (%d)",
         In("BLOCKS", {{0, "WALLS"}}, "0"),
         {"0 6 WALLS - Unknown Object Type Name (6)"}},
        {"Read_UNKNOWN() Failed to read integer from '%s', Line:%d",
         In("ENTITIES", {{0, "SOLID"}}, "x"),
         {"0 6 SOLID - Unknown Object Type Name (6)",
          "0 3 Read_UNKNOWN() Failed to read integer from 'x', Line:7"}},
        {"Read_UNKNOWN() Failed to read integer from '%s', Line:%d",
         In("ENTITIES", {{0, "DIMENSION"}, {100, "AcDbEntity"}}, "x"),
         {"0 3 Read_UNKNOWN() Failed to read integer from 'x', Line:9"}},
        {"ReadENTITIES_COMMON Unknown Dimension type %s ('%d' = '%s') Line:%d",
         In("ENTITIES", {{0, "LINE"}, {100, "AcDbLine"}, {7, " v "}}, "0"),
         {"1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbLine ('7' = 'v') Line:10"}},
        {"ReadENTITIES_DIMENSION_SWITCH() Unknown Dimension type '%s', Line:%d",
         In("ENTITIES", {{0, "DIMENSION"}}, "100\nAcDbWall"),
         {"0 8 ReadENTITIES_DIMENSION_SWITCH() Unknown Dimension type 'AcDbWall', Line:8"}},
        {"ReadENTITIES_DIMENSION() DSTYLE 1002 not found '%s', Line:%d",
         In("ENTITIES", {{0, "DIMENSION"}, {100, "AcDbRotatedDimension"}, {1000, "DSTYLE"}}, "x"),
         {"0 9 ReadENTITIES_DIMENSION() DSTYLE 1002 not found 'x', Line:11"}},
        {"AcDbDimension data duplicated.",
         In("ENTITIES", {{0, "DIMENSION"}}, Part("AcDbDimension") + Part("AcDbDimension") + "0"),
         {"0 3 AcDbDimension data duplicated."}},
        {"CDxfRead Line longer than 1023 characters cut, Line:%d",
         "\n" + std::string(1024, 'x'),
         {"0 10 CDxfRead Line longer than 1023 characters cut, Line:2"}},
    };
    AddEntities(cases);
    return cases;
}

// Formats of messages that no drawing's text alone brings about.
const char* const kNotOpen = "Failed to load DXF file.";
const char* const kNotRead = "CDxfRead Failed to read file, Line:%d";
const char* const kNoMemory = "CDxfRead Out of memory, Line:%d";

// A converter that forgets what it draws and keeps the messages it gets.
class TellingConverter : public CDxfReadToQuillmar {
public:
    TellingConverter() : CDxfReadToQuillmar(RecordingHost::Context()) { RecordingHost::OfThread().Reset(); }

    int OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra) override
    {
        EXPECT_EQ(extra, 0);
        errors.push_back(std::to_string(code) + " " + std::to_string(kind) + " " + ToTraceText(message));
        const std::string call = "qlmSetLastError(" + std::to_string(code) + ", \"DXF\", " +
                                 std::to_string(kind) + ", \"" + ToTraceText(message) + "\", false, 0)";
        const int result = CDxfReadToQuillmar::OnError(code, kind, message, extra);
        EXPECT_EQ(RecordingHost::OfThread().calls.back(), call);
        return result;
    }

    Errors errors;
};

Errors ErrorsOf(CDxfSource& source)
{
    TellingConverter converter;
    converter.ReadDxfSource(source);
    return converter.errors;
}

// Whether a text is made of a format: the format's pieces between "%s" and "%d", in their order.
bool IsMadeOf(std::string_view text, std::string_view format)
{
    for (bool isFirst = true;; isFirst = false) {
        const std::size_t next = format.find('%');
        const std::string_view piece = format.substr(0, next);
        if (next == std::string_view::npos) // the last piece is the text's end
            return text.size() >= piece.size() && text.substr(text.size() - piece.size()) == piece;
        const std::size_t at = text.find(piece);
        if (at == std::string_view::npos || (isFirst && at != 0))
            return false;
        text.remove_prefix(at + piece.size());
        format.remove_prefix(next + 2);
    }
}

// Whether some message "code kind text" is made of the format.
bool HoldsOneOf(const Errors& errors, const std::string& format)
{
    return std::any_of(errors.begin(), errors.end(), [&](const std::string& error) {
        return IsMadeOf(std::string_view(error).substr(error.find(' ', 2) + 1), format);
    });
}

const std::filesystem::path kSources = std::filesystem::path(PLEXORN_TEST_DATA) / ".." / "src";

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The end of the comment, character or narrow text that begins at a place of a source; the place itself when
// none does.
std::size_t SkipToken(const std::string& source, std::size_t at)
{
    if (source.compare(at, 2, "//") == 0)
        return std::min(source.find('\n', at), source.size());
    if (source.compare(at, 2, "/*") == 0)
        return std::min(source.find("*/", at), source.size() - 2) + 2;
    const char quote = source[at];
    const bool isDigitSeparator =
        quote == '\'' && at != 0 && std::isxdigit(static_cast<unsigned char>(source[at - 1])) != 0;
    if ((quote != '"' && quote != '\'') || isDigitSeparator)
        return at;
    for (++at; at < source.size() && source[at] != quote; ++at)
        if (source[at] == '\\')
            ++at;
    return at + 1;
}

// Calls visit(statement, text) for each wide text of a source: what is before it in its statement, and
// the text with its escapes as written; texts that follow each other at once are one.
void VisitWideTexts(const std::string& source,
                    const std::function<void(const std::string&, const std::string&)>& visit)
{
    std::string statement;
    for (std::size_t at = 0; at < source.size();) {
        if (source.compare(at, 2, "L\"") == 0) {
            std::string text;
            while (source.compare(at, 2, "L\"") == 0) {
                const std::size_t end = SkipToken(source, at + 1);
                text += source.substr(at + 2, end - at - 3);
                at = std::min(source.find_first_not_of(" \t\r\n", end), source.size());
            }
            visit(statement, text);
        } else if (const std::size_t end = SkipToken(source, at); end != at) {
            at = end;
        } else {
            if (source[at] == ';' || source[at] == '{' || source[at] == '}')
                statement.clear();
            else
                statement += source[at];
            ++at;
        }
    }
}

// Takes the texts that the preprocessor makes for each row of the types of entities, L"before" #TYPE
// L"after", out of a source. Which rows they are made for, the parameters of their macro say.
std::set<std::string> TakeTextsOfRows(std::string& source)
{
    struct Row {
        std::string parameters, type, parentheses;
    };
    static const std::vector<Row> kRows = {
#define DRAWN_ROW(number, TYPE, Callback, constness)                                                         \
    {"number, TYPE, Callback, constness", #TYPE, ""}, {"TYPE", #TYPE, ""},
#define SKIPPED_ROW(TYPE, parentheses) {"TYPE, parentheses", #TYPE, parentheses}, {"TYPE", #TYPE, ""},
        DXF_DRAWN_TYPES(DRAWN_ROW) DXF_SKIPPED_TYPES(SKIPPED_ROW)
#undef DRAWN_ROW
#undef SKIPPED_ROW
    };
    static const std::regex kText(R"re(L"([^"]*)" #TYPE( parentheses)? L"([^"]*)")re");
    std::set<std::string> texts;
    for (std::smatch found; std::regex_search(source, found, kText);) {
        const std::string before = found.prefix();
        const std::size_t open = before.find('(', before.rfind("#define "));
        const std::string parameters = before.substr(open + 1, before.find(')', open) - open - 1);
        for (const Row& row : kRows)
            if (row.parameters == parameters)
                texts.insert(found.str(1) + row.type + (found.length(2) != 0 ? row.parentheses : "") +
                             found.str(3));
        source = before + found.suffix().str();
    }
    return texts;
}

// The wide texts of the sources that are messages: those with a "%", those that are handed to what reports,
// and whatever the reading half, which has no other use for them, holds.
std::set<std::string> MessagesOfTheSources()
{
    std::set<std::string> messages;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kSources)) {
        const std::filesystem::path path = entry.path();
        if (path.extension() != ".cpp" && path.extension() != ".h")
            continue;
        const std::string folder = path.parent_path().filename().string();
        const bool isReading =
            folder == "reader" || folder == "entities" || path.filename().string().rfind("Read", 0) == 0;
        std::string source = ReadFile(path);
        messages.merge(TakeTextsOfRows(source));
        VisitWideTexts(source, [&](const std::string& statement, const std::string& text) {
            const bool isReported = statement.find("OnError(") != std::string::npos ||
                                    statement.find("Report(") != std::string::npos;
            if (!text.empty() && (isReading || isReported || text.find('%') != std::string::npos))
                messages.insert(text);
        });
    }
    return messages;
}

} // namespace

TEST(EveryMessage, ComesFromItsDrawingWithNoOther)
{
    for (const Case& of : Cases()) {
        CDxfMemory memory(of.drawing);
        EXPECT_EQ(ErrorsOf(memory), of.errors) << of.format;
        EXPECT_TRUE(HoldsOneOf(of.errors, of.format)) << of.format;
    }
}

TEST(EveryMessage, OfAFileThatCannotBeOpenedIsTheOnlyOne)
{
    for (const char* path : {"", "no such folder/no such file.dxf", PLEXORN_TEST_DATA}) {
        TellingConverter converter;
        converter.ReadDxfFile(path);
        EXPECT_EQ(converter.errors, Errors{std::string("0 1 ") + kNotOpen}) << path;
        EXPECT_EQ(RecordingHost::OfThread().calls.size(), 1u) << path;
    }
}

TEST(EveryMessage, OfAFileThatCannotBeReadToItsEnd)
{
    FailingReads nothing(""), line("0\n"), half("0\nSECT");
    EXPECT_EQ(ErrorsOf(nothing), Errors{"0 11 CDxfRead Failed to read file, Line:1"});
    EXPECT_EQ(ErrorsOf(line), Errors{"0 11 CDxfRead Failed to read file, Line:2"});
    EXPECT_EQ(ErrorsOf(half), Errors{"0 11 CDxfRead Failed to read file, Line:2"});
    EXPECT_TRUE(HoldsOneOf({"0 11 CDxfRead Failed to read file, Line:1"}, kNotRead));
}

// A callback that finds no memory costs its own entity; the next one is drawn.
TEST(EveryMessage, OfMemoryThatIsShort)
{
    class ShortOfMemory : public TellingConverter {
        void OnLine(const DXF_GRAPHIC_LINE&) override { throw std::bad_alloc(); }
    } converter;
    const std::string drawing = EntitiesSection({{0, "LINE"}, {0, "INSERT"}});
    CDxfMemory memory(drawing);
    converter.ReadDxfSource(memory);
    EXPECT_EQ(converter.errors, Errors{"0 12 CDxfRead Out of memory, Line:13"});
    EXPECT_TRUE(HoldsOneOf(converter.errors, kNoMemory));
    EXPECT_EQ(RecordingHost::OfThread().calls.back(),
              "qlmCreateUse(ctx, \"\", 0, 0, \"\", \"hmi\", 0, -0) = n1");
}

TEST(EveryMessage, OfTheSourcesIsInTheTable)
{
    std::set<std::string> listed = {kNotOpen, kNotRead, kNoMemory};
    for (const Case& of : Cases())
        listed.insert(of.format);
    EXPECT_EQ(MessagesOfTheSources(), listed);
}

TEST(EveryMessage, IsComparedWithItsFormatPieceByPiece)
{
    EXPECT_TRUE(IsMadeOf("a 'x' b 7", "a '%s' b %d"));
    EXPECT_TRUE(IsMadeOf("a", "a"));
    EXPECT_FALSE(IsMadeOf("b a 'x' b 7", "a '%s' b %d"));
    EXPECT_FALSE(IsMadeOf("a 'x' c 7", "a '%s' b %d"));
    EXPECT_FALSE(IsMadeOf("a 'x' b 7", "a '%s' b"));
}

TEST(EveryMessage, OfTheRowsIsMadeForEachRowThatItsMacroIsFor)
{
    std::string source = "#define A(TYPE, parentheses) {L\"a \" #TYPE parentheses L\" b\"} L\"c\"";
    EXPECT_EQ(TakeTextsOfRows(source), (std::set<std::string>{"a POLYLINE b", "a SPLINE b", "a POINT b",
                                                              "a HATCH() b", "a VIEWPORT() b"}));
    EXPECT_EQ(source, "#define A(TYPE, parentheses) {} L\"c\"");
}

// The scan itself: it would be no check if it overlooked texts.
TEST(EveryMessage, ScanFindsWideTextsAndWhatTheyAreIn)
{
    std::vector<std::string> found;
    VisitWideTexts("a(L\"one %d\");\n// L\"comment\" it's\nb('\"', \"narrow L\\\"\", 1'000, L\"two\\\"\"\n   "
                   "L\" more\");"
                   "/* L\"x\" */ x = {y(L\"\"), L\"three\"};",
                   [&](const std::string& statement, const std::string& text) {
                       found.push_back(statement + "|" + text);
                   });
    EXPECT_EQ(found, (std::vector<std::string>{"a(|one %d", "\n\nb(, , 1'000, |two\\\" more", "y(|",
                                               "y(), |three"}));
}
