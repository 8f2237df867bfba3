#include "cli/system/ReasonOf.h"

#include <cerrno>
#include <system_error>

namespace plexorn {

std::string ReasonOf(int error)
{
    // Only the standard streams can fail so: the command opens everything else itself.
    return error == EBADF ? "it is closed, or not open for this" : std::generic_category().message(error);
}

} // namespace plexorn
