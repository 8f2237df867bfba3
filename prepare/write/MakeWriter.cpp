#include "prepare/write/DrawingWriter.h"
#include "prepare/write/ModuleWriter.h"

namespace prepare {

std::unique_ptr<DrawingWriter> MakeWriter(const Drawing& drawing, const WriteSettings& settings,
                                          Report& report)
{
    return std::make_unique<ModuleWriter>(drawing, settings, report);
}

} // namespace prepare
