// A file may end anywhere: each drawing of the trace folder, cut after each of its bytes.
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace {

std::string Drawing(const char* name)
{
    return BytesOf(std::filesystem::path(PLEXORN_TEST_DATA) / "trace" / (std::string(name) + ".dxf"));
}

// What any trace must be: nothing is reported once drawing has begun (but what drawing itself reports), every
// attribute is set on the node that was created last, and the current node ends where it began.
void ExpectSound(const std::string& trace)
{
    std::string last;
    std::size_t nodes = 0;
    for (std::size_t at = 0; at < trace.size(); at = trace.find('\n', at) + 1) {
        const std::string line = trace.substr(at, trace.find('\n', at) - at);
        const std::size_t result = line.rfind(" = n");
        if (line.compare(0, 9, "qlmCreate") == 0) {
            ++nodes;
            last = line.substr(result + 3);
            EXPECT_EQ(last, "n" + std::to_string(nodes));
        } else if (line.compare(0, 15, "qlmSetAttribute") == 0) {
            EXPECT_EQ(line.substr(0, 28 + last.size()), "qlmSetAttributeByNode(ctx, " + last + ",") << line;
        } else if (line.compare(0, 15, "qlmSetLastError") == 0) {
            EXPECT_TRUE(nodes == 0 || line.find("data duplicated") != std::string::npos) << line;
            EXPECT_EQ(line.find("\"DXF\", 12,"), std::string::npos) << line;
        }
    }
    EXPECT_EQ(RecordingHost::OfThread().currentNode, nullptr);
}

// What a reader keeps of a drawing: tables with their entries, blocks with their entities, and entities. Each
// list is in file order, and a table or a block is followed by what it holds.
struct Kept {
    std::vector<int> tables;
    std::vector<int> blocks;
    std::vector<int> entities;
    std::int32_t lastLine = 0; // the largest line that a message names
};

constexpr int kOwner = -1; // for a table or a block among the kinds of what they hold

// The number that a message ends with.
std::int32_t LineOf(const std::string& message)
{
    const std::size_t digits = message.find_last_not_of("0123456789", message.find_last_of("0123456789"));
    return std::stoi(message.substr(digits + 1));
}

Kept KeptOf(const std::string& drawing)
{
    ReportingReader reader;
    reader.ReadText(drawing);
    Kept kept;
    for (const DXF_TABLES_HEADER* const table : reader.tables) {
        kept.tables.push_back(kOwner);
        for (const DXF_TABLES_COMMON* const entry : table->m_entries)
            kept.tables.push_back(static_cast<int>(entry->m_nTableKind));
    }
    for (const DXF_BLOCKS_BLOCK* const block : reader.blocks) {
        kept.blocks.push_back(kOwner);
        for (const DXF_GRAPHIC_BASE* const entity : block->m_entities)
            kept.blocks.push_back(entity->m_nEntityType);
    }
    for (const DXF_GRAPHIC_BASE* const entity : reader.entities)
        kept.entities.push_back(entity->m_nEntityType);
    for (const std::string& message : reader.errors)
        kept.lastLine = std::max(kept.lastLine, LineOf(message));
    return kept;
}

bool IsPrefix(const std::vector<int>& of, const std::vector<int>& whole)
{
    return of.size() <= whole.size() && std::equal(of.begin(), of.end(), whole.begin());
}

class Prefix : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(Prefix, OfAnyLengthIsReadAndDrawn)
{
    const std::string drawing = Drawing(GetParam());
    ASSERT_FALSE(drawing.empty());
    std::set<std::string> traces;
    for (std::size_t size = 0; size <= drawing.size(); ++size) {
        const std::string prefix = drawing.substr(0, size); // its own memory, which ends where it ends
        traces.insert(TraceOf(prefix));
        ExpectSound(*traces.find(RecordingHost::OfThread().Trace()));
        if (HasFailure())
            FAIL() << "cut after byte " << size;
    }
    EXPECT_GT(traces.size(), drawing.size() / 20) << "a drawing grows with its file";
}

TEST_P(Prefix, KeepsTheFirstOfWhatTheWholeFileGives)
{
    const std::string drawing = Drawing(GetParam());
    const Kept whole = KeptOf(drawing);
    ASSERT_FALSE(whole.tables.empty() && whole.blocks.empty() && whole.entities.empty());
    for (std::size_t size = 0; size <= drawing.size(); ++size) {
        const std::string prefix = drawing.substr(0, size);
        const Kept kept = KeptOf(prefix);
        ASSERT_TRUE(IsPrefix(kept.tables, whole.tables)) << "cut after byte " << size;
        ASSERT_TRUE(IsPrefix(kept.blocks, whole.blocks)) << "cut after byte " << size;
        ASSERT_TRUE(IsPrefix(kept.entities, whole.entities)) << "cut after byte " << size;
        const auto lineFeeds = std::count(prefix.begin(), prefix.end(), '\n');
        const auto lines = lineFeeds + (size != 0 && prefix.back() != '\n' ? 1 : 0);
        // One line is read to find the end; two places read a further one without looking for it: the type
        // name after a section's name and the type name after a table entry that was cut.
        ASSERT_LE(kept.lastLine, lines + 2) << "cut after byte " << size;
    }
}

INSTANTIATE_TEST_SUITE_P(Drawings, Prefix,
                         testing::Values("bad_blocks", "bad_dimensions", "bad_entities", "bad_tables",
                                         "blocks", "dimensions", "geometry", "international", "polylines",
                                         "styles", "texts", "texts_crlf"),
                         [](const auto& drawing) { return std::string(drawing.param); });
