// The frames of IMAGE, underlays, OLEFRAME and OLE2FRAME.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

void DrawImage(const Image& image, Pen& pen);
void DrawUnderlay(const Image& underlay, Pen& pen);
void DrawOleFrame(const OleFrame& frame, Pen& pen);

} // namespace prepare
