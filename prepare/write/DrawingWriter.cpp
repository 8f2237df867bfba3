#include "prepare/write/DrawingWriter.h"

#include "prepare/write/ModuleWriter.h"
#include "prepare/write/StandardWriter.h"

namespace prepare {

std::unique_ptr<DrawingWriter> MakeWriter(const Drawing& drawing, const WriteSettings& settings,
                                          Report& report)
{
    if (settings.profile == Profile::Standard)
        return std::make_unique<StandardWriter>(drawing, settings, report);
    return std::make_unique<ModuleWriter>(drawing, settings, report);
}

} // namespace prepare
