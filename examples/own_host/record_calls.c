/* Prints the calls that drawing a DXF file makes in its host.
 *
 *     record_calls DRAWING.dxf
 */
#include "RecordingHost.h"

#include "entry/dxfFileOpen.h"

#include <locale.h>
#include <stdlib.h>

int main(int argc, char** argv)
{
    wchar_t path[1024];
    setlocale(LC_CTYPE, "");
    if (argc != 2 || mbstowcs(path, argv[1], 1024) >= 1024)
        return 2;

    QlmNode context = recordingHostCreate(stdout);
    if (!context)
        return 1;
    dxfFileOpen(path, context);
    recordingHostDestroy(context);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : 1;
}
