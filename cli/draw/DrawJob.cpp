#include "cli/draw/DrawJob.h"

#include "base/CodePage.h"
#include "base/Utf8.h"
#include "cli/batch/CheckMinDrawn.h"
#include "cli/batch/IsReady.h"
#include "cli/batch/WriteOutput.h"
#include "cli/contents/Collector.h"
#include "cli/contents/Fate.h"
#include "cli/contents/Header.h"
#include "cli/contents/Units.h"
#include "cli/draw/Look.h"
#include "cli/draw/PictureLimits.h"
#include "cli/draw/WriteOptionsFor.h"
#include "cli/files/OlderPicture.h"
#include "cli/files/Source.h"
#include "cli/prepare/Findings.h"
#include "cli/prepare/PreparedDrawing.h"
#include "cli/prepare/ShouldBeVisible.h"
#include "cli/prepare/WhyBlank.h"
#include "cli/report/LineOfMessage.h"
#include "cli/system/InterruptGuard.h"
#include "cli/system/Native.h"

#include "entry/dxfFileOpen.h"
#include "host/ReportKinds.h"
#include "svghost/SvgHost.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;
using Document = std::unique_ptr<SvgHostDocument, decltype(&svgHostDestroy)>;

// Why a picture has holes, as the end of a sentence.
std::string HoleText(const SvgHostError& error, bool isPrepared)
{
    const bool isUnread = error.kind == DXF_ERROR_READ;
    if (isPrepared)
        return isUnread ? "cannot be read back as it was prepared" : "is not drawn whole: memory is short";
    const std::string text = Utf8FromWide(error.message ? error.message : L"");
    const std::string line(LineOfMessage(text));
    return isUnread ? "cannot be read beyond line " + line
                    : "is not drawn whole: memory is short at line " + line;
}

// Passes the reports of an import on.
struct Listener {
    Report& report;
    bool isPrepared;
    bool isUnread = false;
    bool isAtEnd = false; // a failed read has ended the drawing
    std::string hole{};   // why a part of the drawing was not read
    bool isShortOfMemory = false;

    void Take(const SvgHostError& error)
    {
        isUnread = isUnread || error.kind == DXF_ERROR_OPEN;
        // What the reader misses after a failed read has the same cause.
        if (isAtEnd)
            return;
        isAtEnd = error.kind == DXF_ERROR_READ;
        if (isAtEnd || error.kind == DXF_ERROR_MEMORY)
            hole = HoleText(error, isPrepared);
        else
            Pass(error);
    }

    // A line of a prepared drawing is not a line of the user's file.
    void Pass(const SvgHostError& error) const
    {
        if (!isPrepared)
            return report.Message(error);
        const std::string text = Utf8FromWide(error.message ? error.message : L"");
        const std::wstring told = WideFromUtf8(WithoutLine(text)).value_or(L"");
        report.Message({error.code, error.kind, told.c_str()});
    }

    // It is called from within the host, which no exception may cross.
    static void Receive(void* user, const SvgHostError* error) noexcept
    {
        auto* self = static_cast<Listener*>(user);
        try {
            self->Take(*error);
        } catch (...) {
            self->isShortOfMemory = true;
        }
    }
};

bool WriteToFile(void* user, const char* bytes, std::size_t size)
{
    return static_cast<OutputFile*>(user)->Write(bytes, size);
}

// Why the module could not open a file that the command could. The module gives no reason, but a second try
// meets the same one. If the second try works, the result is the text in otherwise.
std::string WhyNotOpened(const fs::path& path, const char* otherwise)
{
    const FilePointer again(OpenForReading(path), std::fclose);
    return again ? otherwise : std::generic_category().message(errno);
}

