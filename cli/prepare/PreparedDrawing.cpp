#include "cli/prepare/PreparedDrawing.h"

#include "cli/prepare/Findings.h"
#include "cli/prepare/Layouts.h"
#include "cli/prepare/PrepareOptionsFor.h"
#include "cli/prepare/RewoundFile.h"
#include "cli/system/InterruptGuard.h"

#include <cerrno>
#include <cstdint>
#include <exception>

namespace plexorn {

namespace {

constexpr std::uint64_t kLarge = 16'000'000; // of a file; smaller ones need little memory

} // namespace

PreparedDrawing::PreparedDrawing(Source& source, const Options& options, Report& report)
{
    ListFindings(m_findings, report);
    RewoundFile input(source, options.keepsGoing);
    prepare::PrepareOutcome outcome = prepare::PrepareOutcome::Done;
    std::exception_ptr thrown; // the file is there, and must not stay
    m_file.emplace([&](const ByteFunction& out) {
        try {
            outcome = prepare::PrepareDrawing(
                input, PrepareOptionsFor(options),
                [&](std::string_view bytes) { return out(bytes.data(), bytes.size()); }, m_findings,
                [](double) { return !InterruptGuard::IsInterrupted(); });
        } catch (...) {
            thrown = std::current_exception();
        }
        return outcome == prepare::PrepareOutcome::WriteFailed ? errno : 0;
    });
    if (thrown)
        std::rethrow_exception(thrown);
    // What comes next has storage of its own, in which it cannot use what preparing needed.
    if (input.Size() >= kLarge)
        ReturnFreedMemory();
    m_path = m_file->Path();
    if (input.Error() != 0)
        m_hole = input.WhyFailed();
    m_reason = outcome == prepare::PrepareOutcome::NoLayout ? WhyNoLayout(options.layout, m_findings)
                                                            : ReasonFor(outcome);
    m_code = outcome == prepare::PrepareOutcome::NoLayout ? ExitCode::Usage : ExitCode::File;
    if (m_reason.empty() && !m_file->Error().empty())
        m_reason = "cannot be prepared: " + m_file->Error();
}

std::string PreparedDrawing::ReasonFor(prepare::PrepareOutcome outcome) const
{
    if (outcome == prepare::PrepareOutcome::Cancelled)
        return "is not drawn: stopped";
    return outcome == prepare::PrepareOutcome::ReadFailed ? m_hole : "";
}

} // namespace plexorn
