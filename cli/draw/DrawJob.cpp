#include "cli/draw/DrawJob.h"

#include "base/CodePage.h"
#include "cli/contents/Collector.h"
#include "cli/contents/Fate.h"
#include "cli/contents/Units.h"
#include "cli/draw/Look.h"
#include "cli/draw/WriteOptions.h"
#include "cli/files/OutputFile.h"
#include "cli/files/Source.h"
#include "cli/system/InterruptGuard.h"
#include "cli/system/Native.h"

#include "entry/dxfFileOpen.h"
#include "host/ReportKinds.h"
#include "svghost/SvgHost.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>
#include <new>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;
using Document = std::unique_ptr<SvgHostDocument, decltype(&svgHostDestroy)>;

// Hands the reports of an import on.
struct Listener {
    Report& report;
    bool isUnread = false;
    bool isShortOfMemory = false;

    // It is called from within the host, which no exception may cross.
    static void Receive(void* user, const SvgHostError* error) noexcept
    {
        auto* self = static_cast<Listener*>(user);
        try {
            self->isUnread = self->isUnread || error->kind == DXF_ERROR_OPEN;
            self->report.Message(*error);
        } catch (...) {
            self->isShortOfMemory = true;
        }
    }
};

bool IsSameFile(const fs::path& a, const fs::path& b)
{
    std::error_code ignored;
    return fs::equivalent(a, b, ignored);
}

bool WriteToFile(void* user, const char* bytes, std::size_t size)
{
    return static_cast<OutputFile*>(user)->Write(bytes, size);
}

// Writes the picture; the result is empty, or why it cannot be written.
std::string WritePicture(SvgHostDocument* document, const Job& job, const SvgHostWriteOptions& options)
{
    const fs::path path = PathFromArgument(job.output);
    std::error_code error;
    if (job.makesFolders && path.has_parent_path())
        fs::create_directories(path.parent_path(), error);
    if (error)
        return error.message();
    OutputFile file(path);
    const bool isWritten = file.Error().empty() && svgHostWrite(document, &options, WriteToFile, &file);
    if (isWritten && file.Commit())
        return "";
    return file.Error().empty() ? std::generic_category().message(ENOMEM) : file.Error();
}

// How many elements a drawing may have. One that a program wrote has thirty bytes and more for each of them;
// what makes more out of fewer bytes is made to fill memory.
std::size_t MostElements(const fs::path& drawing)
{
    constexpr std::uintmax_t kAnyhow = 100'000, kBytesForEach = 8;
    std::error_code error;
    const std::uintmax_t size = fs::file_size(drawing, error);
    const std::uintmax_t most = kAnyhow + (error ? 0 : size / kBytesForEach);
    return static_cast<std::size_t>(std::min<std::uintmax_t>(most, std::numeric_limits<std::size_t>::max()));
}

// Why the module could not open a file that the command could. The module gives no reason, but whoever tries
// again meets the same one; otherwise is the text for any other.
std::string WhyNotOpened(const fs::path& path, const char* otherwise)
{
    const FilePointer again(OpenForReading(path), std::fclose);
    return again ? otherwise : std::generic_category().message(errno);
}

// Reads the drawing into document; false, with the report told, when it could not be read.
bool Import(Source& source, SvgHostDocument* document, Report& report)
{
    const ModulePath modulePath(source.Path());
    if (modulePath.Name().empty()) {
        report.Failed(source.ShownName(),
                      "cannot be read: " +
                          WhyNotOpened(source.Path(), "this system cannot open a file of that name"),
                      ExitCode::File);
        return false;
    }
    Listener listener{report};
    svgHostOnError(document, Listener::Receive, &listener);
    dxfFileOpen(modulePath.Name().c_str(), svgHostBeginImport(document));
    svgHostOnError(document, nullptr, nullptr);
    if (listener.isShortOfMemory)
        throw std::bad_alloc();
    if (listener.isUnread)
        report.Failed(source.ShownName(),
                      "cannot be read: " + WhyNotOpened(source.Path(), "the reader could not open it"),
                      ExitCode::File);
    return !listener.isUnread;
}

