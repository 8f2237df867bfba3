// All that was read of a drawing as one text, to compare readings as a whole.
#pragma once

#include "support/Callbacks.h"

#include <string>

// The callbacks and messages in their order, a line each; "lines=" and how many were read; then every table
// with its entries, every block and every entity with all their fields, in file order.
std::string ReadingText(const CallbackReader& reader);
