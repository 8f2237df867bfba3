#include "prepare/write/ModuleEncoding.h"

namespace prepare {

bool EncodeForModule(std::string&)
{
    return true;
}

} // namespace prepare
