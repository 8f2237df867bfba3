// Records as text: every field by its name, so that a test compares a record as a whole.
#pragma once

#include <string>

struct DXF_GRAPHIC_BASE;
struct DXF_TABLES_COMMON;
struct DXF_TABLES_HEADER;

// One line "m_dStartX=1.5" for each field in the order of the record, the fields of the base first: numbers
// with the fewest digits that give them back, texts between quotes as in a trace, points as "(1,2)(3,4)".
// A list of records is told by its size.
std::string RecordText(const DXF_GRAPHIC_BASE& record);
std::string RecordText(const DXF_TABLES_COMMON& entry);
std::string RecordText(const DXF_TABLES_HEADER& table);

// The lines of RecordText that differ from those of a record that has just been made, joined with blanks.
std::string ChangedFields(const DXF_GRAPHIC_BASE& record);
std::string ChangedFields(const DXF_TABLES_COMMON& entry);
std::string ChangedFields(const DXF_TABLES_HEADER& table);
