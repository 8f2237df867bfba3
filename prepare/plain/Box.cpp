#include "prepare/plain/Box.h"

#include <algorithm>

namespace prepare {

void Box::Add(Point2 p)
{
    min = {std::min(min.x, p.x), std::min(min.y, p.y)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y)};
}

} // namespace prepare
