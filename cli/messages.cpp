#include "messages.h"

#include "utf8.h"

#include <cstdio>
#include <new>

namespace plexorn {

namespace {

// The kind of the report after which nothing was read.
constexpr int KindNotOpened = 1;

// Drawings with a million messages occur; one write for each would take longer than the drawing.
constexpr size_t FlushSize = 1 << 16;

void Print(std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stderr);
    text.clear();
}

std::string_view TrailingDigits(std::string_view text)
{
    size_t last = text.find_last_not_of("0123456789");
    return last == std::string_view::npos ? text : text.substr(last + 1);
}

void AppendMessage(std::string& out, std::string_view file, const SvgHostError& error)
{
    std::string text = Utf8FromWide(error.message ? error.message : L"");
    std::string_view line = LineOfMessage(text);
    out += file;
    if (!line.empty())
        out.append(":").append(line);
    out.append(": ").append(Printable(text)).append("\n");
}

std::string Count(size_t number, std::string_view singular, std::string_view plural)
{
    return std::to_string(number).append(" ").append(number == 1 ? singular : plural);
}

void AppendFinding(std::string& out, size_t number, std::string_view singular, std::string_view plural)
{
    if (number != 0)
        out.append("; ").append(Count(number, singular, plural));
}

} // namespace

std::string_view LineOfMessage(std::string_view message)
{
    bool inParentheses = message.ends_with(')');
    if (inParentheses)
        message.remove_suffix(1);
    std::string_view digits = TrailingDigits(message);
    message.remove_suffix(digits.size());
    return message.ends_with(inParentheses ? " (" : "Line:") ? digits : std::string_view();
}

CMessages::CMessages(SvgHostDocument* document, std::string_view file, bool isQuiet)
    : m_strFile(Printable(file)), m_bQuiet(isQuiet)
{
    svgHostOnError(document, Receive, this);
}

// It is called from within the host, which no exception may cross.
void CMessages::Receive(void* self, const SvgHostError* error) noexcept
{
    auto* messages = static_cast<CMessages*>(self);
    try {
        messages->Add(*error);
    } catch (...) {
        messages->m_bShortOfMemory = true;
    }
}

void CMessages::Add(const SvgHostError& error)
{
    ++m_nCount;
    m_bUnread = m_bUnread || error.kind == KindNotOpened;
    if (m_bQuiet && error.kind != KindNotOpened)
        return;
    AppendMessage(m_strOut, m_strFile, error);
    if (m_strOut.size() >= FlushSize)
        Print(m_strOut);
}

void CMessages::Flush()
{
    Print(m_strOut);
    if (m_bShortOfMemory)
        throw std::bad_alloc();
}

void PrintError(std::string_view file, std::string_view text)
{
    std::string out = Printable(file).append(": ").append(text).append("\n");
    Print(out);
}

std::string Summary(const SvgHostStatistics& statistics, size_t messages, std::chrono::milliseconds time,
                    std::string_view output)
{
    size_t leftOut = statistics.undrawableElements + statistics.cyclicUses + statistics.unboundedUses;
    std::string out = Count(statistics.elements - leftOut, "element", "elements");
    out.append(" drawn to ").append(Printable(output));
    out.append(", ").append(Count(messages, "message", "messages"));
    out.append(", ").append(std::to_string(time.count())).append(" ms");
    AppendFinding(out, statistics.duplicateSymbols, "block defined again (the first one counts)",
                  "blocks defined again (the first ones count)");
    AppendFinding(out, statistics.missingSymbols, "insert of a missing block", "inserts of missing blocks");
    AppendFinding(out, statistics.cyclicUses, "insert left out (its block inserts itself)",
                  "inserts left out (their blocks insert themselves)");
    AppendFinding(out, statistics.unboundedUses, "insert left out (the drawing would unfold too far)",
                  "inserts left out (the drawing would unfold too far)");
    AppendFinding(out, statistics.undrawableElements,
                  "element could not be drawn (a number of its place or size cannot be used)",
                  "elements could not be drawn (numbers of their place or size cannot be used)");
    AppendFinding(out, statistics.longDashPatterns, "element drawn solid (its dash pattern is too long)",
                  "elements drawn solid (their dash patterns are too long)");
    return out;
}

} // namespace plexorn
