// The stream against the standard library's, on bytes of every kind and wherever a read or a block may end.
#include "input/CDxfMemory.h"
#include "input/CDxfStream.h"
#include "support/Sources.h"
#include "support/StreamModel.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kBlockRead = std::size_t{128} << 10; // what the stream asks a source for at once
constexpr int kReadsAfterTheEnd = 3;

struct ReadLine {
    std::string text;
    bool eof;

    bool operator==(const ReadLine&) const = default;
};

std::ostream& operator<<(std::ostream& out, const ReadLine& line)
{
    return out << testing::PrintToString(line.text) << (line.eof ? " and end of file" : "");
}

// Reads as the standard library does, and some lines more after the end.
std::vector<ReadLine> Expected(std::string_view bytes)
{
    StreamModel stream(bytes);
    std::vector<ReadLine> lines;
    for (int after = 0; after < kReadsAfterTheEnd; after += stream.eof()) {
        const std::string text(stream.getline());
        lines.push_back({text, stream.eof()});
        EXPECT_FALSE(stream.WasCut());
    }
    return lines;
}

std::vector<ReadLine> Actual(CDxfSource& source)
{
    CDxfStream stream(source);
    std::vector<ReadLine> lines;
    for (int after = 0; after < kReadsAfterTheEnd; after += stream.eof()) {
        const std::string text(stream.getline());
        lines.push_back({text, stream.eof()});
        EXPECT_FALSE(stream.HasTrouble());
    }
    return lines;
}

std::vector<ReadLine> Actual(std::string_view bytes)
{
    CDxfMemory memory(bytes);
    return Actual(memory);
}

// Lines of at most longest bytes made of some bytes; the line ends are CR-LF and LF in turn, at random.
std::string RandomLines(std::mt19937& random, std::size_t size, std::size_t longest, std::string_view bytes)
{
    std::string text;
    while (text.size() < size) {
        for (std::size_t length = random() % (longest + 1); length != 0; --length)
            text += bytes[random() % bytes.size()];
        text += random() % 2 == 0 ? "\r\n" : "\n";
    }
    text.resize(size);
    return text;
}

// So many bytes of long lines; the last is not ended.
std::string LongLines(std::size_t size)
{
    std::string text;
    while (text.size() < size)
        text += std::string(999, 'x') + '\n';
    text.resize(size);
    if (text.back() == '\n')
        text.back() = 'x';
    return text;
}

// All bytes but those that end a line or the file.
std::string AnyByte()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        if (byte != '\n' && byte != '\x1A')
            bytes += static_cast<char>(byte);
    return bytes;
}

} // namespace

TEST(StreamModel, AgreesOnRandomBytes)
{
    std::mt19937 random(1);
    const std::string bytes = AnyByte();
    for (int round = 0; round < 400; ++round) {
        const std::string text = RandomLines(random, random() % 4000, random() % 200, bytes);
        ASSERT_EQ(Actual(text), Expected(text)) << "round " << round;
    }
}

TEST(StreamModel, AgreesOnTheBytesThatMeanSomething)
{
    using namespace std::string_view_literals;
    std::mt19937 random(2);
    for (int round = 0; round < 4000; ++round) {
        std::string text;
        for (std::size_t size = random() % 200; size != 0; --size)
            text += "\n\n\n\n\r\r\rab\0\x1A"sv[random() % (random() % 8 == 0 ? 11 : 9)];
        ASSERT_EQ(Actual(text), Expected(text)) << "round " << round;
    }
}

TEST(StreamModel, AgreesOnEveryShortCombinationOfTheBytesThatMeanSomething)
{
    using namespace std::string_view_literals;
    constexpr std::string_view kBytes = "\n\r\0\x1A"
                                        "a"sv;
    for (std::size_t size = 0; size <= 5; ++size) {
        std::size_t combinations = 1;
        for (std::size_t i = 0; i < size; ++i)
            combinations *= kBytes.size();
        for (std::size_t combination = 0; combination < combinations; ++combination) {
            std::string text;
            for (std::size_t i = 0, rest = combination; i < size; ++i, rest /= kBytes.size())
                text += kBytes[rest % kBytes.size()];
            ASSERT_EQ(Actual(text), Expected(text)) << testing::PrintToString(text);
            ShortReads single(text, 1);
            ASSERT_EQ(Actual(single), Expected(text)) << testing::PrintToString(text);
        }
    }
}

