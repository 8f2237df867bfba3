// What the command says about a drawing, for people or for programs.
#pragma once

#include "cli/options/ExitCode.h"
#include "cli/report/ClosingLine.h"
#include "cli/report/MessageGroups.h"
#include "cli/report/Printer.h"
#include "cli/report/ReportStyle.h"
#include "svghost/SvgHost.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace plexorn {

// The line about a drawing, or another file, of which something is to be said: why, as the end of a sentence,
// and the exit code that follows from it.
std::string ReasonLine(const ReportStyle& style, std::string_view type, std::string_view file,
                       std::string_view reason, ExitCode code);

// One drawing's report. It keeps a bounded part of the drawing's messages.
class Report {
public:
    Report(Printer& printer, std::size_t number, const std::string& file, const ReportStyle& style);
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    void Message(const SvgHostError& error);
    // Reports a finding: how often it occurs, and the first line where it does (0: unknown).
    void Finding(std::string_view text, std::uint64_t line, std::uint64_t count);
    // Whether messages are printed one by one, rather than one line for all that say the same.
    bool ListsMessages() const { return m_style.isJson || m_style.isVerbose; }
    // Why file (the drawing, or the picture) failed, as the end of a sentence.
    void Failed(std::string_view file, std::string_view reason, ExitCode code);
    // Drops the messages that are not printed yet, and what short memory left of a line.
    void DropMessages()
    {
        m_groups = MessageGroups(m_style.maxMessages);
        m_out.resize(m_out.rfind('\n') + 1);
    }
    void Drawn(const Outcome& outcome);
    void Prepared(const PreparedOutcome& outcome);
    // Why a drawing that will be drawn is not as it should be, as the end of a sentence; it is printed in any
    // case.
    void Doubtful(std::string_view reason, ExitCode code);
    // The drawing is left alone, and why, as the end of a sentence.
    void Skipped(std::string_view picture, std::string_view reason);

    std::size_t MessageCount() const { return m_messages; }
    // Whether a drawing was drawn of which not all is shown as the drawing states it.
    bool IsChanged() const { return m_isChanged; }
    // The greatest code that Doubtful had, ExitCode::Drawn without any.
    ExitCode Doubt() const;
    bool IsSkipped() const { return m_isSkipped; }
    // ExitCode::Drawn while nothing failed.
    ExitCode Code() const { return m_code; }

    // Passes everything to the printer and ends the drawing's turn. Nothing can be said after that.
    void End() noexcept;

private:
    bool IsHeldBack() const { return ListsMessages() && m_listed >= m_style.maxMessages; }
    void AddMessage(const SvgHostError& error, const std::string& text);
    void AddFinding(std::string_view text, std::uint64_t line, std::uint64_t count);
    void AddLine(std::string_view line, std::string_view text, std::uint64_t count);
    // Notes that one line covers that many messages.
    void EndListed(std::size_t messages);
    void AddPlace(std::string_view line);
    void AddGroups();
    void AddHeldBack();
    void Pass();
    template <class AnyOutcome>
    void Close(const AnyOutcome& outcome, bool isWhole);

    Printer& m_printer;
    std::size_t m_number;
    std::string m_file;
    ReportStyle m_style;
    std::string m_out;
    std::size_t m_messages = 0;
    std::size_t m_listed = 0; // lines that list messages one by one
    std::size_t m_told = 0;   // messages in these lines
    MessageGroups m_groups;
    bool m_isChanged = false;
    std::vector<std::pair<std::string, ExitCode>> m_doubts;
    bool m_isSkipped = false;
    ExitCode m_code = ExitCode::Drawn;
};

} // namespace plexorn
