// Which document a thread's reports belong to.
#pragma once

#include "svghost/ErrorLog.h"

#include <memory>

namespace svghost {

// Makes log the receiver of what is reported on this thread, for as long as it lives.
void ReceiveReports(const std::shared_ptr<ErrorLog>& log);

// Adds a report to this thread's log. Without one, or when memory is short, it is lost.
void ReportToThread(int code, int kind, const wchar_t* message);

} // namespace svghost
