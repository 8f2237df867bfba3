#include "entry/dxfFileOpen.h"

#include "convert/CDxfReadToQuillmar.h"
#include "reader/CodePage.h"

// Nothing survives a call: the converter and all that it has read live on this stack.
bool dxfFileOpen(const wchar_t* path, QlmNode parent)
{
    CDxfReadToQuillmar converter(parent);
    converter.ReportingMemory([&] {
        const std::string narrow = ToNarrowPath(path);
        converter.ReadDxfFile(narrow.c_str());
    });
    return true;
}
