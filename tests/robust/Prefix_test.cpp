// A file may end anywhere: each drawing of the trace folder, cut behind each of its bytes.
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <set>

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
            FAIL() << "cut behind byte " << size;
    }
    EXPECT_GT(traces.size(), drawing.size() / 20) << "a drawing grows with its file";
}

INSTANTIATE_TEST_SUITE_P(Drawings, Prefix,
                         testing::Values("bad_blocks", "bad_dimensions", "bad_entities", "bad_tables",
                                         "blocks", "dimensions", "geometry", "international", "polylines",
                                         "styles", "texts", "texts_crlf"),
                         [](const auto& drawing) { return std::string(drawing.param); });
