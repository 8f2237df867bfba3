/* The smallest program that draws a DXF file: the module, with the reference host as its host.
 *
 *     minimal_host DRAWING.dxf >PICTURE.svg
 */
#include "entry/dxfFileOpen.h"
#include "svghost/SvgHost.h"

#include <locale.h>
#include <stdio.h>
#include <stdlib.h>

static bool writeToStdout(void* user, const char* bytes, size_t size)
{
    return fwrite(bytes, 1, size, (FILE*)user) == size;
}

static void printError(void* user, const SvgHostError* error)
{
    fprintf((FILE*)user, "%ls\n", error->message);
}

int main(int argc, char** argv)
{
    wchar_t path[1024];
    setlocale(LC_CTYPE, "");
    if (argc != 2 || mbstowcs(path, argv[1], 1024) >= 1024)
        return 2;

    SvgHostDocument* document = svgHostCreate();
    svgHostOnError(document, printError, stderr);
    dxfFileOpen(path, svgHostBeginImport(document));
    const bool isWritten = svgHostWrite(document, NULL, writeToStdout, stdout) && fflush(stdout) == 0;
    svgHostDestroy(document);
    return isWritten ? 0 : 1;
}
