// Everything that is read of a drawing, sections, tables, blocks, entities and dimensions, against a slow and
// plain reading of the same bytes.
//
// Input: a byte of how it is read (1: read sizes vary), a byte for the most bytes a read gives (0: no limit),
// the drawing.
#include "FuzzInput.h"
#include "FuzzSource.h"
#include "KeptBuffer.h"
#include "PlainReading.h"

#include "support/ReadingText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const bool isBufferKept = (KeepBuffer(), true);
    FuzzInput input(data, size);
    const bool varies = (input.Byte() & 1) != 0;
    const std::uint8_t most = input.Byte();
    const std::string_view drawing = input.Rest();
    FuzzSource source(drawing, {most, varies, false});
    CallbackReader reader;
    reader.ReadDxfSource(source);
    FuzzRequireSame("what a drawing holds", ReadPlainly(drawing), ReadingText(reader));
    return 0;
}
