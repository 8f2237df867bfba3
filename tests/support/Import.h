// Short ways to read and draw a drawing that stands in a test.
#pragma once

#include "convert/CDxfReadToQuillmar.h"
#include "support/RecordingHost.h"

#include <functional>
#include <initializer_list>
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

// Lines, each ended by a line feed.
std::string Lines(std::initializer_list<std::string_view> lines);

// The lines of an ENTITIES section that holds these lines, from SECTION to EOF.
std::string EntitiesSection(std::initializer_list<std::string_view> lines);

// The lines of a section, from SECTION to ENDSEC; body is lines too.
std::string Section(std::string_view name, std::string_view body);

// Draws a drawing in the thread's recording host (reset before) and returns the trace.
std::string TraceOf(std::string_view dxf);

// As TraceOf, by a converter whose fields configure has changed.
std::string TraceOf(std::string_view dxf, const std::function<void(CDxfReadToQuillmar&)>& configure);

// A trace without the calls of some operation, to look at the others.
std::string Without(std::string_view operation, std::string_view trace);
