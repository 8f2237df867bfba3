// Preparing as a whole: reads a drawing, makes it plain and writes it.
#pragma once

#include "input/CDxfSource.h"
#include "prepare/Options.h"
#include "prepare/report/Report.h"
#include "prepare/write/DrawingWriter.h"

#include <cstdint>
#include <functional>

namespace prepare {

// An input that can be read from its front any number of times.
class ReopenableSource {
public:
    virtual ~ReopenableSource() = default;

    // The input from its front; a source that was returned before is not read any more. If the input cannot
    // be opened again, reading fails.
    virtual CDxfSource& Rewound() = 0;
    // In bytes; 0 when it is not known.
    virtual std::uint64_t Size() const { return 0; }
    // Whether what there is of an input that cannot be read to its end is prepared.
    virtual bool IsTakenInPart() const { return false; }
};

enum class PrepareOutcome : std::uint8_t {
    Done,
    NoDrawing,   // the input is not a DXF drawing, unless options take nothing for one
    ReadFailed,  // the input could not be read to its end
    WriteFailed, // the write function gave false
    Cancelled,   // the progress function gave false
    BadOptions,  // an unknown encoding
    NoLayout,    // the drawing has no layout of that name
};

// Gets the share that is done, from 0 to 1; false cancels.
using ProgressFunction = std::function<bool(double share)>;

// Prepares a drawing. Nothing is written before the whole input has been read. progress may be empty. Throws
// std::bad_alloc, and what the functions throw.
PrepareOutcome PrepareDrawing(ReopenableSource& source, const Options& options, const ByteFunction& write,
                              Report& report, const ProgressFunction& progress);

} // namespace prepare
