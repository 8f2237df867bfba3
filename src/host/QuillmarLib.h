/** @file
 * The fourteen drawing operations that the module calls in its host.
 *
 * A host implements all of them, in a library named QuillmarLib (QuillmarLib.dll, libQuillmarLib.so).
 * The module calls them only from the thread that called dxfFileOpen, one at a time. Strings are
 * zero-terminated and wide (UTF-16 on Windows, UTF-32 elsewhere), never null, and belong to the module: a
 * host copies what it keeps. Coordinates and sizes are already scaled and oriented, Y pointing down; where
 * the file has them so, they are infinite or not a number.
 *
 * The context node, first argument of nearly every call, is the node that the host gave to dxfFileOpen. The
 * current SVG node is a position that the host keeps for each context: every qlmCreate... call appends its
 * element there. The identifier of every element is the empty string: the host assigns its own. A host
 * must accept a node of 0 as the target of an attribute, and do nothing. No operation may throw.
 */
#ifndef QUILLMARLIB_H
#define QUILLMARLIB_H

#include <stdbool.h>
#include <stdint.h>
#include <wchar.h>

/** On Windows the host side of the interface defines QUILLMARLIB_EXPORTS while it compiles itself. */
#if defined(_WIN32) && defined(QUILLMARLIB_EXPORTS)
#define QUILLMARLIB_API __declspec(dllexport)
#elif defined(_WIN32) && defined(QUILLMARLIB_STATIC)
#define QUILLMARLIB_API
#elif defined(_WIN32)
#define QUILLMARLIB_API __declspec(dllimport)
#elif defined(__GNUC__)
#define QUILLMARLIB_API __attribute__((visibility("default")))
#else
#define QUILLMARLIB_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** An opaque handle of a node in the host's document; 0 means no node. The module only passes it on. */
typedef void* QlmNode;

/** A straight line from (x1, y1) to (x2, y2). The two trailing numbers are always 0. */
QUILLMARLIB_API QlmNode qlmCreateLine(QlmNode context, const wchar_t* id, float x1, float y1, float x2,
                                      float y2, float zero1, float zero2);

/** A path; data is in SVG path syntax. */
QUILLMARLIB_API QlmNode qlmCreatePath(QlmNode context, const wchar_t* id, const wchar_t* data, float zero1,
                                      float zero2);

/** A circle: the radius comes before the centre. */
QUILLMARLIB_API QlmNode qlmCreateCircle(QlmNode context, const wchar_t* id, float radius, float centerX,
                                        float centerY, float zero1, float zero2);

/** An ellipse along the axes: both radii come before the centre. */
QUILLMARLIB_API QlmNode qlmCreateEllipse(QlmNode context, const wchar_t* id, float radiusX, float radiusY,
                                         float centerX, float centerY, float zero1, float zero2);

/** An open polyline; points holds "x,y" pairs with single blanks between them, and may be empty. */
QUILLMARLIB_API QlmNode qlmCreatePolyline(QlmNode context, const wchar_t* id, const wchar_t* points,
                                          float zero1, float zero2);

/** A closed polygon; points as for a polyline. */
QUILLMARLIB_API QlmNode qlmCreatePolygon(QlmNode context, const wchar_t* id, const wchar_t* points,
                                         float zero1, float zero2);

/** A text. TEXT and MTEXT entities have their position in the first pair, dimension texts in the second,
 * and the other pair is 0. The two numbers before the text are always 0. */
QUILLMARLIB_API QlmNode qlmCreateText(QlmNode context, const wchar_t* id, float firstX, float firstY,
                                      float zero1, float zero2, const wchar_t* text, float secondX,
                                      float secondY);

/** A use of the symbol called name, which may be defined later or never; kind is always "hmi". The position
 * comes last, the two leading numbers are always 0. */
QUILLMARLIB_API QlmNode qlmCreateUse(QlmNode context, const wchar_t* id, float zero1, float zero2,
                                     const wchar_t* name, const wchar_t* kind, float x, float y);

/** A symbol called name, or 0 when the host refuses it. */
QUILLMARLIB_API QlmNode qlmCreateSymbol(QlmNode context, const wchar_t* name);

/** A group. */
QUILLMARLIB_API QlmNode qlmCreateG(QlmNode context, const wchar_t* id);

/** The context's current SVG node, 0 when it is the default place. */
QUILLMARLIB_API QlmNode qlmGetCurrentSvgNode(QlmNode context);

/** Makes node the context's current SVG node; 0 returns to the default place, the top of the drawing. */
QUILLMARLIB_API void qlmSetCurrentSvgNode(QlmNode context, QlmNode node);

/** Sets one attribute of an element created before; a later value replaces an earlier one. */
QUILLMARLIB_API void qlmSetAttributeByNode(QlmNode context, QlmNode node, const wchar_t* name,
                                           const wchar_t* value);

/** Reports a problem of the file. The source is always "DXF", the boolean false and extra 0. The result is
 * returned to the reader, which ignores it. */
QUILLMARLIB_API int qlmSetLastError(int code, const wchar_t* source, int kind, const wchar_t* message,
                                    bool unused, intptr_t extra);

#ifdef __cplusplus
}
#endif

#endif
