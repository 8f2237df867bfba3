// What the readers of entities and blocks return to their callers.
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_BASE.h"
#include "input/CDxfMemory.h"
#include "support/Import.h"

#include <gtest/gtest.h>

namespace {

using Reader = bool (CDxfRead::*)(CDxfStream& stream, DXF_ENTITY_LIST& list);

struct ReaderRow {
    const char* type;
    Reader read;
};

// DIMENSION has its own rules.
constexpr ReaderRow kReadEntities[] = {
    {"LINE", &CDxfRead::ReadENTITIES_LINE},
    {"ARC", &CDxfRead::ReadENTITIES_ARC},
    {"CIRCLE", &CDxfRead::ReadENTITIES_CIRCLE},
    {"ELLIPSE", &CDxfRead::ReadENTITIES_ELLIPSE},
    {"LWPOLYLINE", &CDxfRead::ReadENTITIES_LWPOLYLINE},
    {"TEXT", &CDxfRead::ReadENTITIES_TEXT},
    {"MTEXT", &CDxfRead::ReadENTITIES_MTEXT},
    {"INSERT", &CDxfRead::ReadENTITIES_INSERT},
};

struct Ending {
    const char* lines;
    bool result;
    int lineCount;
    const char* message; // the text in quotes of a bad code, null for none
};

constexpr Ending kEndings[] = {
    {"0\nNEXT\n", true, 1, nullptr},
    {"0", true, 1, nullptr},
    {"8\nA\n 0 \nNEXT\n", true, 3, nullptr},
    {"8\n0\n0\nNEXT\n", true, 3, nullptr},
    {"999\nunknown\n0\nNEXT\n", true, 3, nullptr},
    {"8\nA", false, 2, nullptr},
    {"8", false, 2, nullptr}, // its value is read past the end
    {"8\nA\n", false, 3, ""},
    {"", false, 1, ""},
    {"8\nA\nx\n0\n", false, 3, "x"},
    {"8\nA\n\n0\n", false, 3, ""},
};

} // namespace

TEST(ReaderResults, EntityIsTrueOnlyAtAZeroAndKeptInAnyCase)
{
    for (const ReaderRow& entity : kReadEntities)
        for (const Ending& ending : kEndings) {
            CDxfMemory memory(ending.lines);
            CDxfStream stream(memory);
            ReportingReader reader;
            DXF_ENTITY_LIST list;
            const bool result = (reader.*entity.read)(stream, list);
            EXPECT_EQ(result, ending.result) << entity.type << " " << ending.lines;
            EXPECT_EQ(reader.lineCount, ending.lineCount) << entity.type << " " << ending.lines;
            EXPECT_EQ(list.size(), 1u) << entity.type << " " << ending.lines;
            EXPECT_TRUE(reader.entities.empty()) << entity.type;
            std::vector<std::string> badCodes;
            for (const std::string& error : reader.errors)
                if (error.compare(0, 4, "0 3 ") == 0)
                    badCodes.push_back(error);
            std::vector<std::string> expected;
            if (ending.message != nullptr)
                expected.push_back(std::string("0 3 ReadENTITIES_") + entity.type +
                                   " Failed to read integer from '" + ending.message +
                                   "', Line:" + std::to_string(ending.lineCount));
            EXPECT_EQ(badCodes, expected) << ending.lines;
        }
}

TEST(ReaderResults, SkippedEntityIsTrueOnlyAtAZero)
{
    for (const Ending& ending : kEndings) {
        CDxfMemory memory(ending.lines);
        CDxfStream stream(memory);
        ReportingReader reader;
        EXPECT_EQ(reader.Read_UNKNOWN(stream), ending.result) << ending.lines;
        EXPECT_EQ(reader.lineCount, ending.lineCount) << ending.lines;
        EXPECT_EQ(reader.errors.size(), ending.message == nullptr ? 0u : 1u) << ending.lines;
    }
}

TEST(ReaderResults, BlockIsItsRecordInTheListAtAZeroAndElseNull)
{
    for (const Ending& ending : kEndings) {
        CDxfMemory memory(ending.lines);
        CDxfStream stream(memory);
        ReportingReader reader;
        const DXF_BLOCKS_BLOCK* const block = reader.ReadBLOCKS_BLOCK(stream);
        EXPECT_EQ(reader.lineCount, ending.lineCount) << ending.lines;
        if (ending.result) {
            ASSERT_EQ(reader.blocks.size(), 1u) << ending.lines;
            EXPECT_EQ(block, reader.blocks[0]) << ending.lines;
        } else {
            EXPECT_EQ(block, nullptr) << ending.lines;
            EXPECT_TRUE(reader.blocks.empty()) << ending.lines;
        }
        EXPECT_EQ(reader.errors.size(), ending.message == nullptr ? 0u : 1u) << ending.lines;
    }
}
