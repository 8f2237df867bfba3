// Drawings that once broke something: x.dxf of this folder is imported into the reference host, and its
// picture is written and read back. Its first line is 999, the code of a comment, its second is the story.
// What must come of it is in x.expected: the reports, the host's counts, the elements of the picture. A
// story of memory or of very many calls has a test of its own besides, with a larger drawing of its kind.
//
// PLEXORN_REWRITE_ISSUES=1 in the environment writes the expected texts instead of comparing them.
#include "entry/dxfFileOpen.h"
#include "support/FailingMemory.h"
#include "support/TempFile.h"
#include "svghost/SvgHost.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

const std::filesystem::path kFolder = PLEXORN_TEST_DATA "/issues";

constexpr std::size_t kMostReports = 20; // that are written out

using Document = std::unique_ptr<SvgHostDocument, decltype(&svgHostDestroy)>;

// The names of the drawings of this folder.
std::vector<std::string> Drawings()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder))
        if (entry.path().extension() == ".dxf")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReportsOf(const SvgHostDocument& document)
{
    const std::size_t count = svgHostErrorCount(&document);
    std::string text = "reports " + std::to_string(count) + "\n";
    for (std::size_t i = 0; i < std::min(count, kMostReports); ++i) {
        SvgHostError error;
        EXPECT_TRUE(svgHostGetError(&document, i, &error));
        text += std::to_string(error.kind) + " " + pugi::as_utf8(error.message) + "\n";
    }
    return text;
}

std::string StatisticsOf(SvgHostDocument& document)
{
    SvgHostStatistics counts;
    EXPECT_TRUE(svgHostGetStatistics(&document, &counts));
    const std::pair<const char*, std::size_t> named[] = {{"elements", counts.elements},
                                                         {"symbols", counts.symbols},
                                                         {"duplicate symbols", counts.duplicateSymbols},
                                                         {"missing symbols", counts.missingSymbols},
                                                         {"cyclic uses", counts.cyclicUses},
                                                         {"unbounded uses", counts.unboundedUses},
                                                         {"undrawable elements", counts.undrawableElements},
                                                         {"long dash patterns", counts.longDashPatterns}};
    std::string text;
    for (const auto& [name, count] : named)
        text += std::string(name) + " " + std::to_string(count) + "\n";
    return text;
}

void CountElements(const pugi::xml_node& node, std::map<std::string, int>& counts)
{
    for (const pugi::xml_node& child : node.children())
        if (child.type() == pugi::node_element) {
            ++counts[child.name()];
            CountElements(child, counts);
        }
}

// How often each element is in the picture.
std::string PictureOf(SvgHostDocument& document)
{
    std::string svg;
    const auto append = [](void* user, const char* bytes, std::size_t size) {
        static_cast<std::string*>(user)->append(bytes, size);
        return true;
    };
    EXPECT_TRUE(svgHostWrite(&document, nullptr, append, &svg));
    pugi::xml_document picture;
    EXPECT_TRUE(picture.load_buffer(svg.data(), svg.size()));
    EXPECT_STREQ(picture.document_element().name(), "svg");
    std::map<std::string, int> counts;
    CountElements(picture, counts);
    std::string text;
    for (const auto& [name, count] : counts)
        text += "<" + name + "> " + std::to_string(count) + "\n";
    return text;
}

std::string OutcomeOf(const std::filesystem::path& path)
{
    const Document document(svgHostCreate(), svgHostDestroy);
    const QlmNode context = svgHostBeginImport(document.get());
    EXPECT_TRUE(dxfFileOpen(path.wstring().c_str(), context));
    EXPECT_EQ(qlmGetCurrentSvgNode(context), nullptr) << "the current node is the default place again";
    return ReportsOf(*document) + StatisticsOf(*document) + PictureOf(*document);
}

bool IsRewriting()
{
    const char* const value = std::getenv("PLEXORN_REWRITE_ISSUES");
    return value != nullptr && std::string(value) == "1";
}

class Issue : public testing::TestWithParam<std::string> {};

} // namespace

