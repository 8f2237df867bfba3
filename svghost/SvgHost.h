/* The reference host: answers the module's fourteen operations with a real SVG document.
 *
 * This is the interface beside the fourteen (host/QuillmarLib.h): make a document, hand its context node to
 * dxfFileOpen, read what was reported, write the SVG. Plain C; strings in and out of this header are UTF-8
 * unless they are wchar_t. Any number of documents can live at once; one document is used by one thread at
 * a time.
 *
 * Memory and the SVG's size grow in proportion to what the operations are given, and have no limit of their
 * own: an element takes some 50 to 200 bytes of each, besides its texts, and a dash pattern at most 512 more.
 * The drawing file may be far smaller: one dimension whose text falls into 510 pieces, with 2000 repeated
 * parts that each draw it, makes a million text elements out of 49 KB, which is 93 MB of SVG. A host that
 * must not take that much stops in its write function.
 */
#ifndef SVGHOST_H
#define SVGHOST_H

#include "host/QuillmarLib.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct SvgHostDocument SvgHostDocument;

/* One report of the module, as it came through qlmSetLastError. */
typedef struct SvgHostError {
    int code;
    int kind;
    const wchar_t* message;
} SvgHostError;

/* How a document is written. Zero-initialised, it means: no background. */
typedef struct SvgHostWriteOptions {
    const char* background; /* a CSS colour painted behind the drawing, or NULL for none */
} SvgHostWriteOptions;

/* What was met while the picture was laid out (counts). */
typedef struct SvgHostStatistics {
    size_t elements;         /* elements made by the creating operations, symbols and groups included */
    size_t symbols;          /* symbols defined, duplicates included */
    size_t duplicateSymbols; /* further symbols of a name that was there already; the first is referred to */
    size_t missingSymbols;   /* use elements whose symbol is never defined */
    size_t cyclicUses;       /* use elements left out because they would draw their own symbol again */
    size_t unboundedUses;    /* use elements left out because the drawing would unfold without end, or too far
                                for a viewer to show it in reasonable time */
    size_t undrawableElements; /* elements left out because a number of theirs is infinite, not a number,
                                  beyond a 32-bit float, or missing where one must stand,
                                  or because their scale is 0 or multiplies up beyond reason */
    size_t longDashPatterns; /* elements drawn solid because their dash pattern has more than 512 characters,
                                some fifty lengths: each element repeats its pattern in the file */
} SvgHostStatistics;

/* A new, empty document, or NULL when memory is short. The caller destroys it. */
QUILLMARLIB_API SvgHostDocument* svgHostCreate(void);

/* Frees the document and every node of it; NULL is allowed. */
QUILLMARLIB_API void svgHostDestroy(SvgHostDocument* document);

/* The context node to give to dxfFileOpen. From this call on, what is reported through qlmSetLastError on
 * the calling thread is kept by this document (the report itself names no document). NULL gives 0 and ends
 * the keeping. */
QUILLMARLIB_API QlmNode svgHostBeginImport(SvgHostDocument* document);

/* The number of reports kept, and the report at index (false when there is none, or memory is short). Its
 * message belongs to the document and is good until the next call of svgHostGetError for it. */
QUILLMARLIB_API size_t svgHostErrorCount(const SvgHostDocument* document);
QUILLMARLIB_API bool svgHostGetError(const SvgHostDocument* document, size_t index, SvgHostError* error);

/* Hands every further report to function as it comes, instead of keeping it; NULL keeps them again. A broken
 * drawing can bring millions of reports: this way they take no memory. The message is good during the call,
 * which must neither throw nor call the document. */
typedef void (*SvgHostErrorFunction)(void* user, const SvgHostError* error);
QUILLMARLIB_API void svgHostOnError(SvgHostDocument* document, SvgHostErrorFunction function, void* user);

/* Lays the picture out (view box, references) and tells what was met. False when memory is short, now or in
 * one of the operations before. */
QUILLMARLIB_API bool svgHostGetStatistics(SvgHostDocument* document, SvgHostStatistics* statistics);

/* Writes the document as UTF-8 SVG through write, piece by piece; write returns false to stop. Returns
 * false when write did, or when memory is short, now or in one of the operations before. options may be
 * NULL. */
typedef bool (*SvgHostWriteFunction)(void* user, const char* bytes, size_t size);
QUILLMARLIB_API bool svgHostWrite(SvgHostDocument* document, const SvgHostWriteOptions* options,
                                  SvgHostWriteFunction write, void* user);

#ifdef __cplusplus
}
#endif

#endif
