// A drawing read plainly: nothing of the reader's is used but the conversion of the code page.
#pragma once

#include <string>
#include <string_view>

// Everything that the bytes of a drawing give, as one text: the callbacks and messages in their order, the
// number of lines, every record with all its fields. It is written as ReadingText writes what the reader has
// read.
std::string ReadPlainly(std::string_view bytes);