TEST_P(Issue, IsMended)
{
    const std::filesystem::path drawing = kFolder / (GetParam() + ".dxf");
    const std::filesystem::path expected = kFolder / (GetParam() + ".expected");
    const std::string outcome = OutcomeOf(drawing);
    if (IsRewriting()) {
        std::ofstream(expected, std::ios::binary) << outcome;
        GTEST_SKIP() << expected << " has been rewritten.";
    }
    ASSERT_TRUE(std::filesystem::exists(expected))
        << "what must come of " << drawing << " is written nowhere";
    EXPECT_EQ(outcome, BytesOf(expected)) << drawing;
}

TEST_P(Issue, SaysFirstWhatWentWrong)
{
    std::ifstream file(kFolder / (GetParam() + ".dxf"), std::ios::binary);
    std::string code, story;
    std::getline(file, code);
    std::getline(file, story);
    EXPECT_EQ(code, "999");
    EXPECT_GT(std::count(story.begin(), story.end(), ' '), 5) << story;
}

namespace {

// A drawing of this folder, with its last lines, which end just before the end of the section, that many
// times more.
std::string Longer(const char* name, const std::string& lines, std::size_t more)
{
    std::string bytes = BytesOf(kFolder / (std::string(name) + ".dxf"));
    const std::size_t end = bytes.rfind("0\nENDSEC\n");
    EXPECT_EQ(bytes.substr(end - lines.size(), lines.size()), lines);
    std::string repeated;
    for (std::size_t i = 0; i < more; ++i)
        repeated += lines;
    return bytes.insert(end, repeated);
}

struct Cost {
    SvgHostStatistics counts;
    std::size_t bytes; // at most at once
};

// Of an import into a document of at most that many elements.
Cost CostOf(const std::string& drawing, std::size_t most)
{
    const TempFile file(drawing);
    const std::wstring path = file.WidePath();
    const Document document(svgHostCreate(), svgHostDestroy);
    svgHostLimitElements(document.get(), most);
    const QlmNode context = svgHostBeginImport(document.get());
    const FailingMemory memory(0);
    EXPECT_TRUE(dxfFileOpen(path.c_str(), context));
    Cost cost = {{}, memory.MostBytes()};
    EXPECT_TRUE(svgHostGetStatistics(document.get(), &cost.counts));
    return cost;
}

} // namespace

// The text of a point far away, and the room that its host takes for a copy.
TEST(Story, PolylineOfFarPointsTakesTheMemoryOfItsTextOnce)
{
    constexpr std::size_t kPoints = 20'000;
    constexpr std::size_t kText = kPoints * 327 * sizeof(wchar_t);
    const Cost cost = CostOf(Longer("polyline_of_far_points", "20\n\n", kPoints), 10);
    EXPECT_EQ(cost.counts.elements, 1u);
    EXPECT_EQ(cost.counts.undrawableElements, 1u);
    EXPECT_GT(cost.bytes, kText * 9 / 10);
    EXPECT_LT(cost.bytes, kText * 5 / 4);
}

TEST(Story, StackedTextDrawnOftenMakesItsElementsAndKeepsThoseThatAreAllowed)
{
    constexpr std::size_t kMarkers = 200;
    constexpr std::size_t kOfEach = 300; // texts
    constexpr std::size_t kMost = 1000;
    const std::string drawing = Longer("stacked_text_drawn_often", "100\nAcDbRadialDimension\n", kMarkers);
    const Cost whole = CostOf(drawing, kMarkers * kOfEach * 2);
    EXPECT_GT(whole.counts.elements, kMarkers * kOfEach);
    const Cost part = CostOf(drawing, kMost);
    EXPECT_EQ(part.counts.elements, kMost);
    EXPECT_EQ(part.counts.elements + part.counts.elementsBeyondLimit, whole.counts.elements);
    EXPECT_LT(part.bytes, std::size_t{512} << 10) << "most of it is the read buffer";
}

INSTANTIATE_TEST_SUITE_P(Drawings, Issue, testing::ValuesIn(Drawings()),
                         [](const auto& drawing) { return drawing.param; });
