// A whole import into a host that checks every call, in memory that may fail and from sources that may.
//
// Input: a byte of how (1: read sizes vary, 2: reading fails at the end, 4: the host refuses symbols, 8: it
// refuses everything, 16: allocations after the failing one fail too, 32: the failing one is eight times as
// far), a byte for the most bytes a read gives (0: no limit), a byte for the number of the allocation that
// fails (0: none), the drawing.
#include "CheckingHost.h"
#include "FuzzInput.h"
#include "FuzzSource.h"
#include "KeptBuffer.h"
#include "input/CDxfMemory.h"

#include "convert/CDxfReadToQuillmar.h"
#include "support/FailingMemory.h"

namespace {

// Draws as dxfFileOpen does, which has no other source than a file. Nothing may be thrown.
void Draw(CDxfSource& source)
{
    CDxfReadToQuillmar converter(CheckingHost::Context());
    converter.ReadDxfSource(source);
}

void DrawInFailingMemory(CDxfSource& source, std::size_t n, FailingMemory::Which which)
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
                "a shortage of memory is reported, and nothing else is");
    if (which == FailingMemory::Which::Nth)
        FuzzRequire(reports <= 1, "one failure is reported once");
    CheckingHost::RequireDone();
}

// Whether the digits of the text at its front go on for so long, or as an exponent, that it may be a large
// number.
bool IsLarge(std::string_view text)
{
    constexpr std::size_t kMostWholeDigits = 6;
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    const std::string_view rest = text.substr(digits);
    return digits > kMostWholeDigits || (digits > 0 && (rest.starts_with('e') || rest.starts_with('E')));
}

// Whether all numbers of the drawing are below a million, with six decimals at most, and none is given by a
// word.
bool HasSmallNumbers(std::string_view drawing)
{
    for (std::size_t i = 0; i < drawing.size(); ++i) {
        const std::string_view rest = drawing.substr(i);
        for (const std::string_view word : {"inf", "INF", "nan", "NAN", "Inf", "NaN", ".e", ".E"})
            if (rest.starts_with(word))
                return false;
        if (IsLarge(rest))
            return false;
    }
    return true;
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
    const FuzzReads reads{most, (how & 1) != 0, (how & 2) != 0};
    const CheckingHost::Answers answers{(how & 4) != 0, (how & 8) != 0, HasSmallNumbers(drawing)};
    const auto which = (how & 16) != 0 ? FailingMemory::Which::NthAndLater : FailingMemory::Which::Nth;

    CheckingHost::Reset(answers);
    FuzzSource source(drawing, reads);
    DrawInFailingMemory(source, n, which);
    FuzzRequire(CheckingHost::Reports(DXF_ERROR_READ) <= (reads.failsAtEnd ? 1u : 0u),
                "a failed read is reported once");
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
