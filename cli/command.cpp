#include "command.h"

#include "exitcodes.h"
#include "messages.h"
#include "native.h"
#include "options.h"
#include "output.h"
#include "sniffing.h"

#include "entry/dxfFileOpen.h"
#include "svghost/SvgHost.h"

#include <cerrno>
#include <exception>
#include <memory>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

using Document = std::unique_ptr<SvgHostDocument, decltype(&svgHostDestroy)>;

int Refuse(const std::string& file, const std::string& reason, ExitCode code)
{
    PrintError(file, reason);
    return code;
}

std::string Reason(int error)
{
    return std::generic_category().message(error);
}

// Reads the first bytes of a regular file into head; the result is empty, or why it cannot be read. Nothing
// but a regular file is opened: a pipe could keep its reader waiting.
std::string ReadHead(const fs::path& path, std::string& head)
{
    std::error_code error;
    fs::file_status status = fs::status(path, error);
    if (!fs::exists(status))
        return error ? error.message() : Reason(ENOENT);
    if (fs::is_directory(status))
        return Reason(EISDIR);
    if (!fs::is_regular_file(status))
        return "not a regular file";
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(OpenForReading(path), std::fclose);
    if (!file)
        return Reason(errno);
    head.resize(SniffedSize);
    head.resize(std::fread(head.data(), 1, head.size(), file.get()));
    return std::ferror(file.get()) ? Reason(errno) : "";
}

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
std::string WritePicture(SvgHostDocument* document, const Options& options)
{
    COutputFile file(PathFromArgument(options.output));
    SvgHostWriteOptions writeOptions = {};
    writeOptions.background = options.background ? options.background->c_str() : nullptr;
    bool isWritten = file.Error().empty() && svgHostWrite(document, &writeOptions, WriteToFile, &file);
    if (isWritten && file.Commit())
        return "";
    return file.Error().empty() ? Reason(ENOMEM) : file.Error();
}

int Draw(const Options& options, const fs::path& input)
{
    using Clock = std::chrono::steady_clock;
    Clock::time_point start = Clock::now();
    CModulePath modulePath(input);
    if (modulePath.Name().empty())
        return Refuse(options.input, "cannot be read: this system cannot open a file of that name", ExitFile);
    Document document(svgHostCreate(), svgHostDestroy);
    if (!document)
        throw std::bad_alloc();
    CMessages messages(document.get(), options.input, options.quiet);
    dxfFileOpen(modulePath.Name().c_str(), svgHostBeginImport(document.get()));
    messages.Flush();
    if (messages.IsUnread())
        return ExitFile;
    SvgHostStatistics statistics = {};
    if (!svgHostGetStatistics(document.get(), &statistics))
        throw std::bad_alloc();
    if (std::string reason = WritePicture(document.get(), options); !reason.empty())
        return Refuse(options.output, "cannot be written: " + reason, ExitFile);
    if (!options.quiet) {
        auto time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
        PrintError(options.input, Summary(statistics, messages.Count(), time, options.output));
    }
    return ExitDrawn;
}

int Run(const Options& options)
{
    fs::path input = PathFromArgument(options.input);
    std::string head;
    if (std::string reason = ReadHead(input, head); !reason.empty())
        return Refuse(options.input, "cannot be read: " + reason, ExitFile);
    if (std::string reason = WhyNotAsciiDxf(head); !reason.empty())
        return Refuse(options.input, reason, ExitNotAsciiDxf);
    if (IsSameFile(input, PathFromArgument(options.output)))
        return Refuse(options.output, "is the drawing itself; give another name with -o", ExitUsage);
    return Draw(options, input);
}

} // namespace

int RunCommand(std::vector<std::string> arguments) noexcept
{
    try {
        std::variant<Options, int> parsed = ParseOptions(std::move(arguments));
        if (const int* exitCode = std::get_if<int>(&parsed))
            return *exitCode;
        return Run(std::get<Options>(parsed));
    } catch (const std::bad_alloc&) {
        PrintError("plexorn", "memory is short");
    } catch (const std::exception& error) {
        PrintError("plexorn", error.what());
    }
    return ExitFile;
}

} // namespace plexorn