// Counts the entities that disappear without a message.
std::map<std::string, std::uint64_t> SkippedEntities(const DrawingInfo& info)
{
    auto isSilent = [](Fate fate) { return fate == Fate::Skipped || fate == Fate::PassedOver; };
    std::map<std::string, std::uint64_t> skipped;
    for (const TypeInfo& type : info.types) {
        const std::uint64_t count = (isSilent(FateInDrawing(type.name)) ? type.inDrawing : 0) +
                                    (isSilent(FateInBlock(type.name)) ? type.inBlocks : 0);
        if (count > 0)
            skipped[type.name] = count;
    }
    return skipped;
}

// The size of the picture that was written, in millimetres unless it is in pixels, and how much of the
// picture the drawing fills.
void TellPicture(SvgHostDocument* document, const SvgHostWriteOptions& options, const Sizing& sizing,
                 Outcome& outcome)
{
    outcome.reason = sizing.reason;
    SvgHostPicture picture = {};
    if (!svgHostGetPicture(document, &options, &picture))
        throw std::bad_alloc();
    outcome.filled = picture.filled;
    outcome.isCropped = picture.isCropped;
    if (!sizing.unit)
        return;
    if (picture.viewBox.isMadeUp) {
        outcome.reason = "there is nothing to measure";
        return;
    }
    if (picture.scale == 0) {
        outcome.reason = "the size in millimetres is more or less than viewers can hold";
        return;
    }
    outcome.unit = sizing.unit->name;
    outcome.width = picture.width;
    outcome.height = picture.height;
    outcome.scale = picture.scale;
}

void Draw(Source& source, const Job& job, const Options& options, Report& report)
{
    const Clock::time_point start = Clock::now();
    Outcome outcome;
    outcome.output = job.output;
    Sizing sizing;
    if (options.isQuiet && !options.isStrict) {
        sizing = SizingFor(ReadHeader(source.Rewound()), options.units);
    } else {
        const DrawingInfo info = CollectInfo(source.Rewound(), false);
        outcome.skipped = SkippedEntities(info);
        outcome.unmarkedEntry = info.unmarkedEntry;
        outcome.isEnded = info.isEnded;
        outcome.otherTexts = IsCodePageUtf8() ? info.otherTexts : 0;
        sizing = SizingFor(info.header, options.units);
    }
    const Document document(svgHostCreate(), svgHostDestroy);
    if (!document)
        throw std::bad_alloc();
    svgHostLimitElements(document.get(), MostElements(source.Path()));
    if (!Import(source, document.get(), report))
        return;
    if (!svgHostGetStatistics(document.get(), &outcome.statistics))
        throw std::bad_alloc();
    const Look look = LookFor(options);
    const SvgHostWriteOptions written = WriteOptionsFor(options, look, sizing);
    const std::string reason = WritePicture(document.get(), job, written);
    // An interruption ends the process as soon as nothing is written any more; there is nothing to say.
    if (!reason.empty() && InterruptGuard::IsInterrupted())
        return;
    if (!reason.empty())
        return report.Failed(job.output, "cannot be written: " + reason, ExitCode::File);
    if (!options.isQuiet)
        TellPicture(document.get(), written, sizing, outcome);
    outcome.time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    report.Drawn(outcome);
}

} // namespace

void DrawJob(const Job& job, const Options& options, Report& report)
{
    if (!job.reason.empty())
        return report.Failed(ShownName(job.input), job.reason, job.code);
    Source source(job.input);
    if (!source.Reason().empty())
        return report.Failed(source.ShownName(), source.Reason(), source.Code());
    if (job.output != kStandardStream && IsSameFile(source.Path(), PathFromArgument(job.output)))
        return report.Failed(job.output, "is the drawing itself; give another name with -o", ExitCode::Usage);
    Draw(source, job, options, report);
}

} // namespace plexorn
