// How exactly a drawing for any program is written.
#pragma once

#include "prepare/plain/Box.h"

namespace prepare {

// The decimals of its coordinates: as many as a double surely has at the farthest one. Where differences
// vanish, arithmetic leaves digits that mean nothing: they are not written.
int StandardDecimals(const Box& extents);

// What is computed of the whole drawing has fewer decimals than its coordinates: it comes out the same in a
// second preparing.
constexpr int DecimalsOfExtents(int decimals)
{
    return decimals > 5 ? decimals - 5 : 0;
}

} // namespace prepare
