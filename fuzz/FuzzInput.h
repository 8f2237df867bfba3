// What the targets share: an input taken apart, and checks that end the program.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

// Every target defines this; it returns 0, or does not return when a check fails. It is called again and
// again in one process and must not depend on the calls before.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// An input from front to end. After its end it gives zeros and empty texts, so that every input is a
// good one.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : m_rest(size == 0 ? "" : reinterpret_cast<const char*>(data), size)
    {
    }

    bool IsAtEnd() const { return m_rest.empty(); }

    std::uint8_t Byte()
    {
        if (m_rest.empty())
            return 0;
        const char byte = m_rest.front();
        m_rest.remove_prefix(1);
        return static_cast<std::uint8_t>(byte);
    }

    // The bytes of a value; zeros for those after the end.
    template <class Value>
    Value Bits()
    {
        Value value{};
        const std::string_view bytes = Text(sizeof(value));
        std::memcpy(&value, bytes.data(), bytes.size());
        return value;
    }

    // Up to so many bytes.
    std::string_view Text(std::size_t size)
    {
        const std::string_view text = m_rest.substr(0, size);
        m_rest.remove_prefix(text.size());
        return text;
    }

    // All bytes that are left.
    std::string_view Rest() { return Text(m_rest.size()); }

private:
    std::string_view m_rest;
};

// Writes out an input whose long runs are spelled short, so that the fuzzer soon finds them: a byte 0x0E and
// a byte n repeat the byte before them 4 * n times more. text is filled again.
inline void SpellRuns(std::string_view bytes, std::string& text)
{
    constexpr char kRun = 0x0E;
    text.clear();
    for (std::size_t i = 0; i < bytes.size(); ++i)
        if (bytes[i] == kRun && i + 1 < bytes.size() && !text.empty())
            text.append(4 * std::size_t{static_cast<std::uint8_t>(bytes[++i])}, text.back());
        else
            text += bytes[i];
}

// Prints both sides in a form that shows every byte, and ends the program.
[[noreturn]] inline void FuzzFail(const char* what, std::string_view expected, std::string_view actual)
{
    const auto print = [](const char* name, std::string_view text) {
        std::fprintf(stderr, "%s: \"", name);
        for (const char byte : text)
            std::fprintf(stderr, byte >= ' ' && byte <= '~' ? "%c" : "\\x%02X",
                         static_cast<unsigned char>(byte));
        std::fprintf(stderr, "\"\n");
    };
    std::fprintf(stderr, "Check failed: %s\n", what);
    print("expected", expected);
    print("actual  ", actual);
    std::abort();
}

inline void FuzzRequire(bool holds, const char* what)
{
    if (!holds) [[unlikely]] {
        std::fprintf(stderr, "Check failed: %s\n", what);
        std::abort();
    }
}

// The same text, or the places where two long ones begin to differ.
inline void FuzzRequireSame(const char* what, std::string_view expected, std::string_view actual)
{
    if (expected == actual) [[likely]]
        return;
    constexpr std::size_t kShown = 500, kBefore = 200;
    const auto differ = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    const std::size_t place = static_cast<std::size_t>(differ.first - expected.begin());
    const std::size_t first = place < kBefore ? 0 : place - kBefore;
    FuzzFail(what, expected.substr(first, kShown), actual.substr(first, kShown));
}
