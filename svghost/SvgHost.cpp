#include "svghost/SvgHost.h"

#include "svghost/Document.h"
#include "svghost/Import.h"
#include "svghost/SvgWriter.h"

#include <new>

namespace svghost {
namespace {

thread_local std::weak_ptr<ErrorLog> receiver;

} // namespace

void receiveReports(const std::shared_ptr<ErrorLog>& log)
{
    receiver = log;
}

void reportToThread(int code, int kind, const wchar_t* message)
{
    try {
        if (const std::shared_ptr<ErrorLog> log = receiver.lock())
            log->add(code, kind, message);
    } catch (...) { // NOLINT(bugprone-empty-catch)
        // The report is lost; the drawing goes on.
    }
}

} // namespace svghost

using namespace svghost;

SvgHostDocument* svgHostCreate(void)
{
    try {
        return new SvgHostDocument;
    } catch (...) {
        return nullptr;
    }
}

void svgHostDestroy(SvgHostDocument* document)
{
    delete document;
}

QlmNode svgHostBeginImport(SvgHostDocument* document)
{
    receiveReports(document ? document->errors : nullptr);
    return document ? static_cast<Node*>(&document->root) : nullptr;
}

size_t svgHostErrorCount(const SvgHostDocument* document)
{
    return document ? document->errors->count() : 0;
}

bool svgHostGetError(const SvgHostDocument* document, size_t index, SvgHostError* error)
{
    if (!document || !error || index >= document->errors->count())
        return false;
    try {
        *error = document->errors->at(index);
        return true;
    } catch (...) {
        return false;
    }
}

void svgHostOnError(SvgHostDocument* document, SvgHostErrorFunction function, void* user)
{
    if (document)
        document->errors->setListener(function, user);
}

void svgHostLimitElements(SvgHostDocument* document, size_t most)
{
    if (document)
        document->mostElements = most;
}

bool svgHostGetStatistics(SvgHostDocument* document, SvgHostStatistics* statistics)
{
    if (!document || !statistics)
        return false;
    try {
        *statistics = document->layout().statistics;
        statistics->elementsBeyondLimit = document->elementsBeyondLimit;
        return !document->shortOfMemory;
    } catch (...) {
        return false;
    }
}

bool svgHostGetViewBox(SvgHostDocument* document, SvgHostViewBox* viewBox)
{
    if (!document || !viewBox)
        return false;
    try {
        const ViewBox& box = document->layout().viewBox;
        *viewBox = {box.x, box.y, box.width, box.height, box.isMadeUp};
        return !document->shortOfMemory;
    } catch (...) {
        return false;
    }
}

bool svgHostWrite(SvgHostDocument* document, const SvgHostWriteOptions* options, SvgHostWriteFunction write,
                  void* user)
{
    if (!document || !write || document->shortOfMemory)
        return false;
    try {
        return SvgWriter(*document, document->layout(), write, user)
            .run(options ? *options : SvgHostWriteOptions{});
    } catch (...) {
        return false;
    }
}
