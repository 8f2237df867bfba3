#include "report.h"

#include "json.h"
#include "utf8.h"

namespace plexorn {

namespace {

// Drawings with a million messages occur; one write for each would take longer than the drawing.
constexpr size_t PassSize = 1 << 16;

constexpr std::string_view Bold = "\x1b[1m";
constexpr std::string_view Red = "\x1b[31m";
constexpr std::string_view Plain = "\x1b[0m";

std::string_view TrailingDigits(std::string_view text)
{
    size_t last = text.find_last_not_of("0123456789");
    return last == std::string_view::npos ? text : text.substr(last + 1);
}

std::string MessageJson(const std::string& file, const std::string& text, const SvgHostError& error)
{
    std::string_view line = LineOfMessage(text);
    CJson json;
    json.Open('{').Member("type", "message").Member("file", file).Name("line");
    if (line.empty())
        json.Null();
    else
        json.Digits(line);
    json.Member("kind", error.kind).Member("code", error.code).Member("text", text);
    return json.Close('}').Result() + "\n";
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

CReport::CReport(CPrinter& printer, size_t number, const std::string& file, const ReportStyle& style)
    : m_printer(printer), m_nNumber(number), m_strFile(file), m_style(style)
{
}

CReport::~CReport()
{
    m_printer.Print(m_nNumber, m_strOut);
    m_printer.End(m_nNumber, m_code != ExitDrawn);
}

void CReport::Message(const SvgHostError& error)
{
    if (m_nMessages++ >= m_style.maxMessages || m_style.isQuiet)
        return;
    AddMessage(error);
    if (m_strOut.size() >= PassSize)
        Pass();
}

void CReport::AddMessage(const SvgHostError& error)
{
    std::string text = Utf8FromWide(error.message ? error.message : L"");
    if (m_style.isJson) {
        m_strOut += MessageJson(m_strFile, text, error);
        return;
    }
    std::string place = Printable(m_strFile);
    if (std::string_view line = LineOfMessage(text); !line.empty())
        place.append(":").append(line);
    AddColoured(Bold, place.append(":"));
    m_strOut.append(" ").append(Printable(text)).append("\n");
}

void CReport::AddColoured(std::string_view sequence, std::string_view text)
{
    m_strOut.append(m_style.isColoured ? sequence : "").append(text).append(m_style.isColoured ? Plain : "");
}

void CReport::AddHeldBack()
{
    if (m_style.isQuiet || m_nMessages <= m_style.maxMessages)
        return;
    size_t more = m_nMessages - m_style.maxMessages;
    if (m_style.isJson) {
        CJson json;
        json.Open('{').Member("type", "more").Member("file", m_strFile).Member("messages", more).Close('}');
        m_strOut.append(json.Result()).append("\n");
    } else {
        m_strOut.append(Printable(m_strFile))
            .append(": … and ")
            .append(std::to_string(more))
            .append(" more\n");
    }
}

void CReport::Failed(std::string_view file, std::string_view reason, ExitCode code)
{
    m_code = code;
    AddHeldBack();
    if (m_style.isJson) {
        CJson json;
        json.Open('{').Member("type", "failed").Member("file", file).Member("exit", static_cast<int>(code));
        m_strOut.append(json.Member("text", reason).Close('}').Result()).append("\n");
    } else {
        m_strOut.append(Printable(file)).append(": ");
        AddColoured(Red, reason);
        m_strOut.append("\n");
    }
}

void CReport::Drawn(const Outcome& outcome)
{
    m_bCutOff = !outcome.isEnded;
    AddHeldBack();
    if (m_style.isQuiet)
        return;
    if (m_style.isJson)
        m_strOut.append(OutcomeJson(m_strFile, outcome, m_nMessages));
    else
        m_strOut.append(Printable(m_strFile)).append(": ").append(OutcomeText(outcome, m_nMessages));
    m_strOut.append("\n");
}

void CReport::Pass()
{
    m_printer.Print(m_nNumber, m_strOut);
    m_strOut.clear();
}

} // namespace plexorn
