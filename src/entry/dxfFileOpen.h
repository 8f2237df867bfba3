/** @file
 * The module's one export. */
#ifndef PLEXORN_DXFFILEOPEN_H
#define PLEXORN_DXFFILEOPEN_H

#include "host/QuillmarLib.h"

#if defined(_WIN32) && defined(PLEXORN_EXPORTS)
#define PLEXORN_API __declspec(dllexport)
#elif defined(_WIN32) && defined(PLEXORN_STATIC)
#define PLEXORN_API
#elif defined(_WIN32)
#define PLEXORN_API __declspec(dllimport)
#elif defined(__GNUC__)
#define PLEXORN_API __attribute__((visibility("default")))
#else
#define PLEXORN_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Reads the ASCII DXF file at path and draws it under parent through the host's operations.
 *
 * path is a zero-terminated wide string (UTF-16 on Windows, UTF-32 elsewhere); parent is the context node of
 * every host call. The result is always true: what is wrong with the file, the failure to open it included,
 * reaches the host through qlmSetLastError. Nothing is kept between calls; calls on different threads do
 * not meet in the module. No exception leaves it.
 */
PLEXORN_API bool dxfFileOpen(const wchar_t* path, QlmNode parent);

#ifdef __cplusplus
}
#endif

#endif
