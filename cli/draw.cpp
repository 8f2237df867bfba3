#include "draw.h"

#include "info/codepage.h"
#include "info/drawing.h"
#include "info/kinds.h"
#include "look.h"
#include "native.h"
#include "output.h"
#include "source.h"
#include "units.h"

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
    CReport& report;
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

bool WriteToFile(void* user, const char* bytes, size_t size)
{
    return static_cast<COutputFile*>(user)->Write(bytes, size);
}

// Writes the picture; the result is empty, or why it cannot be written.
std::string WritePicture(SvgHostDocument* document, const Job& job, const Look& look, double unit)
{
    fs::path path = PathFromArgument(job.output);
    std::error_code error;
    if (job.makesFolders && path.has_parent_path())
        fs::create_directories(path.parent_path(), error);
    if (error)
        return error.message();
    COutputFile file(path);
    SvgHostWriteOptions options = {};
    options.background = look.background ? look.background->c_str() : nullptr;
    options.style = look.style.empty() ? nullptr : look.style.c_str();
    options.unit = unit;
    bool isWritten = file.Error().empty() && svgHostWrite(document, &options, WriteToFile, &file);
    if (isWritten && file.Commit())
        return "";
    return file.Error().empty() ? std::generic_category().message(ENOMEM) : file.Error();
}

// How many elements a drawing may have. One that a program wrote has thirty bytes and more for each of them;
// what makes more out of fewer bytes is made to fill memory.
size_t MostElements(const fs::path& drawing)
{
    constexpr std::uintmax_t Anyhow = 100'000, BytesForEach = 8;
    std::error_code error;
    std::uintmax_t size = fs::file_size(drawing, error);
    std::uintmax_t most = Anyhow + (error ? 0 : size / BytesForEach);
    return static_cast<size_t>(std::min<std::uintmax_t>(most, std::numeric_limits<size_t>::max()));
}

// Why the module could not open a file that the command could. The module tells no reason, but whoever tries
// again meets the same one; otherwise stands for any other.
std::string WhyNotOpened(const fs::path& path, const char* otherwise)
{
    FilePointer again(OpenForReading(path), std::fclose);
    return again ? otherwise : std::generic_category().message(errno);
}

// Reads the drawing into document; false, with the report told, when it could not be read.
bool Import(CSource& source, SvgHostDocument* document, CReport& report)
{
    CModulePath modulePath(source.Path());
    if (modulePath.Name().empty()) {
        report.Failed(source.ShownName(),
                      "cannot be read: " +
                          WhyNotOpened(source.Path(), "this system cannot open a file of that name"),
                      ExitFile);
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
                      ExitFile);
    return !listener.isUnread;
}

// Counts the entities that disappear without a message.
std::map<std::string, std::uint64_t> SkippedEntities(const DrawingInfo& info)
{
    auto isSilent = [](Fate fate) { return fate == Fate::Skipped || fate == Fate::PassedOver; };
    std::map<std::string, std::uint64_t> skipped;
    for (const TypeInfo& type : info.types) {
        std::uint64_t count = (isSilent(FateInDrawing(type.name)) ? type.inDrawing : 0) +
                              (isSilent(FateInBlock(type.name)) ? type.inBlocks : 0);
        if (count > 0)
            skipped[type.name] = count;
    }
    return skipped;
}

// The size of the picture that was written, in millimetres; nothing when it is in pixels.
void TellSize(SvgHostDocument* document, const Sizing& sizing, Outcome& outcome)
{
    SvgHostViewBox box = {};
    outcome.reason = sizing.reason;
    if (!sizing.unit || !svgHostGetViewBox(document, &box))
        return;
    if (box.isMadeUp) {
        outcome.reason = "there is nothing to measure";
        return;
    }
    outcome.unit = sizing.unit->name;
    outcome.width = box.width * sizing.unit->millimetres;
    outcome.height = box.height * sizing.unit->millimetres;
}

void Draw(CSource& source, const Job& job, const Options& options, CReport& report)
{
    Clock::time_point start = Clock::now();
    Outcome outcome;
    outcome.output = job.output;
    Sizing sizing;
    if (options.isQuiet && !options.isStrict) {
        sizing = SizingFor(ReadHeader(source.Rewound()), options.units);
    } else {
        DrawingInfo info = CollectInfo(source.Rewound(), false);
        outcome.skipped = SkippedEntities(info);
        outcome.unmarkedEntry = info.unmarkedEntry;
        outcome.isEnded = info.isEnded;
        outcome.otherTexts = AreTextsTakenForUtf8() ? info.otherTexts : 0;
        sizing = SizingFor(info.header, options.units);
    }
    Document document(svgHostCreate(), svgHostDestroy);
    if (!document)
        throw std::bad_alloc();
    svgHostLimitElements(document.get(), MostElements(source.Path()));
    if (!Import(source, document.get(), report))
        return;
    if (!svgHostGetStatistics(document.get(), &outcome.statistics))
        throw std::bad_alloc();
    double unit = sizing.unit ? sizing.unit->millimetres : 0;
    std::string reason = WritePicture(document.get(), job, LookFor(options), unit);
    // An interruption ends the process as soon as nothing is written any more; there is nothing to tell.
    if (!reason.empty() && CInterruptGuard::IsInterrupted())
        return;
    if (!reason.empty())
        return report.Failed(job.output, "cannot be written: " + reason, ExitFile);
    TellSize(document.get(), sizing, outcome);
    outcome.time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    report.Drawn(outcome);
}

} // namespace

std::string ShownName(const std::string& input)
{
    return input == StandardStream ? "<stdin>" : input;
}

void DrawJob(const Job& job, const Options& options, CReport& report)
{
    if (!job.reason.empty())
        return report.Failed(ShownName(job.input), job.reason, job.code);
    CSource source(job.input);
    if (!source.Reason().empty())
        return report.Failed(source.ShownName(), source.Reason(), source.Code());
    if (job.output != StandardStream && IsSameFile(source.Path(), PathFromArgument(job.output)))
        return report.Failed(job.output, "is the drawing itself; give another name with -o", ExitUsage);
    Draw(source, job, options, report);
}

} // namespace plexorn
