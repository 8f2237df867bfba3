// The lines of a drawing, its group codes and the messages about them, read plainly.
#pragma once

#include "support/ModelTexts.h"
#include "support/StreamModel.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

// The line for a callback or a message.
std::string CallbackLine(std::string_view callback, std::string_view text);

// Characters of the file as texts of traces show them.
std::string TextOf(std::string_view narrow);

std::string_view Trimmed(std::string_view text);

// Reads lines and counts them; messages and callbacks become lines of Calls().
class PlainLines {
public:
    explicit PlainLines(std::string_view bytes) : m_lines(bytes) {}

    bool IsAtEnd() const { return m_lines.eof(); }
    std::string Line();
    std::string TrimmedLine() { return std::string(Trimmed(Line())); }

    // A group code; false after the message when the line holds none.
    bool Code(std::int32_t& code, std::string_view message);

    // Reads lines up to one that is the word; every line is compared. False when the file ends first.
    bool SkipTo(std::string_view word);
    // Reads pairs up to a code 0, the message is for lines that hold no code.
    bool SkipPairs(std::string_view message);
    bool SkipUnknown() { return SkipPairs("Read_UNKNOWN() Failed to read integer from '%s', Line:%d"); }

    // In a message "%s" becomes the next of the texts, "%d" the number of lines read.
    void Report(int kind, std::string_view format, std::initializer_list<std::string> texts, int code = 0);
    void Call(std::string_view callback, std::string_view text) { m_calls += CallbackLine(callback, text); }

    long long LineCount() const { return m_lineCount; }
    const std::string& Calls() const { return m_calls; }

private:
    StreamModel m_lines;
    long long m_lineCount = 0;
    std::string m_calls;
};
