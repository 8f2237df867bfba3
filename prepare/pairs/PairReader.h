// The group pairs of a drawing.
#pragma once

#include "base/Numbers.h"
#include "base/Tally.h"
#include "input/CDxfStream.h"
#include "prepare/pairs/TextSource.h"

#include <cstdint>
#include <string_view>

namespace prepare {

// What a record is called whose type is an empty text.
inline constexpr std::string_view kNoTypeName = "(no type)";

// Reads pair by pair whatever programs write as a drawing. Comments (999) are left out. Where a group code
// belongs, any other line is skipped, and so is a 0 whose value is a number, as no record has such a name: so
// a file with a line too many or too few gets back into step.
class PairReader {
public:
    static constexpr std::size_t kLongestLine = CDxfStream::kMostLongestLine;

    // Whether that is the line of a group code: a number and no other characters but blanks around it.
    // ("12.5" is a value.)
    static bool IsCode(std::string_view line);

    // The source must outlive this. Throws std::bad_alloc.
    explicit PairReader(CDxfSource& source,
                        TextSource::DoubledEnds ends = TextSource::DoubledEnds::MadeSingle)
        : m_text(source, ends), m_stream(m_text, kLongestLine)
    {
    }

    // Steps to the next pair; false at the end, which is the pair 0, EOF or that of the file. Then the pair
    // is 0 and an empty value.
    bool Next()
    {
        do {
            if (!NextOrComment())
                return false;
        } while (m_code == kComment);
        return true;
    }

    std::int32_t Code() const { return m_code; }
    // Without its line end, with its blanks; good until Next.
    CDxfLine Value() const { return m_value; }
    // The line of the code in the file, from 1; in a binary drawing, that of the text it would be.
    std::uint64_t Line() const { return m_text.LineInFile(m_lines - 1); }

    // Each is final once Next has given false.
    std::uint64_t Lines() const { return m_text.LineInFile(m_lines); }
    std::uint64_t Bytes() const { return m_text.BytesRead(); }
    bool HasEofPair() const { return m_hasEofPair; }
    bool HasFailed() const { return m_hasFailed; } // the source could not be read to its end
    bool IsBrokenBinary() const { return m_text.IsBroken(); }
    bool HasSpacedLines() const { return m_text.IsSpaced(); }    // an empty one after each, left out
    const Tally& SkippedLines() const { return m_skippedLines; } // no codes
    const Tally& CutLines() const { return m_cutLines; }         // longer than kLongestLine
    const Tally& NulLines() const { return m_nulLines; }         // of which a NUL ends the text

private:
    static constexpr std::int32_t kComment = 999;

    bool NextOrComment()
    {
        std::string_view line;
        if (m_hasEnded || !m_stream.TryLine(line)) [[unlikely]]
            return NextSlowly();
        ++m_lines;
        if (!ParseUsualCode(line, m_code)) [[unlikely]]
            return NextAfter(line);
        return ReadValue();
    }

    bool ReadValue()
    {
        TakeValueLine();
        if (m_code == 0 || m_stream.HasTrouble() || m_stream.LineHadNul() || m_stream.IsExhausted())
            [[unlikely]]
            return LookAtPair();
        return true;
    }

    void TakeValueLine()
    {
        m_value = m_stream.getline();
        ++m_lines;
    }

    bool NextSlowly();
    bool NextAfter(std::string_view line);
    bool TakeCode(std::string_view line);
    bool LookAtPair();
    bool TakeCodeLine(CDxfLine& line);
    void NoteTrouble();
    void SkipLine(std::string_view line);
    bool End();

    TextSource m_text;
    CDxfStream m_stream;
    CDxfLine m_value = m_stream.EmptyLine();
    std::int32_t m_code = 0;
    std::uint64_t m_lines = 0;
    Tally m_skippedLines;
    Tally m_blankLines; // counted as skipped once another pair follows
    Tally m_cutLines;
    Tally m_nulLines;
    bool m_hasEnded = false;
    bool m_hasEofPair = false;
    bool m_hasFailed = false;
};

} // namespace prepare
