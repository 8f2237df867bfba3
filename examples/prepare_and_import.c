/* Prepares a drawing and draws what came out: the preparing library, the module and the reference host.
 *
 *     prepare_and_import DRAWING.dxf PREPARED.dxf >PICTURE.svg
 *
 * Paths are ASCII here. What was rewritten or left out, and what the module has to say, is printed.
 */
#include "entry/dxfFileOpen.h"
#include "prepare/Prepare.h"
#include "svghost/SvgHost.h"

#include <stdio.h>
#include <stdlib.h>

static const char* const kFindings[] = {"drawn otherwise", "not shown", "changed", "repaired", "cut"};

static bool writeToFile(void* file, const char* bytes, size_t size)
{
    return fwrite(bytes, 1, size, (FILE*)file) == size;
}

static void printReport(void* file, const PrepareReport* report)
{
    (void)file;
    fprintf(stderr, "%s %s: %s (%llu)\n", report->subject, kFindings[report->finding], report->detail,
            (unsigned long long)report->count);
}

static void printError(void* user, const SvgHostError* error)
{
    fprintf((FILE*)user, "%ls\n", error->message);
}

static bool prepareDrawing(const char* path, const char* prepared)
{
    FILE* file = fopen(prepared, "wb");
    if (file == NULL)
        return false;
    const PrepareOptions options = {.profile = PREPARE_FOR_MODULE, .report = printReport, .user = file};
    const PrepareResult result = prepareFile(path, &options, writeToFile);
    if (result != PREPARE_DONE)
        fprintf(stderr, "preparing ended with %d\n", (int)result);
    return fclose(file) == 0 && result == PREPARE_DONE;
}

int main(int argc, char** argv)
{
    wchar_t path[1024];
    if (argc != 3 || mbstowcs(path, argv[2], 1024) >= 1024)
        return 2;
    if (!prepareDrawing(argv[1], argv[2]))
        return 1;

    SvgHostDocument* document = svgHostCreate();
    svgHostOnError(document, printError, stderr);
    dxfFileOpen(path, svgHostBeginImport(document));
    const bool isWritten = svgHostWrite(document, NULL, writeToFile, stdout) && fflush(stdout) == 0;
    svgHostDestroy(document);
    return isWritten ? 0 : 1;
}
