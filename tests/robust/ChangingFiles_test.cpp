// A drawing that somebody else writes, cuts or deletes while it is read: what is read is what is there then.
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>

namespace {

constexpr std::size_t kCount = 40'000; // sections, each of which is reported while it is read
constexpr std::string_view kSection = "0\nSECTION\n2\nX\n";

std::string Sections(std::size_t count)
{
    std::string drawing;
    for (std::size_t i = 0; i < count; ++i)
        drawing += kSection;
    return drawing;
}

// Imports a file, does something to it at the tenth message, and returns how many sections were reported.
std::size_t SectionsOf(const TempFile& file, const std::function<void()>& change)
{
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    host.onCall = [&] {
        if (host.callCount == 10)
            change();
    };
    EXPECT_TRUE(dxfFileOpen(file.WidePath().c_str(), RecordingHost::Context()));
    host.onCall = nullptr;
    for (std::size_t i = 0; i < host.calls.size(); ++i)
        EXPECT_EQ(host.calls[i], "qlmSetLastError(0, \"DXF\", 2, \"X - Unknown Section Name Line (" +
                                     std::to_string(4 * (i + 1)) + ")\", false, 0)");
    return host.calls.size();
}

} // namespace

TEST(ChangingFile, ThatGrowsIsReadToItsNewEnd)
{
    const TempFile file(Sections(kCount));
    EXPECT_EQ(SectionsOf(
                  file, [&] { std::ofstream(file.Path(), std::ios::app | std::ios::binary) << Sections(5); }),
              kCount + 5);
}

TEST(ChangingFile, ThatShrinksIsReadToItsNewEnd)
{
    for (const std::size_t left : {std::size_t{0}, kCount / 2, kCount - 1}) {
        const TempFile file(Sections(kCount));
        const std::size_t sections =
            SectionsOf(file, [&] { std::filesystem::resize_file(file.Path(), left * kSection.size()); });
        EXPECT_GE(sections, std::max<std::size_t>(left, 10));
        EXPECT_LE(sections, std::max<std::size_t>(left, (std::size_t{128} << 10) / kSection.size() + 1))
            << "what had been read by then, or what is left";
    }
}

// A system may refuse to delete a file that is open: then it is there.
TEST(ChangingFile, ThatVanishesIsReadToItsEnd)
{
    const TempFile file(Sections(kCount));
    std::error_code ignored;
    EXPECT_EQ(SectionsOf(file, [&] { std::filesystem::remove(file.Path(), ignored); }), kCount);
}

// A file that grows as fast as it is read would have no end; one that grows at each message has one.
TEST(ChangingFile, ThatGrowsWithEveryMessageEndsWithThem)
{
    const TempFile file(Sections(10));
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    host.onCall = [&] {
        if (host.callCount <= 1000)
            std::ofstream(file.Path(), std::ios::app | std::ios::binary) << kSection;
    };
    EXPECT_TRUE(dxfFileOpen(file.WidePath().c_str(), RecordingHost::Context()));
    host.onCall = nullptr;
    EXPECT_EQ(host.calls.size(), 10u + 1000u);
}

// Five billion zero bytes are one line, and what comes after them is read.
TEST(FullHugeFile, IsReadToItsEnd)
{
    const TempFile file("");
    std::filesystem::resize_file(file.Path(), std::uintmax_t{5} << 30);
    std::ofstream(file.Path(), std::ios::app | std::ios::binary) << "\n" << kSection;
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    EXPECT_TRUE(dxfFileOpen(file.WidePath().c_str(), RecordingHost::Context()));
    EXPECT_EQ(host.Trace(),
              "qlmSetLastError(0, \"DXF\", 10, \"CDxfRead Line longer than 1023 characters cut, "
              "Line:1\", false, 0)\n"
              "qlmSetLastError(0, \"DXF\", 2, \"X - Unknown Section Name Line (5)\", false, 0)\n");
}
