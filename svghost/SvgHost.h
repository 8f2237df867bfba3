/** @file
 * The reference host: answers the module's fourteen operations with a real SVG document.
 *
 * This is the interface besides the fourteen (host/QuillmarLib.h): make a document, pass its context node to
 * dxfFileOpen, read what was reported, write the SVG. Plain C; no function throws an exception, and none
 * reads or sets the locale.
 *
 * Strings are zero-terminated: char is UTF-8, wchar_t is UTF-16 on Windows and UTF-32 elsewhere.
 *
 * Any number of documents can live at once. One document is used by one thread at a time, whichever it is:
 * the operations of an import into it count as use. Documents share nothing, so two threads with a document
 * each do not meet.
 *
 * A node belongs to its document and lives as long as it: nothing frees a single node. A node of one document
 * must not be given to another.
 *
 * Memory and the SVG's size grow in proportion to what the operations are given: an element takes some 50 to
 * 200 bytes of each, besides its texts, and a dash pattern at most 512 more. The drawing file may be far
 * smaller: one dimension whose text falls into 510 pieces, with 2000 repeated parts that each draw it, makes
 * a million text elements out of 49 KB, which is 93 MB of SVG. A host that must not take that much limits the
 * number of elements (svgHostLimitElements).
 */
#ifndef SVGHOST_H
#define SVGHOST_H

#include "host/QuillmarLib.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/** A document with all its nodes and reports. */
typedef struct SvgHostDocument SvgHostDocument;

/** One report of the module, as it came through qlmSetLastError. */
typedef struct SvgHostError {
    int code;               /**< 1 for an unknown group code, else 0 */
    int kind;               /**< which kind of report it is: a DXF_ERROR_KIND of host/ReportKinds.h */
    const wchar_t* message; /**< the text, most with the line's number in the drawing; never NULL */
} SvgHostError;

/** The part of the drawing's plane that the picture shows, in the drawing's units: all that is drawn, with a
 * margin, unless a frame is given. */
typedef struct SvgHostViewBox {
    double x;      /**< its left side */
    double y;      /**< its upper side; y grows downwards */
    double width;  /**< more than 0 */
    double height; /**< more than 0 */
    bool isMadeUp; /**< whether nothing that is drawn has a place: the numbers above mean nothing then */
} SvgHostViewBox;

/** How a document is written. Zero-initialised, it means: no background, no physical size, no style sheet,
 * all of the drawing, and widths of strokes that are lengths of the drawing. Of the elements that the
 * operations made, only the widths of their strokes depend on it. */
typedef struct SvgHostWriteOptions {
    const char* background; /**< a CSS colour painted under the drawing, or NULL for none; it goes into the
                                 file as it is given, escaped as XML requires but not checked further */
    const char* style;      /**< a style sheet, written as the root's first element, or NULL for none; it goes
                                 into the file as the background does */
    double unit;            /**< how many millimetres one unit of the drawing is long: the root's width and
                                 height are written in millimetres; 0, or what makes them no number that a
                                 viewer can hold, or nothing to measure: the larger side has 1024 pixels */
    double scale;           /**< the N of the scale 1:N at which the physical size is written; 0: 1, the
                                 true size */
    bool usesStandardScale; /**< in place of scale: the first of 1:1, 1:2, 1:5, 1:10, 1:20, 1:25, 1:50,
                                 1:100, 1:200, 1:250 and so on at which what is shown fits a sheet A0
                                 (1189 x 841 mm, either way round); the margin comes on top */
    double sheet;           /**< the longer side, in millimetres, of the sheet on which strokes are as
                                 wide as the attribute stroke-width says, also in millimetres: each width
                                 is multiplied by the longer side of the view box, divided by sheet, and
                                 is at least 1/1750 of that side; a width of 0 stays. In a symbol it is
                                 divided by the scale at which the symbol is shown, or by the geometric
                                 mean of several. 0: a width is a length, as SVG takes it */
    bool showsMost;         /**< whether the view box leaves out what is small and lies far from the rest
                                 (SvgHostPicture.filled); it stays in the file */
    const char* generator;  /**< what makes the picture, written as the root's attribute data-generator, or
                                 NULL for none */
    bool groupsLayers;    /**< whether what is on one layer is one group, named so that Inkscape shows it as a
                               layer: the order within a layer stays, that of layers is that of their
                               first elements. Otherwise the order is that of the drawing, and each run of
                               elements on one layer is a group with the layer's name as its data-layer.
                               Either is so where the drawing has marks of layers (PrepareOptions) */
    SvgHostViewBox frame; /**< the view box, in place of one around what is drawn; of a width or height that
                               is not above 0, or is no number that a viewer can hold: none. Nothing is
                               left out of the file */
    size_t mostBytes;     /**< how large the file may become, 0: any size. What would make it larger is left
                               out and counted; symbols that are not drawn in place get half of it. The file may
                               be larger by what closes it, by one element's escapes, and by groups and empty
                               symbols, 200 bytes of each besides their names */
    bool sharesDashPatterns; /**< whether dash patterns of more than 200 characters are written once, as
                                  classes of a style sheet; otherwise each element repeats its own */
    const char* fontFamily;  /**< the fonts of the texts, as CSS lists them, or NULL for sans-serif; it goes
                                  into the file as the background does */
} SvgHostWriteOptions;

