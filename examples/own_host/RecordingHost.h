/* A host that draws nothing: it prints every call of the module as one line of UTF-8.
 *
 * A program makes a context, gives it to dxfFileOpen as parent, and reads what was called. Nodes are shown by
 * the number in which they were made, the context itself as "context".
 */
#ifndef RECORDINGHOST_H
#define RECORDINGHOST_H

#include "host/QuillmarLib.h"

#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A context whose calls are printed to out, or 0 when memory is short. Reports of the calling thread are
 * printed there too from now on: a report names no context. The caller frees it. */
QUILLMARLIB_API QlmNode recordingHostCreate(FILE* out);

/* Frees a context; reports that come later on this thread are not printed. */
QUILLMARLIB_API void recordingHostDestroy(QlmNode context);

#ifdef __cplusplus
}
#endif

#endif
