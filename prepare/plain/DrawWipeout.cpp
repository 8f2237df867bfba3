#include "prepare/plain/DrawWipeout.h"

#include "prepare/plain/ImageOutline.h"

namespace prepare {

void DrawWipeout(const Image& wipeout, Pen& pen)
{
    pen.Mask(CornersOf(wipeout, pen));
}

} // namespace prepare