/** What was met while the picture was laid out (counts). */
typedef struct SvgHostStatistics {
    size_t elements; /**< elements made by the creating operations, symbols and groups included */
    size_t symbols;  /**< symbols defined, duplicates included */
    size_t
        duplicateSymbols;  /**< further symbols of a name that was there already; the first is referred to */
    size_t missingSymbols; /**< use elements whose symbol is never defined */
    size_t cyclicUses;     /**< use elements left out because they would draw their own symbol again */
    size_t unboundedUses;  /**< use elements left out because the drawing would unfold without end, or too
                                far for a viewer to show it in reasonable time */
    size_t undrawableElements;  /**< elements left out because a number of theirs is infinite, not a number,
                                     beyond a 32-bit float, or missing where there must be one, or because
                                     their scale is 0 or multiplies up beyond reason */
    size_t longDashPatterns;    /**< elements drawn solid because their dash pattern has more than 512
                                     characters, some fifty lengths: each element repeats its pattern in the
                                     file */
    size_t elementsBeyondLimit; /**< elements never made, and not among elements, because the document had as
                                     many as svgHostLimitElements allows */
    size_t elementsBeyondBytes; /**< elements left out of the file that was written last, because it would
                                     have become larger than SvgHostWriteOptions.mostBytes */
    size_t visibleElements;     /**< elements outside symbols that show something: they have a place, are not
                                     hidden and not empty; a use is one of them if its symbol has any.
                                     Areas that only hide what is behind them show nothing */
    size_t drawnElements; /**< elements that are not left out, without symbols, groups and uses by which a
                               prepared drawing says what is all of it or on a layer */
} SvgHostStatistics;

/** A new, empty document, or NULL when memory is short. The caller destroys it. */
QUILLMARLIB_API SvgHostDocument* svgHostCreate(void);

/** Frees the document with every node and report of it; NULL is allowed. Any thread may do it that does not
 * share the document with another just then; what is reported later on a thread that reported into it is
 * lost. */
QUILLMARLIB_API void svgHostDestroy(SvgHostDocument* document);

/** The context node to give to dxfFileOpen. From this call on, what is reported through qlmSetLastError on
 * the calling thread is kept by this document (the report itself names no document), until the next call on
 * this thread. NULL gives 0 and ends the keeping.
 *
 * Call it on the thread that calls dxfFileOpen, before each call. The node is the same each time, and a
 * further import into the same document adds to what is there. */
QUILLMARLIB_API QlmNode svgHostBeginImport(SvgHostDocument* document);

/** The number of reports kept, in the order in which they came; 0 for NULL. A report for which memory was
 * short is lost. */
QUILLMARLIB_API size_t svgHostErrorCount(const SvgHostDocument* document);

/** Fills error with the report at index, counted from 0. False, and error as it was, if there is no such
 * report, if memory is short, or if a pointer is NULL. The message belongs to the document and is valid until
 * the next call of svgHostGetError for it. */
QUILLMARLIB_API bool svgHostGetError(const SvgHostDocument* document, size_t index, SvgHostError* error);

