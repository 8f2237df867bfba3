// A prepared drawing, which the module reads completely.
#pragma once

#include "cli/files/Source.h"
#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"
#include "cli/report/Report.h"
#include "cli/system/Native.h"
#include "prepare/PrepareDrawing.h"

#include <filesystem>
#include <optional>
#include <string>

namespace plexorn {

// Prepares a drawing for the module, into a file that no other process finds.
class PreparedDrawing {
public:
    // With --keep-going, what cannot be read ends the drawing. What preparing finds is listed in report, if
    // that lists messages one by one. Throws std::bad_alloc.
    PreparedDrawing(Source& source, const Options& options, Report& report);

    // Why there is no prepared drawing, as the end of a sentence, and the exit code for that; empty when
    // there is one.
    const std::string& Reason() const { return m_reason; }
    ExitCode Code() const { return m_code; }
    // Why the prepared drawing lacks a part of the drawing, as the end of a sentence; empty when it does not.
    const std::string& Hole() const { return m_hole; }
    // The prepared drawing.
    const std::filesystem::path& Path() const { return m_path; }
    // What preparing found in the drawing.
    const prepare::Report& Findings() const { return m_findings; }

private:
    std::string ReasonFor(prepare::PrepareOutcome outcome) const;

    prepare::Report m_findings;
    std::optional<PrivateFile> m_file;
    std::filesystem::path m_path;
    std::string m_reason;
    ExitCode m_code = ExitCode::File;
    std::string m_hole;
};

} // namespace plexorn
