// Short ways to read and draw a drawing of a test.
#pragma once

#include "convert/CDxfReadToQuillmar.h"
#include "support/Dxf.h"
#include "support/RecordingHost.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// A plain reader that keeps what was reported, one text a message: "code kind message" in UTF-8.
class ReportingReader : public CDxfRead {
public:
    int OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra) override;

    // Reads a whole drawing and calls the callbacks.
    void ReadText(std::string_view dxf);

    std::vector<std::string> errors;
};

// Draws a drawing in the thread's recording host (reset before) and returns the trace.
std::string TraceOf(std::string_view dxf);

// As TraceOf, by a converter whose fields configure has changed.
std::string TraceOf(std::string_view dxf, const std::function<void(CDxfReadToQuillmar&)>& configure);

// A trace without the calls of some operation, to look at the others.
std::string Without(std::string_view operation, std::string_view trace);
