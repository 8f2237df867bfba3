// The pairs of a drawing's file, one after the other.
#pragma once

#include "cli/contents/FileSource.h"
#include "input/CDxfStream.h"
#include "prepare/pairs/TextSource.h"

#include <cstdint>
#include <cstdio>
#include <string_view>

namespace plexorn {

// Joins a drawing's lines, as the module cuts them, into pairs of a group code and a value. A line that is no
// code where one belongs is left out, which brings a file with one line too many back into step. A form that
// the module does not read is made a text first.
class PairReader {
public:
    // Reads file from its start; the caller closes it. Throws std::bad_alloc.
    explicit PairReader(std::FILE* file);

    // Moves on to the next pair. False at the end, or when the file cannot be read on (std::ferror says so);
    // a code without a value is no pair.
    bool Next();

    std::int32_t Code() const { return m_code; }
    // Without white space at its ends; good until the next call of Next.
    std::string_view Value() const { return m_value; }
    // The line of the value. The first line is 1.
    std::uint64_t Line() const { return m_line; }

    // How many lines were left out, and the first of them.
    std::uint64_t OddLines() const { return m_oddLines; }
    std::uint64_t FirstOddLine() const { return m_firstOddLine; }

    // errno of a reading that failed, 0 when none did.
    int ReadError() const { return m_source.Error(); }

private:
    bool NextLine(std::string_view& line);

    FileSource m_source;
    prepare::TextSource m_text;
    CDxfStream m_stream;
    std::uint64_t m_line = 0;
    std::int32_t m_code = 0;
    std::string_view m_value;
    std::uint64_t m_oddLines = 0;
    std::uint64_t m_firstOddLine = 0;
};

} // namespace plexorn
