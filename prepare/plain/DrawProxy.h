// ACAD_PROXY_ENTITY.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// By the picture that it carries.
void DrawProxy(const Proxy& proxy, Pen& pen);

} // namespace prepare
