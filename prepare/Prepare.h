/** @file
 * Preparing: rewrites any DXF drawing into a plain one.
 *
 * The plain drawing is an R2000 ASCII drawing of lines, arcs, circles, ellipses, polylines, texts and
 * inserts, with areas as blocks of outlines (for the module) or as solid hatches. It shows what the original
 * shows, for a reader that knows little of the format. Plain C; no function throws an exception, and none
 * reads or sets the locale. Several threads can prepare at once.
 *
 * Strings are zero-terminated UTF-8.
 */
#ifndef PLEXORN_PREPARE_H
#define PLEXORN_PREPARE_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32) && !defined(PLEXORN_PREPARE_STATIC)
#if defined(PLEXORN_PREPARE_EXPORTS)
#define PLEXORN_PREPARE_API __declspec(dllexport)
#else
#define PLEXORN_PREPARE_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define PLEXORN_PREPARE_API __attribute__((visibility("default")))
#else
#define PLEXORN_PREPARE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Which reader a drawing is prepared for. */
typedef enum PrepareProfile {
    PREPARE_FOR_MODULE = 0,  /**< the module Plexorn: makes up for what it draws in its own way */
    PREPARE_FOR_STANDARD = 1 /**< any other program */
} PrepareProfile;

/** What fills become. Areas that only hide what is under them are left out of outlines. */
typedef enum PrepareFill {
    PREPARE_FILLED = 0,        /**< for the module: blocks with agreed names (PLEXORN_FILL_), in which strokes
                                    cover the area, so that any host shows it; otherwise solid hatches */
    PREPARE_FILL_OUTLINES = 1, /**< plain polylines along the edges */
    PREPARE_FILLED_BY_NAME = 2 /**< as PREPARE_FILLED, but the blocks are without the strokes: for hosts that
                                   know their names, as the reference host does */
} PrepareFill;

/** How preparing ended. */
typedef enum PrepareResult {
    PREPARE_DONE = 0,         /**< the plain drawing has been written */
    PREPARE_NO_DRAWING = 1,   /**< the input is not a DXF drawing */
    PREPARE_READ_FAILED = 2,  /**< the input could not be read to its end; nothing was written */
    PREPARE_WRITE_FAILED = 3, /**< the write function returned false */
    PREPARE_NO_MEMORY = 4,    /**< memory was short */
    PREPARE_CANCELLED = 5,    /**< the progress function returned false */
    PREPARE_BAD_OPTIONS = 6,  /**< an option has an invalid value, or a function is missing */
    PREPARE_NO_LAYOUT = 7     /**< the drawing has no layout of that name */
} PrepareResult;

/** What a report entry says. */
typedef enum PrepareFinding {
    PREPARE_REWRITTEN = 0, /**< subject is drawn as something else, which detail names */
    PREPARE_NOT_SHOWN = 1, /**< subject is not drawn; detail says why */
    PREPARE_CHANGED = 2,   /**< subject is drawn, but not quite as its author saw it */
    PREPARE_REPAIRED = 3,  /**< the file was broken here; detail says how it was read */
    PREPARE_CUT = 4        /**< there was more than the limits allow; the rest is left out */
} PrepareFinding;

/** One entry of the report: everything of one kind is one entry. Its strings are valid during the call. */
typedef struct PrepareReport {
    PrepareFinding finding; /**< what it says */
    const char* subject;    /**< a type of entity, or another word */
    const char* detail;     /**< as the finding says */
    uint64_t count;         /**< how many there are */
    uint64_t firstLine;     /**< the line in the input where the first one is; 0: none */
} PrepareReport;

/** A layout of the drawing: a sheet. Its strings are good during the call. */
typedef struct PrepareLayout {
    const char* name; /**< as layout in the options takes it */
    double width;     /**< of its paper, in millimetres; 0: not known */
    double height;    /**< likewise */
} PrepareLayout;

/** Takes a part of the plain drawing; false stops. */
typedef bool (*PrepareWriteFunction)(void* user, const char* bytes, size_t size);
/** Gives up to size bytes of the input from offset on, which is 0 or where the part before
 * ended; returns their number, 0 at the end, a negative number when reading failed. */
typedef ptrdiff_t (*PrepareReadFunction)(void* user, uint64_t offset, char* bytes, size_t size);
/** Takes the entries of the report, once the plain drawing has been written. */
typedef void (*PrepareReportFunction)(void* user, const PrepareReport* report);
/** Takes the layouts of the drawing, in the order of their tabs; false stops, and nothing is prepared. */
typedef bool (*PrepareLayoutFunction)(void* user, const PrepareLayout* layout);
/** Called now and then with the share that is done, from 0 to 1; false cancels. */
typedef bool (*PrepareProgressFunction)(void* user, double share);

/** How to prepare. Zero-initialised, it means: for the module, with the defaults. */
typedef struct PrepareOptions {
    PrepareProfile profile; /**< for whom */
    double tolerance;       /**< how far a curve drawn as lines may be from the true one, in drawing units;
                                 0: a twentieth of the thinnest stroke, at most 1/4000 of the drawing */
    bool forbidWrap;        /**< never put a far or small drawing into one block near the origin */
    bool showAllLayers;     /**< draw layers that are off or frozen, too */
    bool isForPaper;        /**< leave out layers that are not plotted */
    const char* const* onlyLayers;    /**< patterns with '*', ended by NULL; NULL: all */
    const char* const* withoutLayers; /**< likewise; NULL: none */
    const char* encoding;         /**< of the input's texts, such as "ANSI_1252"; NULL: as the input says */
    bool redrawDimensions;        /**< draw dimensions from their definitions even if they have pictures */
    PrepareReportFunction report; /**< may be NULL */
    PrepareProgressFunction progress; /**< may be NULL */
    void* user;                       /**< given to the functions */
    const char* layout; /**< the layout that is prepared, in any case of its ASCII letters. One whose paper
                             is known is written in millimetres, with its lower left corner at the origin,
                             and tolerance is in millimetres; what its viewports show are blocks of their
                             own. NULL, "" or "Model": the model space */
    bool markLayers; /**< for the module: empty blocks with agreed names (PLEXORN_LAYER_ and the layer's name)
                          are inserted where another layer begins. The reference host takes them for
                          that, and any other shows nothing of them */
    PrepareLayoutFunction layouts; /**< gets the layouts first; may be NULL */
    PrepareFill fill;              /**< what fills become */
} PrepareOptions;

/** Prepares the drawing in a file and gives the plain one to write, part after part. path is UTF-8; options
 * may be NULL. Nothing is written before the whole input has been read. A file that cannot be opened is a
 * file that cannot be read. */
PLEXORN_PREPARE_API PrepareResult prepareFile(const char* path, const PrepareOptions* options,
                                              PrepareWriteFunction write);
/** The same for a drawing in memory. bytes may be NULL when size is 0. */
PLEXORN_PREPARE_API PrepareResult prepareMemory(const char* bytes, size_t size, const PrepareOptions* options,
                                                PrepareWriteFunction write);
/** The same for a drawing that a function gives; it is called for the whole drawing more than once. */
PLEXORN_PREPARE_API PrepareResult prepareStream(PrepareReadFunction read, const PrepareOptions* options,
                                                PrepareWriteFunction write);

#ifdef __cplusplus
}
#endif

#endif
