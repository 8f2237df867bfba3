#include "cli/info/Print.h"

#include "cli/system/ReasonOf.h"

#include <cerrno>
#include <cstdio>
#include <stdexcept>

namespace plexorn {

void Print(const std::string& text)
{
    const bool isPrinted =
        std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (!isPrinted)
        throw std::runtime_error("the standard output cannot be written: " + ReasonOf(errno));
}

} // namespace plexorn
