#include "prepare/drawing/ReadAcadTable.h"

#include "prepare/drawing/EntityFields.h"

namespace prepare {

namespace {

// What comes before the first cell, and the cells.
enum TablePhase : std::int32_t { kHead, kCells };

void BeginCell(RecordReader& reader, Table& table, CDxfLine)
{
    reader.phase = kCells;
    reader.Append(table.cells, {});
}

// A long text comes in parts (2, 303), the last as a short one does (1, 302). Newer files have both forms:
// 302 is the text as shown.
void ReadText(RecordReader& reader, Table& table, CDxfLine value)
{
    if (reader.phase == kCells)
        reader.AppendText(table.cells.back(), value);
}

void ReadShownText(RecordReader& reader, Table& table, CDxfLine value)
{
    if (reader.phase == kCells && !value.empty())
        table.cells.back() = reader.Text(value);
}

void ReadName(RecordReader& reader, Table& table, CDxfLine value)
{
    if (reader.phase == kCells)
        reader.AppendText(table.cells.back(), value);
    else
        table.block = reader.Name(value);
}

constexpr auto kTable = EntityFields<Table>({
    {1, ReadText},
    {2, ReadName},
    {10, &Table::point},
    {11, &Table::direction},
    Field<Table>(91, &Table::rows).OnlyFirst(),
    Field<Table>(92, &Table::columns).OnlyFirst(),
    {141, &Table::rowHeights},
    {142, &Table::columnWidths},
    {171, BeginCell},
    {302, ReadShownText},
});

} // namespace

std::unique_ptr<Entity> ReadAcadTable(RecordReader& reader)
{
    return ReadByTable<kTable, Table>(reader);
}

} // namespace prepare
