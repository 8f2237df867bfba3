// Symbols that are a line of writing.
#pragma once

#include "svghost/Node.h"

#include <cstddef>

namespace svghost {

// Whether the symbol has a name for writing and nothing in it but texts, the runs of one line, or one use of
// such a symbol. It has been laid out, and what it uses before it.
bool IsWriting(const Symbol& symbol);

// How wide the symbol's name says that the line is; 0: as wide as the viewer's font makes it.
float WidthOfWriting(const Symbol& writing);

// How much wider than usual the symbol's name says that the blanks between its texts are, in font sizes of
// the first one.
double SpreadOfWriting(const Symbol& writing);

// How long the texts of a line are, in bytes.
std::size_t LengthOfWriting(const Symbol& writing);

// The use within a line of writing that turns another one; null: the texts are in the symbol itself.
inline const Use* InnerUse(const Symbol& writing)
{
    return writing.first->kind == Kind::Use ? static_cast<const Use*>(writing.first) : nullptr;
}

} // namespace svghost