TEST(StreamModel, AgreesWhateverAReadGives)
{
    std::mt19937 random(3);
    const std::string bytes = AnyByte();
    for (std::size_t most = 1; most <= 140; ++most) {
        const std::string text = RandomLines(random, 2000, most % 2 == 0 ? 10 : 1022, bytes);
        ShortReads source(text, most);
        ASSERT_EQ(Actual(source), Expected(text)) << most << " bytes a read";
        RandomReads randomSource(text, most, static_cast<unsigned>(most));
        ASSERT_EQ(Actual(randomSource), Expected(text)) << "up to " << most << " bytes a read";
    }
}

TEST(StreamModel, AgreesOnLinesOfEveryLengthAroundBlocksOf64Bytes)
{
    for (std::size_t first = 0; first <= 70; ++first)
        for (std::size_t second = 60; second <= 70; ++second) {
            const std::string text = std::string(first, 'a') + "\r\n" + std::string(second, 'b') + "\n" + "c";
            ASSERT_EQ(Actual(text), Expected(text)) << first << " and " << second;
        }
}

TEST(StreamModel, AgreesWhereverALineCrossesTheEndOfTheBuffer)
{
    for (std::size_t at = kBlockRead - 70; at <= kBlockRead + 70; ++at) {
        const std::string text = LongLines(at) + "\r\nline across the end\r\n\n\r\nlast";
        ASSERT_EQ(Actual(text), Expected(text)) << "line end at " << at;
    }
}

TEST(StreamModel, AgreesWhereverALineCrossesTheSecondEndOfTheBuffer)
{
    for (std::size_t at = 2 * kBlockRead - 1040; at <= 2 * kBlockRead + 10; at += 7) {
        const std::string text = LongLines(at) + "\r\nline across the end\r\n\n\r\nlast";
        ASSERT_EQ(Actual(text), Expected(text)) << "line end at " << at;
    }
}

TEST(StreamModel, AgreesWhereverALongestLineCrossesTheEndOfTheBuffer)
{
    for (std::size_t at = kBlockRead - 1030; at < kBlockRead; at += 5) {
        const std::string text = LongLines(at) + "\n" + std::string(1022, 'x') + "\r\nnext";
        ASSERT_EQ(Actual(text), Expected(text)) << "line begins at " << at + 1;
    }
}

TEST(StreamModel, AgreesWhereverAnOverlongLineCrossesTheEndOfTheBuffer)
{
    std::string overlong;
    for (std::size_t i = 0; i < 2'500; ++i)
        overlong += static_cast<char>('a' + i % 23);
    for (std::size_t at = kBlockRead - 2'600; at < kBlockRead; at += 13)
        for (const char* const end : {"\nnext", "\r\nnext", ""}) {
            const std::string text = LongLines(at) + "\n" + overlong + end;
            CDxfMemory source(text);
            CDxfStream stream(source);
            StreamModel model(text);
            while (!model.eof()) {
                ASSERT_EQ(stream.getline(), model.getline()) << "overlong line begins at " << at + 1;
                ASSERT_EQ(stream.TakeLineWasCut(), model.WasCut());
                ASSERT_EQ(stream.eof(), model.eof());
            }
        }
}

TEST(StreamModel, AgreesOnFilesThatEndAtTheEndOfTheBuffer)
{
    for (std::size_t size = kBlockRead - 70; size <= kBlockRead + 70; ++size)
        for (const char* const end : {"", "\n", "\r\n", "\r", "\x1A"}) {
            const std::string text = LongLines(size) + end;
            ASSERT_EQ(Actual(text), Expected(text)) << size << " bytes";
        }
}

TEST(StreamModel, AgreesOnALargeFileReadInPartsOfRandomSize)
{
    std::mt19937 random(4);
    const std::string text = RandomLines(random, 700000, 400, AnyByte());
    RandomReads source(text, 5000, 4);
    ASSERT_TRUE(Actual(source) == Expected(text));
    ASSERT_TRUE(Actual(text) == Expected(text));
}
