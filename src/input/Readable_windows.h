// Which files may be read as drawings.
#pragma once

#include "base/Api_windows.h"

// Files and pipes: a console or a serial port may have no end.
inline bool IsReadable(HANDLE file)
{
    const DWORD type = GetFileType(file);
    return type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE;
}
