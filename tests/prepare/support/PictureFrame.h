// An image to be drawn.
#pragma once

#include "prepare/drawing/Entities.h"

namespace prepare {

// Four by two pixels, each half a unit wide.
inline Image PictureFrame()
{
    Image image;
    image.point = {10, 20, 0};
    image.u = {0.5, 0, 0};
    image.v = {0, 0.5, 0};
    image.size = {4, 2};
    return image;
}

} // namespace prepare
