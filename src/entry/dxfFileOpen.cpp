#include "entry/dxfFileOpen.h"

#include "base/CodePage.h"
#include "convert/CDxfReadToQuillmar.h"

// Nothing survives a call: the converter and all that it has read live on this stack.
bool dxfFileOpen(const wchar_t* path, QlmNode parent)
{
    try {
        const std::string narrow = ToNarrowPath(path);
        CDxfReadToQuillmar converter(parent);
        converter.ReadDxfFile(narrow.c_str());
    } catch (...) { // memory was short before the reader could say so itself
        qlmSetLastError(0, L"DXF", DXF_ERROR_MEMORY, L"CDxfRead Out of memory, Line:0", false, 0);
    }
    return true;
}
