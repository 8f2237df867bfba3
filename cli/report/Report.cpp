#include "cli/report/Report.h"

#include "base/Joined.h"
#include "base/Utf8.h"
#include "cli/report/Counted.h"
#include "cli/report/Json.h"
#include "cli/report/LineOfMessage.h"
#include "cli/report/Printable.h"
#include "cli/report/Shortened.h"

#include <algorithm>

namespace plexorn {

namespace {

// Drawings with a million messages occur; one write for each would take longer than the drawing.
constexpr std::size_t kPassSize = 1 << 16;

constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kRed = "\x1b[31m";
constexpr std::string_view kPlain = "\x1b[0m";

std::string MessageJson(const std::string& file, const std::string& text, const SvgHostError& error)
{
    const std::string_view line = LineOfMessage(text);
    Json json;
    json.Open('{').Member("type", "message").Member("file", file).Name("line");
    if (line.empty())
        json.Null();
    else
        json.Digits(line);
    json.Member("kind", error.kind).Member("code", error.code).Member("text", Shortened(text));
    return json.Close('}').Result() + "\n";
}

// Of a line's number; empty for none.
std::string DigitsOf(std::uint64_t line)
{
    return line == 0 ? std::string() : std::to_string(line);
}

std::string SkippedJson(const std::string& file, std::string_view picture, std::string_view reason)
{
    Json json;
    json.Open('{').Member("type", "skipped").Member("file", file).Member("picture", picture);
    return json.Member("text", reason).Close('}').Result();
}

std::string Coloured(const ReportStyle& style, std::string_view sequence, std::string_view text)
{
    return style.isColoured ? Joined({sequence, text, kPlain}) : std::string(text);
}

} // namespace

std::string ReasonLine(const ReportStyle& style, std::string_view type, std::string_view file,
                       std::string_view reason, ExitCode code)
{
    if (!style.isJson)
        return Joined({Printable(file), ": ", Coloured(style, kRed, reason), "\n"});
    Json json;
    json.Open('{').Member("type", type).Member("file", file).Member("exit", static_cast<int>(code));
    return json.Member("text", reason).Close('}').Result() + "\n";
}

Report::Report(Printer& printer, std::size_t number, const std::string& file, const ReportStyle& style)
    : m_printer(printer), m_number(number), m_file(file), m_style(style), m_groups(style.maxMessages)
{
}

void Report::Message(const SvgHostError& error)
{
    ++m_messages;
    if (m_style.isQuiet || IsHeldBack())
        return;
    const std::string text = Utf8FromWide(error.message ? error.message : L"");
    if (!ListsMessages())
        return m_groups.Add(error.kind, text);
    AddMessage(error, text);
    EndListed(1);
}

void Report::Finding(std::string_view text, std::uint64_t line, std::uint64_t count)
{
    m_messages += static_cast<std::size_t>(count);
    if (m_style.isQuiet || IsHeldBack())
        return;
    if (!ListsMessages())
        return m_groups.AddGroup({DigitsOf(line), std::string(text), static_cast<std::size_t>(count)});
    AddFinding(Shortened(text), line, count);
    EndListed(static_cast<std::size_t>(count));
}

void Report::EndListed(std::size_t messages)
{
    ++m_listed;
    m_told += messages;
    if (m_out.size() >= kPassSize)
        Pass();
}

void Report::AddFinding(std::string_view text, std::uint64_t line, std::uint64_t count)
{
    if (!m_style.isJson)
        return AddLine(DigitsOf(line), text, count);
    Json json;
    json.Open('{').Member("type", "finding").Member("file", m_file).Name("line");
    if (line == 0)
        json.Null();
    else
        json.Digits(DigitsOf(line));
    m_out.append(json.Member("count", count).Member("text", text).Close('}').Result()).append("\n");
}

void Report::AddMessage(const SvgHostError& error, const std::string& text)
{
    if (m_style.isJson) {
        m_out += MessageJson(m_file, text, error);
        return;
    }
    AddLine(LineOfMessage(text), WithoutLine(text), 1);
}

void Report::AddLine(std::string_view line, std::string_view text, std::uint64_t count)
{
    AddPlace(line);
    m_out.append(Printable(text));
    if (count > 1)
        m_out.append(" (").append(std::to_string(count)).append(" times)");
    m_out.append("\n");
}

// The drawing's name and, where there is one, the line in it.
void Report::AddPlace(std::string_view line)
{
    std::string place = Printable(m_file);
    if (!line.empty())
        place.append(":").append(line);
    m_out.append(Coloured(m_style, kBold, place.append(":"))).append(" ");
}

void Report::AddGroups()
{
    for (const MessageGroup& group : m_groups.Groups())
        AddLine(group.line, group.text, group.count);
    if (m_groups.Further() == 0)
        return;
    const std::size_t kinds = m_groups.FurtherKinds();
    m_out.append(Printable(m_file)).append(": … and ");
    m_out.append(Counted(m_groups.Further(), "more message of ", "more messages of "));
    m_out.append(Counted(kinds, "kind", "kinds"));
    m_out.append(kinds == MessageGroups::kMostCountedKinds ? " or more\n" : "\n");
}

// What a drawing's messages still have to say when there are no more of them.
void Report::AddHeldBack()
{
    if (!ListsMessages())
        return AddGroups();
    if (m_style.isQuiet || m_messages == m_told)
        return;
    const std::size_t more = m_messages - m_told;
    if (m_style.isJson) {
        Json json;
        json.Open('{').Member("type", "more").Member("file", m_file).Member("messages", more).Close('}');
        m_out.append(json.Result()).append("\n");
    } else {
        m_out.append(Printable(m_file)).append(": … and ").append(std::to_string(more)).append(" more\n");
    }
}

void Report::Failed(std::string_view file, std::string_view reason, ExitCode code)
{
    m_code = code;
    AddHeldBack();
    m_out += ReasonLine(m_style, "failed", file, reason, code);
}

void Report::Doubtful(std::string_view reason, ExitCode code)
{
    m_doubts.emplace_back(reason, code);
}

void Report::Drawn(const Outcome& outcome)
{
    Close(outcome, IsShownAsStated(outcome));
}

void Report::Prepared(const PreparedOutcome& outcome)
{
    Close(outcome, outcome.share.IsWhole());
}

template <class AnyOutcome>
void Report::Close(const AnyOutcome& outcome, bool isWhole)
{
    m_isChanged = !isWhole;
    AddHeldBack();
    for (const auto& [reason, code] : m_doubts)
        m_out += ReasonLine(m_style, "doubtful", m_file, reason, code);
    const bool isRefused = m_style.isStrict && (m_messages > 0 || m_isChanged);
    const bool isByUntold = isRefused && isWhole && m_style.isQuiet;
    if (m_style.isQuiet && !isRefused)
        return;
    if (m_style.isJson)
        m_out.append(OutcomeJson(m_file, outcome, m_messages));
    else
        m_out.append(Printable(m_file))
            .append(": ")
            .append(OutcomeText(outcome, m_messages))
            .append(isByUntold ? "; --strict accepts no message (they are printed without --quiet)" : "");
    m_out.append("\n");
}

ExitCode Report::Doubt() const
{
    ExitCode code = ExitCode::Drawn;
    for (const auto& doubt : m_doubts)
        code = std::max(code, doubt.second);
    return code;
}

void Report::Skipped(std::string_view picture, std::string_view reason)
{
    m_isSkipped = true;
    if (m_style.isQuiet)
        return;
    if (m_style.isJson)
        m_out.append(SkippedJson(m_file, picture, reason)).append("\n");
    else
        m_out.append(Printable(m_file))
            .append(": skipped, ")
            .append(Printable(picture))
            .append(" ")
            .append(reason)
            .append("\n");
}

void Report::End() noexcept
{
    m_printer.Print(m_number, m_out);
    m_printer.End(m_number, m_code != ExitCode::Drawn);
}

void Report::Pass()
{
    m_printer.Print(m_number, m_out);
    m_out.clear();
}

} // namespace plexorn
