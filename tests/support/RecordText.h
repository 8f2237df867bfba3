// Records as texts, so that a test compares a record as a whole.
#pragma once

#include <initializer_list>
#include <map>
#include <string>

struct DXF_BLOCKS_BLOCK;
struct DXF_GRAPHIC_BASE;
struct DXF_GRAPHIC_DIMENSION_BASE;
struct DXF_TABLES_COMMON;
struct DXF_TABLES_HEADER;

// One line "m_dStartX=1.5" for each field in the order of the record, the fields that entities share first:
// numbers with the fewest digits that give them back, texts between quotes as in a trace, points as
// "(1,2)(3,4)". A list of records is written as its size.
std::string RecordText(const DXF_GRAPHIC_BASE& record);
std::string RecordText(const DXF_TABLES_COMMON& entry);
std::string RecordText(const DXF_TABLES_HEADER& table);

// The lines of RecordText that differ from those of a record that has just been made, joined with blanks.
std::string ChangedFields(const DXF_GRAPHIC_BASE& record);
std::string ChangedFields(const DXF_TABLES_COMMON& entry);
std::string ChangedFields(const DXF_TABLES_HEADER& table);

// The fields by name: values as in RecordText, but texts without quotes and no lists of records.
using FieldTexts = std::map<std::string, std::string>;

FieldTexts FieldMapOf(const DXF_GRAPHIC_BASE& record);
FieldTexts FieldMapOf(const DXF_BLOCKS_BLOCK& block);
// As "part" also the type of the part's record, without DXF_GRAPHIC_DIMENSION_.
FieldTexts FieldMapOf(const DXF_GRAPHIC_DIMENSION_BASE& part);

// defaults with some fields changed or added.
FieldTexts With(FieldTexts defaults, std::initializer_list<FieldTexts::value_type> changed);
