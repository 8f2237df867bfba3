#include "prepare/support/ReadText.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

const std::string kFilter = Dxf({{0, "DICTIONARY"},
                                 {5, "B"},
                                 {102, "{ACAD_REACTORS"},
                                 {330, "FF"},
                                 {102, "}"},
                                 {330, "A"},
                                 {3, "SPATIAL"}}) +
                            Dxf({{0, "DICTIONARY"}, {5, "A"}, {330, "1F"}, {3, "ACAD_FILTER"}, {360, "B"}});

std::string Filter(const std::string& isOn)
{
    return Dxf({{0, "SPATIAL_FILTER"},
                {5, "C"},
                {102, "{ACAD_REACTORS"},
                {330, "FF"},
                {102, "}"},
                {330, "B"},
                {70, "2"},
                {10, "1"},
                {20, "2"},
                {10, "3"},
                {20, "4"},
                {71, isOn},
                {40, "0.5"},
                {40, "7"}});
}

TEST(ObjectReader, AFilterIsTheInsertsThatOwnsItsDictionaries)
{
    const ReadDrawingOf read(Section("OBJECTS", Filter("1") + kFilter));
    EXPECT_EQ(read.drawing.FindFilter(0x1E), nullptr);
    const SpatialFilter* const filter = read.drawing.FindFilter(0x1F);
    ASSERT_NE(filter, nullptr);
    EXPECT_EQ(filter->boundary, (std::vector<Point2>{{1, 2}, {3, 4}}));
    EXPECT_EQ(filter->numbers, (std::vector<double>{0.5, 7}));
}

TEST(ObjectReader, AFilterThatIsOffOrOwnedByNobodyIsLeftOut)
{
    EXPECT_TRUE(ReadDrawingOf(Section("OBJECTS", Filter("0") + kFilter)).drawing.filterOfInsert.empty());
    EXPECT_TRUE(ReadDrawingOf(Section("OBJECTS", Filter("1"))).drawing.filterOfInsert.empty());
}

// What belongs to the filter C: a dictionary of its own, and in it the boundary around which things are
// shown.
std::string Inverted(const std::string& lastCompared)
{
    return Dxf({{0, "DICTIONARY"}, {5, "D"}, {330, "C"}, {3, "ACAD_XREC_ROUNDTRIP"}, {360, "E"}}) +
           Dxf({{0, "XRECORD"}, {5, "E"}, {102, "{ACAD_REACTORS"}, {330, "FF"}, {102, "}"}, {330, "D"}}) +
           Dxf({{280, "1"}, {10, "99"}, {102, "ACAD_INVERTEDCLIP_ROUNDTRIP"}, {10, "5"}, {20, "6"}}) +
           Dxf({{30, "0"}, {10, "7"}, {20, "8"}, {330, "9"}, {102, "ACAD_INVERTEDCLIP_ROUNDTRIP_COMPARE"}}) +
           Dxf({{10, "1"}, {20, "2"}}) + lastCompared + Dxf({{102, "ANOTHER"}, {10, "99"}});
}

TEST(ObjectReader, ABoundaryIsInvertedByARecordOfTheFilter)
{
    const ReadDrawingOf plain(Section("OBJECTS", Filter("1") + kFilter));
    EXPECT_FALSE(plain.drawing.FindFilter(0x1F)->isInverted);
    const ReadDrawingOf read(
        Section("OBJECTS", Filter("1") + kFilter + Inverted(Dxf({{10, "3"}, {20, "4"}}))));
    const SpatialFilter* const filter = read.drawing.FindFilter(0x1F);
    ASSERT_NE(filter, nullptr);
    EXPECT_TRUE(filter->isInverted);
    EXPECT_EQ(filter->boundary, (std::vector<Point2>{{5, 6}, {7, 8}}));
    EXPECT_EQ(filter->numbers, (std::vector<double>{0.5, 7}));
}

TEST(ObjectReader, ABoundaryThatWasChangedSinceIsNotInverted)
{
    const ReadDrawingOf read(Section("OBJECTS", Filter("1") + kFilter + Inverted("")));
    const SpatialFilter* const filter = read.drawing.FindFilter(0x1F);
    ASSERT_NE(filter, nullptr);
    EXPECT_FALSE(filter->isInverted);
    EXPECT_EQ(filter->boundary, (std::vector<Point2>{{1, 2}, {3, 4}}));
}

const std::string kOrder = Dxf({{0, "SORTENTSTABLE"},
                                {5, "A"},
                                {330, "B"},
                                {331, "12"},
                                {5, "10"},
                                {331, "11"},
                                {5, "11"},
                                {331, "10"},
                                {5, "12"},
                                {5, "99"}});

TEST(ObjectReader, EntitiesHaveThePlacesOfOthers)
{
    const Drawing& drawing = ReadDrawingOf(Section("OBJECTS", kOrder)).drawing;
    EXPECT_EQ(drawing.placeInOrder, (std::map<Handle, Handle>{{0x10, 0x12}, {0x12, 0x10}}));
    EXPECT_EQ(drawing.PlaceOf(0x12), 0x10u);
    EXPECT_EQ(drawing.PlaceOf(0x11), 0x11u);
}

TEST(ObjectReader, BlocksAreSortedIntoTheirOrder)
{
    const auto entity = [](const char* handle, const char* layer) {
        return Dxf({{0, "LINE"}, {5, handle}, {8, layer}});
    };
    const std::string blocks =
        Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "A"}}) + entity("10", "last") + entity("11", "middle") +
                              entity("12", "first") + Dxf({{0, "ENDBLK"}, {0, "BLOCK"}, {2, "B"}}) +
                              entity("21", "left") + entity("20", "right") + Dxf({{0, "ENDBLK"}}));
    const ReadDrawingOf read(blocks + Section("OBJECTS", kOrder));
    const auto names = [&](std::string_view block) {
        std::string all;
        for (const auto& one : read.drawing.FindBlock(read.Id(block))->entities)
            all += read.Name(*one);
        return all;
    };
    EXPECT_EQ(names("A"), "LINE first;LINE middle;LINE last;");
    EXPECT_EQ(names("B"), "LINE left;LINE right;");
}

} // namespace
} // namespace prepare
