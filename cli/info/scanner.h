// The pairs of a drawing's file, one after the other.
#ifndef PLEXORN_CLI_INFO_SCANNER_H
#define PLEXORN_CLI_INFO_SCANNER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>
#include <vector>

namespace plexorn {

// Cuts a file into lines as the reader does: a CR before the LF is dropped, a byte 0x1A ends the file, a NUL
// ends its line's text, and of a line only the first 1023 bytes count. Takes the same memory for every file.
class CLineScanner {
public:
    // file is read from where it stands; the caller closes it.
    explicit CLineScanner(std::FILE* file);

    // The next line, without white space at its ends, good until the next call. False at the end of the file,
    // or when it cannot be read on: std::ferror tells.
    bool Next(std::string_view& line);

    // The number of the line that was read last, the first one is 1.
    std::uint64_t Number() const { return m_nNumber; }

private:
    static constexpr size_t LongestLine = 1023;

    bool Fill();
    void Keep(const char* begin, const char* end);
    std::string_view Kept();

    std::FILE* m_pFile;
    std::vector<char> m_block;
    const char* m_pAt;
    const char* m_pEnd;
    std::array<char, LongestLine> m_line{}; // a line that two blocks share
    size_t m_nKept = 0;
    std::uint64_t m_nNumber = 0;
    bool m_bHasNul = false; // whether any block has brought one: few files do
    bool m_bEnded = false;
};

// Joins the lines into pairs of a group code and a value. A line that stands where a code belongs and is none
// is left out, which is what brings a file with one line too many back into step.
class CPairScanner {
public:
    explicit CPairScanner(std::FILE* file) : m_lines(file) {}

    // Moves on to the next pair. False at the end; a code without a value is no pair.
    bool Next();

    int Code() const { return m_nCode; }
    // Without white space at its ends; good until the next call of Next.
    std::string_view Value() const { return m_value; }
    // The line of the value.
    std::uint64_t Line() const { return m_lines.Number(); }

    // How many lines were left out, and the first of them.
    std::uint64_t OddLines() const { return m_nOddLines; }
    std::uint64_t FirstOddLine() const { return m_nFirstOddLine; }

private:
    CLineScanner m_lines;
    int m_nCode = 0;
    std::string_view m_value;
    std::uint64_t m_nOddLines = 0;
    std::uint64_t m_nFirstOddLine = 0;
};

} // namespace plexorn

#endif
