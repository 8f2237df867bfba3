// The line stream against the standard library's, byte for byte and flag for flag.
//
// Input: a byte of how it is read (1: read sizes vary, 2: reading fails at the end, 4 and 128 together: it
// lies across the end of the stream's buffer, which takes time; 64: long runs are spelled short), a byte
// for the most bytes a read gives or the place of the buffer's end, the drawing.
#include "FuzzInput.h"
#include "FuzzSource.h"
#include "KeptBuffer.h"

#include "input/CDxfStream.h"
#include "support/StreamModel.h"

#include <string>

namespace {

constexpr std::size_t kBuffer = std::size_t{128} << 10; // what the stream asks a source for at once
constexpr std::size_t kPaddingLine = 1000;              // with its line feed
constexpr int kReadsAfterTheEnd = 3;

// Whole lines, the last ended, that fill so many bytes.
std::string_view Padding(std::size_t size)
{
    static const std::string lines = [] {
        std::string text;
        while (text.size() < kBuffer + kPaddingLine)
            text += std::string(kPaddingLine - 1, 'x') + '\n';
        return text;
    }();
    return std::string_view(lines).substr(lines.size() - size);
}

void SkipPadding(CDxfStream& stream, std::string_view padding)
{
    while (!padding.empty()) {
        const std::string_view expected = padding.substr(0, padding.find('\n'));
        FuzzRequireSame("a line before the input", expected, stream.getline());
        FuzzRequire(!stream.eof() && !stream.HasTrouble(), "nothing ends before the input");
        padding.remove_prefix(expected.size() + 1);
    }
}

// The bytes around a line that may be read are there.
void TouchAround(std::string_view line)
{
    const volatile char* const bytes = line.data();
    static_cast<void>(bytes[-64]);
    static_cast<void>(bytes[63]);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const bool isBufferKept = (KeepBuffer(), true);
    FuzzInput input(data, size);
    const unsigned how = input.Byte();
    const std::uint8_t number = input.Byte();
    static std::string spelled; // kept for its room
    std::string_view bytes = input.Rest();
    if ((how & 64) != 0) {
        SpellRuns(bytes, spelled);
        bytes = spelled;
    }

    FuzzReads reads{number, (how & 1) != 0, (how & 2) != 0};
    std::string_view padding;
    if ((how & 0x84) == 0x84) {
        padding = Padding(kBuffer - 8 * std::size_t{number} - how / 8 % 8);
        reads.most = 0;
    }
    FuzzSource source(bytes, reads, padding);
    CDxfStream stream(source);
    SkipPadding(stream, padding);

    StreamModel model(bytes);
    const bool fails = reads.failsAtEnd && bytes.find('\x1A') == std::string_view::npos;
    for (int after = 0; after < kReadsAfterTheEnd; after += model.eof()) {
        const std::string_view expected = model.getline();
        const std::string_view line = stream.getline();
        FuzzRequireSame("a line", expected, line);
        TouchAround(line);
        FuzzRequire(stream.eof() == model.eof(), "the end of the file is met with the same line");
        const bool readFailed = fails && model.eof() && after == 0;
        FuzzRequire(stream.HasTrouble() == (model.WasCut() || readFailed), "trouble is reported");
        FuzzRequire(stream.TakeLineWasCut() == model.WasCut(), "a line is cut");
        FuzzRequire(stream.TakeReadFailed() == readFailed, "a failed read is reported once");
        FuzzRequire(!stream.HasTrouble(), "trouble that was taken is gone");
    }
    return 0;
}
