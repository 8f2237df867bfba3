#include "messages.h"

#include "utf8.h"

#include <cstdio>

namespace plexorn {

namespace {

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

void PrintMessages(const SvgHostDocument* document, std::string_view file)
{
    std::string name = Printable(file);
    std::string out;
    SvgHostError error = {};
    for (size_t i = 0; svgHostGetError(document, i, &error); ++i) {
        AppendMessage(out, name, error);
        if (out.size() >= FlushSize)
            Print(out);
    }
    Print(out);
}

void PrintError(std::string_view file, std::string_view text)
{
    std::string out = Printable(file).append(": ").append(text).append("\n");
    Print(out);
}

std::string Summary(const SvgHostStatistics& statistics, size_t messages, std::chrono::milliseconds time,
                    std::string_view output)
{
    std::string out = Count(statistics.elements, "element", "elements");
    out.append(" drawn to ").append(Printable(output));
    out.append(", ").append(Count(messages, "message", "messages"));
    out.append(", ").append(std::to_string(time.count())).append(" ms");
    AppendFinding(out, statistics.duplicateSymbols, "block defined again (the first one counts)",
                  "blocks defined again (the first ones count)");
    AppendFinding(out, statistics.missingSymbols, "insert of a missing block", "inserts of missing blocks");
    AppendFinding(out, statistics.cyclicUses, "insert left out (its block inserts itself)",
                  "inserts left out (their blocks insert themselves)");
    AppendFinding(out, statistics.unboundedUses, "insert left out (the drawing would unfold without end)",
                  "inserts left out (the drawing would unfold without end)");
    return out;
}

} // namespace plexorn
