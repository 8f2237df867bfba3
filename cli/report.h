// What the command says about a drawing, for people or for programs.
#ifndef PLEXORN_CLI_REPORT_H
#define PLEXORN_CLI_REPORT_H

#include "exitcodes.h"
#include "printer.h"
#include "svghost/SvgHost.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace plexorn {

// The line that a message of the reader names at its end ("Line:12", "Line (12)" or "(12)"), as its digits;
// empty when it names none.
std::string_view LineOfMessage(std::string_view message);

// How reports look.
struct ReportStyle {
    bool isJson = false;
    bool isQuiet = false;
    bool isColoured = false;
    size_t maxMessages = 0;
};

// What became of a drawing that was drawn.
struct Outcome {
    std::string output;
    SvgHostStatistics statistics{};
    std::chrono::milliseconds time{};
    double width = 0; // in millimetres; 0: the size is in pixels
    double height = 0;
    std::string_view unit;           // that the size was taken from
    std::string reason;              // of the size
    std::uint64_t unmarkedEntry = 0; // DrawingInfo::unmarkedEntry
    bool isEnded = true;             // DrawingInfo::isEnded
    std::uint64_t otherTexts = 0;    // pieces of text that are drawn with U+FFFD, as they are not UTF-8
    // The entities that are not drawn and that no message tells of.
    std::map<std::string, std::uint64_t> skipped;
};

// One drawing's report. Nothing is kept of its messages but their number.
class CReport {
public:
    CReport(CPrinter& printer, size_t number, const std::string& file, const ReportStyle& style);
    // Brings everything to the printer and ends the drawing's turn.
    ~CReport();
    CReport(const CReport&) = delete;
    CReport& operator=(const CReport&) = delete;

    void Message(const SvgHostError& error);
    // Why file (the drawing, or the picture) failed, as the end of a sentence.
    void Failed(std::string_view file, std::string_view reason, ExitCode code);
    void Drawn(const Outcome& outcome);

    size_t MessageCount() const { return m_nMessages; }
    // Whether a drawing was drawn of which a part may be missing in the file.
    bool IsCutOff() const { return m_bCutOff; }
    // ExitDrawn while nothing failed.
    ExitCode Code() const { return m_code; }

private:
    void AddMessage(const SvgHostError& error);
    void AddHeldBack();
    void AddColoured(std::string_view sequence, std::string_view text);
    void Pass();

    CPrinter& m_printer;
    size_t m_nNumber;
    std::string m_strFile;
    ReportStyle m_style;
    std::string m_strOut;
    size_t m_nMessages = 0;
    bool m_bCutOff = false;
    ExitCode m_code = ExitDrawn;
};

// The closing lines: of a drawing (behind its name), and of several.
std::string OutcomeText(const Outcome& outcome, size_t messages);
std::string TotalText(size_t drawn, size_t failed, size_t messages, std::chrono::milliseconds time);

// The same for programs, as one object without its line end.
std::string OutcomeJson(const std::string& file, const Outcome& outcome, size_t messages);
std::string TotalJson(size_t drawn, size_t failed, size_t messages, std::chrono::milliseconds time);

} // namespace plexorn

#endif
