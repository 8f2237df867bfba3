#include "svghost/SvgHost.h"

#include "svghost/Reports.h"
#include "svghost/SvgHostDocument.h"
#include "svghost/SvgWriter.h"

#include <new>

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
    ReceiveReports(document ? document->errors : nullptr);
    return document ? static_cast<Node*>(&document->root) : nullptr;
}

size_t svgHostErrorCount(const SvgHostDocument* document)
{
    return document ? document->errors->Count() : 0;
}

bool svgHostGetError(const SvgHostDocument* document, size_t index, SvgHostError* error)
{
    if (!document || !error || index >= document->errors->Count())
        return false;
    try {
        *error = document->errors->At(index);
        return true;
    } catch (...) {
        return false;
    }
}

void svgHostOnError(SvgHostDocument* document, SvgHostErrorFunction function, void* user)
{
    if (document)
        document->errors->SetListener(function, user);
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
        *statistics = document->LaidOut().statistics;
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
        const ViewBox& box = document->LaidOut().viewBox;
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
        return SvgWriter(*document, document->LaidOut(), write, user)
            .Run(options ? *options : SvgHostWriteOptions{});
    } catch (...) {
        return false;
    }
}
