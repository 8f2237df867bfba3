// A whole import into a host that checks every call, in memory that may fail and from sources that may.
//
// Input: a byte of how (1: read sizes vary, 2: reading fails at the end, 4: the host refuses symbols, 8: it
// refuses everything, 16: allocations behind the failing one fail too, 32: the failing one is eight times as
// far), a byte for the most bytes a read gives (0: no limit), a byte for the number of the allocation that
// fails (0: none), the drawing.
#include "CheckingHost.h"
#include "FuzzInput.h"
#include "FuzzSource.h"
#include "KeptBuffer.h"

#include "convert/CDxfReadToQuillmar.h"
#include "support/FailingMemory.h"

namespace {

// Draws as dxfFileOpen does, which has no other source than a file. Nothing may be thrown.
void Draw(CDxfSource& source)
{
    CDxfReadToQuillmar converter(CheckingHost::Context());
    converter.ReadDxfSource(source);
}

void DrawInFailingMemory(CDxfSource& source, std::size_t n, FailingMemory::WHICH which)
{
    bool hasFailed;
    std::size_t live;
    {
        FailingMemory memory(n, which);
        Draw(source);
        hasFailed = memory.HasFailed();
        live = memory.Live();
    }
    const std::size_t reports = CheckingHost::Reports(DXF_ERROR_MEMORY);
    FuzzRequire(live == 0, "nothing is leaked");
    FuzzRequire(hasFailed ? reports >= 1 : reports == 0,
                "a shortage of memory is told of, and nothing else is");
    if (which == FailingMemory::WHICH::Nth)
        FuzzRequire(reports <= 1, "one failure is told of once");
    CheckingHost::RequireDone();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const bool isBufferKept = (KeepBuffer(), true);
    FuzzInput input(data, size);
    const unsigned how = input.Byte();
    const std::uint8_t most = input.Byte();
    const std::size_t n = std::size_t{input.Byte()} * ((how & 32) != 0 ? 8 : 1);
    const std::string_view drawing = input.Rest();
    const FUZZ_READS reads{most, (how & 1) != 0, (how & 2) != 0};
    const CheckingHost::ANSWERS answers{(how & 4) != 0, (how & 8) != 0};
    const auto which = (how & 16) != 0 ? FailingMemory::WHICH::NthAndLater : FailingMemory::WHICH::Nth;

    CheckingHost::Reset(answers);
    FuzzSource source(drawing, reads);
    DrawInFailingMemory(source, n, which);
    FuzzRequire(CheckingHost::Reports(DXF_ERROR_READ) <= (reads.failsAtEnd ? 1u : 0u),
                "a failed read is told of once");
    FuzzRequire(CheckingHost::Reports(DXF_ERROR_OPEN) == 0, "a source is open");

    const std::uint64_t calls = CheckingHost::Calls();
    if (n != 0 || most == 0 || reads.failsAtEnd)
        return 0;
    CheckingHost::Reset(answers);
    CDxfMemory memory(drawing);
    DrawInFailingMemory(memory, 0, which);
    FuzzRequire(CheckingHost::Calls() == calls, "short reads change nothing");
    return 0;
}
