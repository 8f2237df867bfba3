#include "svghost/SvgHost.h"

#include "svghost/Picture.h"
#include "svghost/ReportReceiver.h"
#include "svghost/SvgHostDocument.h"
#include "svghost/SvgWriter.h"

#include <new>
#include <utility>

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

void svgHostWidenIdeographs(SvgHostDocument* document)
{
    if (document)
        document->widensIdeographs = true;
}

bool svgHostAcceptHoles(SvgHostDocument* document)
{
    return document && std::exchange(document->isShortOfMemory, false);
}

namespace {

SvgHostViewBox Exported(const ViewBox& box)
{
    return {box.x, box.y, box.width, box.height, box.isMadeUp};
}

} // namespace

bool svgHostGetStatistics(SvgHostDocument* document, SvgHostStatistics* statistics)
{
    if (!document || !statistics)
        return false;
    try {
        *statistics = document->LaidOut().statistics;
        statistics->elementsBeyondLimit = document->elementsBeyondLimit;
        statistics->elementsBeyondBytes = document->elementsBeyondBytes;
        return !document->isShortOfMemory;
    } catch (...) {
        return false;
    }
}

bool svgHostGetViewBox(SvgHostDocument* document, SvgHostViewBox* viewBox)
{
    if (!document || !viewBox)
        return false;
    try {
        *viewBox = Exported(document->LaidOut().viewBox);
        return !document->isShortOfMemory;
    } catch (...) {
        return false;
    }
}

bool svgHostGetPicture(SvgHostDocument* document, const SvgHostWriteOptions* options, SvgHostPicture* picture)
{
    if (!document || !picture)
        return false;
    try {
        const Picture made =
            PictureOf(*document, document->LaidOut(), options ? *options : SvgHostWriteOptions{}, true);
        *picture = {Exported(made.viewBox), made.width, made.height, made.scale, made.filled, made.isCropped};
        return !document->isShortOfMemory;
    } catch (...) {
        return false;
    }
}

bool svgHostWrite(SvgHostDocument* document, const SvgHostWriteOptions* options, SvgHostWriteFunction write,
                  void* user)
{
    if (!document || !write || document->isShortOfMemory)
        return false;
    try {
        const SvgHostWriteOptions chosen = options ? *options : SvgHostWriteOptions{};
        const PictureLayout& layout = document->LaidOut();
        const Picture picture = PictureOf(*document, layout, chosen, false);
        SvgWriter writer(*document, layout, picture, write, user);
        const bool isWhole = writer.Run(chosen);
        document->elementsBeyondBytes = writer.ElementsBeyondBytes();
        return isWhole;
    } catch (...) {
        return false;
    }
}
