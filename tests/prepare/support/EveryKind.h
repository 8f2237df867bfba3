// A drawing that has everything in it that preparing knows.
#pragma once

#include <string>

namespace prepare {

// Small: each kind of table entry and of entity once, at the top and in blocks.
std::string EveryKind();

} // namespace prepare
