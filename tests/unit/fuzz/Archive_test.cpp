// The reader of the archives that keep fuzz inputs: whole archives are read, all else is refused.
#include "fuzz/Archive.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace {

constexpr std::size_t kBlock = 512;

void Put(std::string& header, std::size_t offset, std::string_view text)
{
    header.replace(offset, text.size(), text);
}

void PutChecksum(std::string& header)
{
    Put(header, 148, "        ");
    unsigned sum = 0;
    for (const char byte : header)
        sum += static_cast<unsigned char>(byte);
    char text[8];
    std::snprintf(text, sizeof(text), "%06o", sum);
    Put(header, 148, {text, 7});
}

// An entry as the ustar format has it, in octal digits and blocks of 512 bytes.
std::string Entry(std::string_view name, const std::string& bytes, char kind = '0',
                  std::string_view prefix = {})
{
    std::string header(kBlock, '\0');
    Put(header, 0, name);
    char size[12];
    std::snprintf(size, sizeof(size), "%011zo", bytes.size());
    Put(header, 124, size);
    header[156] = kind;
    Put(header, 257, std::string_view("ustar\00000", 8));
    Put(header, 345, prefix);
    PutChecksum(header);
    return header + bytes + std::string((kBlock - bytes.size() % kBlock) % kBlock, '\0');
}

const std::string kEnd(2 * kBlock, '\0');

std::string Listed(const std::string& archive)
{
    std::string list;
    for (const ArchiveEntry& entry : ReadArchive(archive))
        list += entry.name + "=" + std::string(entry.bytes) + ";";
    return list;
}

} // namespace

TEST(Archive, FilesAreReadInOrder)
{
    EXPECT_EQ(Listed(Entry("b", "two") + Entry("a", "") + kEnd), "b=two;a=;");
    EXPECT_EQ(Listed(kEnd), "");
}

TEST(Archive, BytesAreReadWhateverTheyAre)
{
    std::string all;
    for (int i = 0; i < 1000; ++i)
        all += static_cast<char>(i);
    const std::string archive =
        Entry("512", all.substr(0, 512)) + Entry("1000", all) + Entry("z", "\n") + kEnd;
    const std::vector<ArchiveEntry> entries = ReadArchive(archive);
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].bytes, all.substr(0, 512));
    EXPECT_EQ(entries[1].bytes, all);
    EXPECT_EQ(entries[2].bytes, "\n");
}

TEST(Archive, FoldersAndLinksAreLeftOut)
{
    EXPECT_EQ(Listed(Entry("folder/", "", '5') + Entry("a", "x") + Entry("link", "", '2') +
                     Entry("old", "y", '\0') + kEnd),
              "a=x;old=y;");
}

TEST(Archive, LongNamesHaveTheirFolderApart)
{
    const std::string name(100, 'n');
    EXPECT_EQ(Listed(Entry(name, "x", '0', "some/folder") + kEnd), "some/folder/" + name + "=x;");
}

TEST(Archive, WhatFollowsTheEndIsNoMatter)
{
    EXPECT_EQ(Listed(Entry("a", "x") + kEnd + std::string(10 * kBlock, '\0')), "a=x;");
    EXPECT_EQ(Listed(Entry("a", "x") + kEnd + "abc"), "a=x;");
}

TEST(Archive, EveryCutIsRefused)
{
    const std::string archive = Entry("a", "some bytes") + Entry("b", std::string(600, 'b')) + kEnd;
    for (std::size_t size = 0; size < archive.size(); ++size)
        EXPECT_THROW(ReadArchive(std::string_view(archive).substr(0, size)), std::runtime_error) << size;
    EXPECT_EQ(ReadArchive(archive).size(), 2u);
}

TEST(Archive, EveryChangeOfAHeaderIsRefused)
{
    const std::string archive = Entry("a", "some bytes") + kEnd;
    for (std::size_t at = 0; at < kBlock; ++at) {
        std::string changed = archive;
        changed[at] = static_cast<char>(changed[at] + 1);
        const bool isAfterTheChecksum = at >= 148 + 7 && at < 148 + 8; // the byte after its zero
        if (!isAfterTheChecksum) {
            EXPECT_THROW(ReadArchive(changed), std::runtime_error) << at;
        }
    }
}

TEST(Archive, NumbersThatAreNoneAreRefused)
{
    for (const std::string_view size : {"", "8", "x", "-1", "0000000001x", "77777777777", "1 1"}) {
        std::string header = Entry("a", "");
        Put(header, 124, std::string(12, '\0'));
        Put(header, 124, size);
        PutChecksum(header);
        EXPECT_THROW(ReadArchive(header + kEnd), std::runtime_error) << size;
    }
}

// The program that packs the inputs is another one than this reader: they agree on the kept archives.
TEST(Archive, KeptInputsAreReadWhole)
{
    const std::string path = PLEXORN_TEST_DATA "/../fuzz/corpus/stream.tar";
    const std::string archive = BytesOf(path);
    const std::vector<ArchiveEntry> entries = ReadArchive(archive);
    EXPECT_GT(entries.size(), 10u);
    std::size_t at = 0;
    for (const ArchiveEntry& entry : entries) {
        EXPECT_EQ(archive.substr(at, entry.name.size()), entry.name);
        at += kBlock;
        EXPECT_EQ(entry.bytes.data(), archive.data() + at) << entry.name;
        at += (entry.bytes.size() + kBlock - 1) / kBlock * kBlock;
    }
    EXPECT_EQ(archive.find_first_not_of('\0', at), std::string::npos) << "what follows the last entry";
    EXPECT_TRUE(std::is_sorted(entries.begin(), entries.end(),
                               [](const auto& a, const auto& b) { return a.name < b.name; }));
}
