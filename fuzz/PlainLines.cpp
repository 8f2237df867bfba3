#include "PlainLines.h"

#include "base/CodePage.h"
#include "support/NumbersModel.h"
#include "support/RecordingHost.h"

std::string CallbackLine(std::string_view callback, std::string_view text)
{
    return std::string(callback).append(" ").append(text).append("\n");
}

std::string TextOf(std::string_view narrow)
{
    std::wstring wide(narrow.size(), L'\0');
    wide.resize(ToWide(narrow, wide.data()));
    return ToTraceText(wide);
}

std::string_view Trimmed(std::string_view text)
{
    const char* const blanks = " \t\n\v\f\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string PlainLines::Line()
{
    const std::string line(m_lines.getline());
    ++m_lineCount;
    if (m_lines.WasCut())
        Report(10, "CDxfRead Line longer than 1023 characters cut, Line:%d", {});
    return line;
}

bool PlainLines::Code(std::int32_t& code, std::string_view message)
{
    const std::string line = Line();
    code = -1;
    if (ModelCode(line, code))
        return true;
    Report(3, message, {TextOf(Trimmed(line))});
    return false;
}

bool PlainLines::SkipTo(std::string_view word)
{
    while (!IsAtEnd())
        if (TrimmedLine() == word)
            return true;
    return false;
}

bool PlainLines::SkipPairs(std::string_view message)
{
    while (!IsAtEnd()) {
        std::int32_t code;
        if (!Code(code, message))
            return false;
        if (code == 0)
            return true;
        Line();
    }
    return false;
}

void PlainLines::Report(int kind, std::string_view format, std::initializer_list<std::string> texts, int code)
{
    std::string message;
    auto next = texts.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%')
            message += format[i];
        else
            message += format[++i] == 's' ? *next++ : std::to_string(m_lineCount);
    }
    Call("OnError", std::to_string(code) + " " + std::to_string(kind) + " " + message);
}
