// A drawing chooses its names and texts. If they are looked up through the unkeyed hash of the standard
// library, all of them can be made to meet in one place, and the work grows with the square of their number.
#include "support/CountedWork.h"
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

using namespace svghost_tests;

namespace {

// The multiplier of libstdc++'s hash of bytes, a murmur hash of eight bytes a step, and its inverse.
constexpr std::uint64_t kFactor = 0xC6A4A7935BD1E995;
constexpr std::uint64_t kInverse = 0x5F7A0EA7E59B19BD;
static_assert(kFactor * kInverse == 1);

constexpr std::uint64_t Turned(std::uint64_t value)
{
    return value ^ (value >> 47);
}

// The eight bytes that differ from block in the highest bit of what the hash makes of them, and of its state.
// A second such block takes the difference back.
constexpr std::uint64_t PartnerOf(std::uint64_t block)
{
    const std::uint64_t mixed = Turned(block * kFactor) * kFactor;
    return Turned((mixed ^ (std::uint64_t(1) << 63)) * kInverse) * kInverse;
}

// 2 to the power of bits texts, all different and with the same hash.
std::vector<std::wstring> TextsOfOneHash(int bits)
{
    constexpr std::uint64_t kBlock = 0x0044004300420041;
    constexpr std::size_t kUnits = 2 * sizeof kBlock / sizeof(wchar_t);
    std::vector<std::wstring> texts;
    for (unsigned choice = 0; choice < 1u << bits; ++choice) {
        std::wstring text;
        for (int bit = 0; bit < bits; ++bit) {
            const std::uint64_t block = choice >> bit & 1 ? PartnerOf(kBlock) : kBlock;
            const std::uint64_t pair[] = {block, block};
            text.resize(text.size() + kUnits);
            std::memcpy(&text[text.size() - kUnits], pair, sizeof pair);
        }
        EXPECT_EQ(text.find(L'\0'), text.npos);
        texts.push_back(text);
    }
    return texts;
}

void UseNames(const HostDocument& document, const std::vector<std::wstring>& names)
{
    for (const std::wstring& name : names)
        document.Use(name.c_str(), 0, 0);
    for (const std::wstring& name : names) {
        document.Begin(name.c_str());
        document.End();
    }
}

// Compared by tests/robust/work_test.py: with one hash for all of them, twice the texts would cost four times
// the work.
void RunAtSizes(const char* label, void (*fill)(const HostDocument&, const std::vector<std::wstring>&))
{
    const std::vector<std::wstring> texts = TextsOfOneHash(11);
    for (const std::size_t count : {std::size_t{0}, texts.size() / 2, texts.size()}) {
        const std::vector<std::wstring> used(texts.begin(),
                                             texts.begin() + static_cast<std::ptrdiff_t>(count));
        RunCounted(label, count, [&] {
            const HostDocument document;
            fill(document, used);
            return document.Write().size();
        });
    }
}

} // namespace

#if defined(__GLIBCXX__) && UINTPTR_MAX == UINT64_MAX
TEST(Collisions, TheTextsHaveTheSameHash)
{
    const std::vector<std::wstring> texts = TextsOfOneHash(3);
    for (const std::wstring& text : texts) {
        EXPECT_EQ(std::hash<std::wstring>()(text), std::hash<std::wstring>()(texts[0]));
        EXPECT_EQ(text == texts[0], &text == &texts[0]);
    }
}
#endif

TEST(Collisions, NamesOfOneHashAreSymbolsOfTheirOwn)
{
    const std::vector<std::wstring> names = TextsOfOneHash(15);
    const HostDocument document;
    UseNames(document, names);
    EXPECT_EQ(document.Statistics().missingSymbols, 0u);
    EXPECT_EQ(document.Statistics().duplicateSymbols, 0u);
}

TEST(Collisions, ValuesOfOneHashAreWritten)
{
    const std::vector<std::wstring> texts = TextsOfOneHash(15);
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 1, 1);
    for (const std::wstring& text : texts)
        document.Set(line, L"stroke", text.c_str());
    EXPECT_TRUE(ParsedSvg(document).First("line").attribute("stroke"));
}

TEST(Work, OfNamesWithOneHash)
{
    RunAtSizes("collisions/names of symbols", UseNames);
}

TEST(Work, OfValuesWithOneHash)
{
    RunAtSizes("collisions/values of attributes",
               [](const HostDocument& document, const std::vector<std::wstring>& texts) {
                   const QlmNode line = document.Line(0, 0, 1, 1);
                   for (const std::wstring& text : texts)
                       document.Set(line, L"stroke", text.c_str());
               });
}
