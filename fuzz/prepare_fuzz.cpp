// Preparing by its C interface: any input becomes a drawing that the module reads without a report, or is
// said to be no drawing, the same however it is read.
//
// Input: a byte of how (1: for any other program, 2: all layers, 4: for paper, 8: dimensions redrawn, 16:
// never in one block, 32: a tolerance of its own), a byte for the most bytes that a read gives (0: no limit),
// a byte for the write that fails (0: none), the drawing.
#include "CheckingHost.h"
#include "FuzzInput.h"
#include "KeptBuffer.h"
#include "input/CDxfMemory.h"

#include "convert/CDxfReadToQuillmar.h"
#include "prepare/Prepare.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

struct Trial {
    std::string_view input;
    std::size_t mostRead = 0;
    std::size_t failingWrite = 0;
    std::string output{};
    std::size_t writes = 0;
    std::size_t entries = 0; // of the report

    static bool Write(void* user, const char* bytes, std::size_t size)
    {
        auto& trial = *static_cast<Trial*>(user);
        FuzzRequire(size != 0, "no part is empty");
        FuzzRequire(trial.failingWrite == 0 || trial.writes < trial.failingWrite, "nothing follows a stop");
        trial.output.append(bytes, size);
        return ++trial.writes != trial.failingWrite;
    }

    static std::ptrdiff_t Read(void* user, std::uint64_t offset, char* bytes, std::size_t size)
    {
        const auto& trial = *static_cast<Trial*>(user);
        FuzzRequire(offset <= trial.input.size(), "reading goes on where it was");
        const std::size_t most = trial.mostRead == 0 ? size : std::min(size, trial.mostRead);
        return static_cast<std::ptrdiff_t>(
            trial.input.substr(static_cast<std::size_t>(offset)).copy(bytes, most));
    }

    static void Report(void* user, const PrepareReport* entry)
    {
        auto& trial = *static_cast<Trial*>(user);
        ++trial.entries;
        FuzzRequire(*entry->subject != '\0' && *entry->detail != '\0', "an entry says what it is about");
        FuzzRequire(entry->count > 0, "an entry counts something");
        FuzzRequire(entry->firstLine <= trial.Lines(), "an entry begins at a line of the input");
    }

    static bool Progress(void*, double share)
    {
        FuzzRequire(share >= 0 && share <= 1, "progress is a share");
        return true;
    }

    // At most: one of a byte each. A binary drawing has lines of its own.
    std::uint64_t Lines() const { return 4 * input.size() + 4; }
};

PrepareOptions OptionsFor(unsigned how, Trial& trial)
{
    PrepareOptions options = {};
    options.profile = (how & 1) != 0 ? PREPARE_FOR_STANDARD : PREPARE_FOR_MODULE;
    options.showAllLayers = (how & 2) != 0;
    options.isForPaper = (how & 4) != 0;
    options.redrawDimensions = (how & 8) != 0;
    options.forbidWrap = (how & 16) != 0;
    options.fill = (how & 64) != 0 ? PREPARE_FILL_OUTLINES : PREPARE_FILLED;
    options.tolerance = (how & 32) != 0 ? 0.5 : 0;
    options.report = Trial::Report;
    options.progress = Trial::Progress;
    options.user = &trial;
    return options;
}

PrepareResult Prepare(unsigned how, Trial& trial)
{
    const PrepareOptions options = OptionsFor(how, trial);
    const PrepareResult result = prepareStream(Trial::Read, &options, Trial::Write);
    FuzzRequire(result == PREPARE_DONE || result == PREPARE_NO_DRAWING || result == PREPARE_WRITE_FAILED,
                "preparing ends as it should");
    FuzzRequire((result == PREPARE_WRITE_FAILED) ==
                    (trial.failingWrite != 0 && trial.writes == trial.failingWrite),
                "a failed write is reported");
    FuzzRequire((result == PREPARE_NO_DRAWING) == trial.output.empty(), "every drawing becomes one");
    return result;
}

void RequireNoReports(std::string_view drawing)
{
    CheckingHost::Reset({});
    CDxfReadToQuillmar converter(CheckingHost::Context());
    CDxfMemory memory(drawing);
    converter.ReadDxfSource(memory);
    CheckingHost::RequireDone();
    for (int kind = DXF_ERROR_OPEN; kind <= DXF_ERROR_MEMORY; ++kind)
        FuzzRequire(CheckingHost::Reports(kind) == 0, "the module has nothing to report");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const bool isBufferKept = (KeepBuffer(), true);
    FuzzInput input(data, size);
    const unsigned how = input.Byte();
    const std::size_t mostRead = input.Byte();
    const std::size_t failingWrite = input.Byte();
    const std::string_view drawing = input.Rest();

    Trial trial{drawing, mostRead, failingWrite};
    if (Prepare(how, trial) != PREPARE_DONE)
        return 0;
    if ((how & 1) == 0) {
        RequireNoReports(trial.output);
    } else {
        Trial again{trial.output};
        FuzzRequire(Prepare(how, again) == PREPARE_DONE, "a prepared drawing is one");
    }
    Trial whole{drawing};
    const PrepareOptions options = OptionsFor(how, whole);
    FuzzRequire(prepareMemory(drawing.data(), drawing.size(), &options, Trial::Write) == PREPARE_DONE,
                "memory is prepared, too");
    FuzzRequireSame("how a drawing is read changes nothing", whole.output, trial.output);
    FuzzRequire(whole.entries == trial.entries, "it changes no report either");
    return 0;
}
