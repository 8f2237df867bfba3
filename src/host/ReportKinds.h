/** @file
 * What the kind of a report through qlmSetLastError says, and where a report's text names its line.
 *
 * A report has the source "DXF", a code (1 for an unknown group code, else 0), one of these kinds, and a
 * finished text. Most texts end with the line of the drawing, counted from 1, that the report is about, in
 * one of two forms: "Line:12" or, after a blank, "(12)". Line 0 is the place before the first line. The other
 * texts name no line.
 *
 * The numbers stay: later versions may add kinds, which a host should take as it takes those that it does not
 * know by name.
 */
#ifndef PLEXORN_REPORTKINDS_H
#define PLEXORN_REPORTKINDS_H

/** The kind of a report, the third argument of qlmSetLastError. */
enum DXF_ERROR_KIND {
    DXF_ERROR_OPEN = 1,        /**< the drawing cannot be opened; nothing is drawn, no other report comes */
    DXF_ERROR_SECTION = 2,     /**< a section of an unknown name is skipped */
    DXF_ERROR_INTEGER = 3,     /**< a group code is no integer, or a dimension has a part twice */
    DXF_ERROR_TABLE = 4,       /**< a table of an unknown kind is skipped */
    DXF_ERROR_UNFINISHED = 5,  /**< a record ends too early; what it has is kept */
    DXF_ERROR_OBJECT_TYPE = 6, /**< an entity of a type that is not drawn is skipped */
    DXF_ERROR_GROUP_CODE = 7,  /**< an unknown group code is skipped; the report's code is 1 */
    DXF_ERROR_MARKER = 8,      /**< an unknown subclass of a dimension is skipped */
    DXF_ERROR_DSTYLE = 9,      /**< a list of dimension style overrides is not as it should be */
    DXF_ERROR_LONG_LINE = 10,  /**< a line of more than 1023 bytes is cut */
    DXF_ERROR_READ = 11,       /**< the drawing cannot be read to its end; what was read is drawn */
    DXF_ERROR_MEMORY = 12      /**< memory is short; what there is is drawn */
};

#endif