// Reads the drawing in the file path, which is source's own or a prepared one, into document; false, after a
// report, when it could not be read. hole says why a part of it could not be read.
bool Import(Source& source, const fs::path& path, SvgHostDocument* document, Report& report,
            std::string& hole)
{
    const ModulePath modulePath(path);
    if (modulePath.Name().empty()) {
        report.Failed(source.ShownName(),
                      "cannot be read: " +
                          WhyNotOpened(source.Path(), "this system cannot open a file of that name"),
                      ExitCode::File);
        return false;
    }
    Listener listener{report, path != source.Path()};
    svgHostOnError(document, Listener::Receive, &listener);
    dxfFileOpen(modulePath.Name().c_str(), svgHostBeginImport(document));
    svgHostOnError(document, nullptr, nullptr);
    if (listener.isShortOfMemory)
        throw std::bad_alloc();
    if (hole.empty())
        hole = listener.hole;
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

// What the drawing holds, or its header alone. When memory is short and it goes on, it has what there was.
DrawingInfo ReadContents(Source& source, bool isAll, bool keepsGoing)
{
    DrawingInfo info;
    try {
        if (isAll)
            return CollectInfo(source.Rewound(), false);
        info.header = ReadHeader(source.Rewound());
    } catch (const std::bad_alloc&) {
        if (!keepsGoing)
            throw;
        info.header.readError = ENOMEM;
    }
    return info;
}

// What preparing read of a header, wherever that is in the file.
Header HeaderOf(const prepare::Contents& contents)
{
    constexpr int kName = 9, kInteger = 70;
    Header header;
    HeaderReader reader(header);
    for (const auto& [name, value] :
         {std::pair("$INSUNITS", &contents.units), std::pair("$MEASUREMENT", &contents.measurement)})
        if (!value->empty()) {
            reader.Take(kName, name);
            reader.Take(kInteger, *value);
        }
    return header;
}

std::string HoleOf(const Source& source, const DrawingInfo& info)
{
    const int error = source.ReadError() != 0 ? source.ReadError() : info.header.readError;
    return error == 0 ? "" : "cannot be read to its end: " + std::generic_category().message(error);
}

// Prepares a drawing unless it is drawn as it is. When memory is short for that and the command keeps going,
// it is drawn as it is, too.
void Prepare(std::optional<PreparedDrawing>& prepared, Source& source, const Options& options, Report& report)
{
    if (options.isAsIs)
        return;
    try {
        prepared.emplace(source, options, report);
    } catch (const std::bad_alloc&) {
        if (!options.keepsGoing || !source.IsAscii())
            throw;
        report.Doubtful("is not prepared: memory is short; it is drawn as with --as-is",
                        ExitCode::Incomplete);
    }
}

void TellContents(const DrawingInfo& info, Outcome& outcome)
{
    outcome.skipped = SkippedEntities(info);
    outcome.unmarkedEntry = info.unmarkedEntry;
    outcome.isEnded = info.isEnded;
    outcome.otherTexts = IsCodePageUtf8() ? info.otherTexts : 0;
    outcome.oddLines = info.oddLines;
    outcome.share = ShareOf(info);
    outcome.isBlank = outcome.statistics.visibleElements == 0 && ShouldBeVisible(info);
}

// What preparing found counts in place of what the module alone would show.
void TellPrepared(const prepare::Report& findings, Outcome& outcome, Report& report)
{
    TellFindings(findings, report);
    outcome.share = ShareOf(findings);
    outcome.isEnded = findings.contents.isEnded;
    outcome.isBlank = outcome.statistics.visibleElements == 0 && ShouldBeVisible(findings);
}

// How many entities are left of those that would be shown if the picture might have any size. Entities are of
// one or more elements; nobody knows which of them were lost.
std::uint64_t ShownWithoutBytes(std::uint64_t shown, const SvgHostStatistics& met)
{
    if (met.drawnElements == 0)
        return shown;
    const double lost = static_cast<double>(met.elementsBeyondBytes) / static_cast<double>(met.drawnElements);
    return static_cast<std::uint64_t>(static_cast<double>(shown) * std::max(0.0, 1 - lost));
}

// Says what is wrong with a picture that was drawn, and corrects the share by it.
void TellDoubts(const DrawingInfo& info, const prepare::Report* findings, Outcome& outcome,
                const Options& options, Report& report)
{
    if (!outcome.hole.empty())
        report.Doubtful(outcome.hole + "; the picture lacks what follows", ExitCode::Incomplete);
    if (outcome.isBlank && !outcome.hole.empty())
        report.Doubtful("nothing of it is visible: what could be drawn shows nothing", ExitCode::Blank);
    else if (outcome.isBlank)
        report.Doubtful(findings ? WhyBlank(*findings)
                                 : WhyBlank(info, outcome.share, outcome.statistics.elements),
                        ExitCode::Blank);
    const SvgHostStatistics& met = outcome.statistics;
    const std::uint64_t leftOut =
        met.undrawableElements + met.cyclicUses + met.unboundedUses + met.elementsBeyondLimit;
    // What was prepared knows of each entity whether there is something of it to see.
    outcome.share.shown -= outcome.isBlank && findings == nullptr
                               ? outcome.share.shown
                               : std::min<std::uint64_t>(outcome.share.shown, leftOut);
    outcome.share.shown = ShownWithoutBytes(outcome.share.shown, met);
    // What was counted of the drawing may be more than what was read to be drawn.
    if (!outcome.hole.empty())
        outcome.share.shown = std::min<std::uint64_t>(outcome.share.shown, met.drawnElements);
    if (findings != nullptr)
        outcome.share.NameRest();
    CheckMinDrawn(outcome.share, options, report);
}

// A sheet of a known size is in millimetres, whatever the model's unit; one of another has no unit.
Sizing SizingOf(const Header& header, const prepare::LayoutSize& sheet, const Options& options)
{
    if (options.layout.empty() || sheet.name.empty() || options.units == "none")
        return SizingFor(header, options.units);
    return sheet.width > 0 ? Sizing{FindUnit("mm"), "by the paper of " + sheet.name}
                           : Sizing{nullptr, "the layout has no paper size"};
}

void Draw(Source& source, const Job& job, const Options& options, Report& report)
{
    const Clock::time_point start = Clock::now();
    Outcome outcome;
    outcome.output = job.output;
    std::optional<PreparedDrawing> prepared;
    Prepare(prepared, source, options, report);
    if (prepared && !prepared->Reason().empty())
        return report.Failed(source.ShownName(), prepared->Reason(), prepared->Code());
    // Preparing finds out what a drawing holds, too.
    const bool asksAboutAll =
        !prepared && (!options.isQuiet || options.isStrict || !options.minDrawn.empty());
    DrawingInfo info;
    if (prepared)
        info.header = HeaderOf(prepared->Findings().contents);
    else
        info = ReadContents(source, asksAboutAll, options.keepsGoing);
    outcome.hole = prepared ? prepared->Hole() : HoleOf(source, info);
    if (!outcome.hole.empty() && !options.keepsGoing)
        return report.Failed(source.ShownName(), outcome.hole, ExitCode::File);
    const Document document(svgHostCreate(), svgHostDestroy);
    if (!document)
        throw std::bad_alloc();
    // Preparing has bounds of its own, and its drawings have far more bytes for each element.
    const fs::path& drawn = prepared ? prepared->Path() : source.Path();
    svgHostLimitElements(document.get(), MostElements(drawn));
    if (prepared)
        svgHostWidenIdeographs(document.get());
    if (!Import(source, drawn, document.get(), report, outcome.hole))
        return;
    if (options.keepsGoing && svgHostAcceptHoles(document.get()) && outcome.hole.empty())
        outcome.hole = "is not drawn whole: memory is short";
    if (!outcome.hole.empty() && !options.keepsGoing) {
        report.DropMessages();
        return report.Failed(source.ShownName(), outcome.hole, ExitCode::File);
    }
    if (!svgHostGetStatistics(document.get(), &outcome.statistics))
        throw std::bad_alloc();
    if (outcome.statistics.visibleElements == 0 && !asksAboutAll && !prepared)
        info = ReadContents(source, true, options.keepsGoing);
    if (prepared)
        TellPrepared(prepared->Findings(), outcome, report);
    else
        TellContents(info, outcome);
    const prepare::LayoutSize sheet = prepared ? prepared->Findings().sheet : prepare::LayoutSize();
    const Sizing sizing = SizingOf(info.header, sheet, options);
    const Look look = LookFor(options);
    SvgHostWriteOptions written = WriteOptionsFor(options, look, sizing, sheet);
    written.mostBytes = MostBytes(source.Path());
    // Only pictures that have the mark themselves can be recognised.
    outcome.hasReplacedOther = written.generator && HoldsOtherFile(job.output);
    const std::string reason = WriteOutput(job, options, [&](OutputFile& file) {
        return svgHostWrite(document.get(), &written, WriteToFile, &file);
    });
    // An interruption ends the process as soon as nothing is written any more; there is nothing to say.
    if (!reason.empty() && InterruptGuard::IsInterrupted())
        return;
    if (!reason.empty())
        return report.Failed(job.output, "cannot be written: " + reason, ExitCode::File);
    if (!svgHostGetStatistics(document.get(), &outcome.statistics))
        throw std::bad_alloc();
    if (!options.isQuiet || options.isStrict)
        TellPicture(document.get(), written, sizing, outcome);
    TellDoubts(info, prepared ? &prepared->Findings() : nullptr, outcome, options, report);
    outcome.time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    report.Drawn(outcome);
}

} // namespace

void DrawJob(const Job& job, const Options& options, Report& report)
{
    if (!job.reason.empty())
        return report.Failed(ShownName(job.input), job.reason, job.code);
    Source source(job.input, options.isAsIs ? Forms::Ascii : Forms::All, options.keepsGoing);
    if (IsReady(source, job, options, report))
        Draw(source, job, options, report);
}

} // namespace plexorn
