// What the system's error numbers say.
#pragma once

#include <string>

namespace plexorn {

// Why something failed, by errno, as the end of a sentence.
std::string ReasonOf(int error);

} // namespace plexorn