/** Lets the document have at most so many elements, symbols and groups included; 0, as at first: any number.
 * From then on a creating operation gives 0 and takes no memory while there are as many, the ones that came
 * before this call counted; none of them is removed, however many there are. What is ignored is counted.
 * Places stay as they are: what is created after an ignored group or symbol has ended goes where it would
 * go anyway. NULL is allowed. */
QUILLMARLIB_API void svgHostLimitElements(SvgHostDocument* document, size_t most);

/** Takes East Asian characters of the texts created from then on for an em wide, as their fonts have them,
 * where the view box and the picture are measured; otherwise they count as wide as all others, 0.6 em. NULL
 * is allowed. */
QUILLMARLIB_API void svgHostWidenIdeographs(SvgHostDocument* document);

/** What svgHostOnError calls: user is what was given there. The error and its message are valid during the
 * call. It is called on the thread of the import, from within dxfFileOpen, and must neither throw nor call
 * any function of this header for the document. */
typedef void (*SvgHostErrorFunction)(void* user, const SvgHostError* error);

/** Passes every further report to function as it comes, instead of keeping it; NULL keeps them again. Reports
 * kept before stay. A broken drawing can bring millions of reports: this way they take no memory. */
QUILLMARLIB_API void svgHostOnError(SvgHostDocument* document, SvgHostErrorFunction function, void* user);

/** Lays the picture out (view box, references) and says what was met. False, and then nothing in statistics
 * can be relied on, when memory is short, now or in one of the operations before, or when a pointer is NULL.
 */
QUILLMARLIB_API bool svgHostGetStatistics(SvgHostDocument* document, SvgHostStatistics* statistics);

/** Takes the document as it is although memory was short in one of the operations before: from now on it is
 * laid out and written with its holes. True when there were any. NULL is allowed. */
QUILLMARLIB_API bool svgHostAcceptHoles(SvgHostDocument* document);

/** Lays the picture out and gives its view box, as zero-initialised options have it. False, and then nothing
 * in viewBox can be relied on, when memory is short, now or in one of the operations before, or when a
 * pointer is NULL. */
QUILLMARLIB_API bool svgHostGetViewBox(SvgHostDocument* document, SvgHostViewBox* viewBox);

/** How a document is written with some options. */
typedef struct SvgHostPicture {
    SvgHostViewBox viewBox; /**< as it is written */
    double width;           /**< the physical size, in millimetres; 0: the size is in pixels */
    double height;          /**< likewise */
    double scale;           /**< the N of the size's scale 1:N; 0: the size is in pixels */
    double filled;  /**< which share of the longer side of all that is drawn the most of it takes, from 0
                         to 1: the 99 parts in a hundred that lie nearest to the middle, where an
                         element counts with the width and height of its box, and what lies within
                         half of their longer side round them */
    bool isCropped; /**< whether the view box leaves something out */
} SvgHostPicture;

/** Lays the picture out as options, which may be NULL, ask for. False, and then nothing in picture can be
 * relied on, when memory is short, now or in one of the operations before, or when document or picture is
 * NULL. */
QUILLMARLIB_API bool svgHostGetPicture(SvgHostDocument* document, const SvgHostWriteOptions* options,
                                       SvgHostPicture* picture);

/** Takes one piece of the file: size bytes, which are good during the call and end anywhere, within a
 * character too. False stops the writing. It must neither throw nor call any function of this header for the
 * document. */
typedef bool (*SvgHostWriteFunction)(void* user, const char* bytes, size_t size);

/** Writes the document as UTF-8 SVG through write, piece by piece, which is given user each time. options may
 * be NULL.
 *
 * False when write returned false (it is not called again then), when a needed pointer is NULL, or when
 * memory is short, now or in one of the operations before: a drawing with holes is never written as if it
 * were whole. After false, what was written is not a whole file. The document stays as it is: it can be
 * written again, and drawn into further. */
QUILLMARLIB_API bool svgHostWrite(SvgHostDocument* document, const SvgHostWriteOptions* options,
                                  SvgHostWriteFunction write, void* user);

#ifdef __cplusplus
}
#endif

#endif
