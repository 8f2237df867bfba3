#include "support/Import.h"

#include "input/CDxfMemory.h"

int ReportingReader::OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra)
{
    std::string text = std::to_string(code) + " " + std::to_string(kind) + " " + ToTraceText(message);
    if (extra != 0)
        text += " extra " + std::to_string(extra);
    errors.push_back(std::move(text));
    return 0;
}

void ReportingReader::ReadText(std::string_view dxf)
{
    CDxfMemory memory(dxf);
    ReadDxfSource(memory);
}

std::string TraceOf(std::string_view dxf)
{
    return TraceOf(dxf, [](CDxfReadToQuillmar&) {});
}

std::string TraceOf(std::string_view dxf, const std::function<void(CDxfReadToQuillmar&)>& configure)
{
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    CDxfReadToQuillmar converter(RecordingHost::Context());
    configure(converter);
    CDxfMemory memory(dxf);
    converter.ReadDxfSource(memory);
    return host.Trace();
}

std::string Without(std::string_view operation, std::string_view trace)
{
    std::string rest;
    while (!trace.empty()) {
        const std::string_view line = trace.substr(0, trace.find('\n') + 1);
        if (line.substr(0, operation.size()) != operation)
            rest += line;
        trace.remove_prefix(line.size());
    }
    return rest;
}
