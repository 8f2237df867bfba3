// A strict XML reader, where the platform has one.
#pragma once

#include <string>

// Ends the program when a text is no well-formed XML.
void RequireWellFormed(const std::string& xml);
