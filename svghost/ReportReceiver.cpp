#include "svghost/ReportReceiver.h"

namespace svghost {

namespace {

thread_local std::weak_ptr<ErrorLog> receiver;

} // namespace

void ReceiveReports(const std::shared_ptr<ErrorLog>& log)
{
    receiver = log;
}

void ReportToThread(int code, int kind, const wchar_t* message)
{
    try {
        if (const std::shared_ptr<ErrorLog> log = receiver.lock())
            log->Add(code, kind, message);
    } catch (...) { // NOLINT(bugprone-empty-catch)
        // The report is lost; the drawing goes on.
    }
}

} // namespace svghost
