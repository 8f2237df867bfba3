#include "prepare/drawing/ReadTables.h"

#include "prepare/drawing/Fields.h"

#include <algorithm>

namespace prepare {

namespace {

void ReadTrueColour(RecordReader& reader, Layer& layer, CDxfLine value)
{
    layer.trueColour = reader.Integer(value) & 0xFFFFFF;
}

constexpr auto kLayer = Fields<Layer>({
    {2, &Layer::name},
    Field<Layer>(5, &Layer::handle).OnlyFirst(),
    {6, &Layer::lineType},
    {62, &Layer::colour},
    {70, &Layer::flags},
    {102, SkipGroup<Layer>},
    {290, &Layer::isPlotted},
    {370, &Layer::weight},
    {420, ReadTrueColour},
});

void ReadShapeFlags(RecordReader& reader, LineType& lineType, CDxfLine value)
{
    lineType.hasShapes = lineType.hasShapes || reader.Integer(value) != 0;
}

// Programs write up to twelve. What is scaled in many ways is kept as often.
constexpr std::size_t kMostDashes = 256;

void AddDash(RecordReader& reader, LineType& lineType, CDxfLine value)
{
    if (lineType.dashes.size() < kMostDashes)
        reader.Append(lineType.dashes, reader.Real(value));
    else if (lineType.dashes.size() == kMostDashes)
        reader.Note(Finding::Cut, "LTYPE", "a pattern of more than 256 dashes", reader.Line());
}

constexpr auto kLineType = Fields<LineType>({
    {2, &LineType::name},
    {3, &LineType::description},
    Field<LineType>(5, &LineType::handle).OnlyFirst(),
    {49, AddDash},
    {74, ReadShapeFlags},
    {102, SkipGroup<LineType>},
});

constexpr auto kTextStyle = Fields<TextStyle>({
    {2, &TextStyle::name},
    {3, &TextStyle::font},
    {4, &TextStyle::bigFont},
    Field<TextStyle>(5, &TextStyle::handle).OnlyFirst(),
    {40, &TextStyle::height},
    {41, &TextStyle::widthFactor},
    {50, &TextStyle::oblique},
    {70, &TextStyle::flags},
    {71, &TextStyle::generation},
    {102, SkipGroup<TextStyle>},
});

struct BlockRecord {
    NameId name = kNoName;
    Handle handle = 0;
};

constexpr auto kBlockRecord = Fields<BlockRecord>({
    Field<BlockRecord>(2, &BlockRecord::name).OnlyFirst(),
    Field<BlockRecord>(5, &BlockRecord::handle).OnlyFirst(),
    {102, SkipGroup<BlockRecord>},
});

void BeginElement(RecordReader& reader, MultiLineStyle& style, CDxfLine value)
{
    MultiLineStyle::Element element;
    element.offset = reader.Real(value);
    reader.Append(style.elements, element);
}

// Before the first element, 62 and 420 are the fill's.
template <std::int32_t MultiLineStyle::*ofFill, std::int32_t MultiLineStyle::Element::*ofElement>
void ReadMultiLineColour(RecordReader& reader, MultiLineStyle& style, CDxfLine value)
{
    (style.elements.empty() ? style.*ofFill : style.elements.back().*ofElement) = reader.Integer(value);
}

void ReadElementLineType(RecordReader& reader, MultiLineStyle& style, CDxfLine value)
{
    if (!style.elements.empty())
        style.elements.back().lineType = reader.Name(value);
}

constexpr auto kMultiLineStyle = Fields<MultiLineStyle>({
    {2, &MultiLineStyle::name},
    Field<MultiLineStyle>(5, &MultiLineStyle::handle).OnlyFirst(),
    {6, ReadElementLineType},
    {49, BeginElement},
    {51, &MultiLineStyle::startAngle},
    {52, &MultiLineStyle::endAngle},
    {62, ReadMultiLineColour<&MultiLineStyle::fillColour, &MultiLineStyle::Element::colour>},
    {70, &MultiLineStyle::flags},
    {102, SkipGroup<MultiLineStyle>},
    {420, ReadMultiLineColour<&MultiLineStyle::fillTrueColour, &MultiLineStyle::Element::trueColour>},
});

void NoteNameless(const RecordReader& reader, std::string_view type, std::uint64_t line)
{
    reader.Note(Finding::Repaired, type, "one without a name is left out", line);
}

void NoteSecond(const RecordReader& reader, std::string_view type, std::uint64_t line)
{
    reader.Note(Finding::Repaired, type, "a second one of the same name is left out", line);
}

// The values of a dimension style stay texts.
void ReadDimStyle(RecordReader& reader)
{
    constexpr std::int32_t kFirstXdata = 1000;
    constexpr std::size_t kMostValues = 1000;
    DimStyle style;
    const std::uint64_t line = reader.Line() + 1;
    while (reader.NextField()) {
        const std::int32_t code = reader.Code();
        if (code == 102)
            reader.SkipGroup();
        else if (code == 2)
            style.name = reader.Name(reader.Value());
        else if (code == 105)
            style.handle = reader.ReadHandle(reader.Value());
        else if (code != 100 && code != 330 && code < kFirstXdata && style.values.size() < kMostValues)
            style.values.emplace_back(code, reader.Text(reader.Value()));
    }
    if (style.name == kNoName)
        NoteNameless(reader, "DIMSTYLE", line);
    else if (!reader.drawing.dimStyles.try_emplace(style.name, std::move(style)).second)
        NoteSecond(reader, "DIMSTYLE", line);
}

// Whether an entry needs a name; a style that is a file of shapes has none.
template <class Record>
bool NeedsName(const Record&)
{
    return true;
}

bool NeedsName(const TextStyle& style)
{
    constexpr std::int32_t kShapes = 1;
    return (style.flags & kShapes) == 0;
}

// Reads an entry and keeps it if it has a name, and a new one.
template <const auto& table, class Record>
Record ReadEntry(RecordReader& reader, std::map<NameId, Record>& entries, std::string_view type)
{
    Record record;
    const std::uint64_t line = reader.Line() + 1;
    reader.Read(record, table);
    reader.NoteZeros(type, line);
    if (reader.TakeIsCut())
        reader.Note(Finding::Cut, type, "more than 1,000,000 parts", line);
    if (record.name != kNoName && !entries.try_emplace(record.name, record).second)
        NoteSecond(reader, type, line);
    else if (record.name == kNoName && NeedsName(record))
        NoteNameless(reader, type, line);
    return record;
}

void ReadBlockRecord(RecordReader& reader)
{
    BlockRecord record;
    reader.Read(record, kBlockRecord);
    if (record.handle != 0)
        reader.drawing.blockOfRecord.try_emplace(record.handle, record.name);
}

void ReadLineType(RecordReader& reader)
{
    const LineType lineType = ReadEntry<kLineType>(reader, reader.drawing.lineTypes, "LTYPE");
    if (lineType.handle != 0)
        reader.drawing.lineTypeOfHandle.try_emplace(lineType.handle, lineType.name);
}

void ReadTextStyle(RecordReader& reader)
{
    const TextStyle style = ReadEntry<kTextStyle>(reader, reader.drawing.textStyles, "STYLE");
    if (style.handle != 0)
        reader.drawing.textStyleOfHandle.try_emplace(style.handle, style.name);
}

void ReadMultiLineStyle(RecordReader& reader)
{
    const MultiLineStyle style =
        ReadEntry<kMultiLineStyle>(reader, reader.drawing.multiLineStyles, "MLINESTYLE");
    if (style.handle != 0)
        reader.drawing.multiLineStyleOfHandle.try_emplace(style.handle, style.name);
}

} // namespace

void ReadHeader(RecordReader& reader)
{
    constexpr std::size_t kMostValues = 100;
    Variable* variable = nullptr;
    while (reader.NextField()) {
        const std::string_view value = reader.Value();
        if (reader.Code() == 9) {
            variable = &reader.drawing.header[reader.Word()];
            if (!variable->values.empty())
                variable = nullptr;
        } else if (variable != nullptr && variable->values.size() < kMostValues) {
            variable->values.emplace_back(reader.Code(), reader.Text(value));
        }
    }
    const Header& header = reader.drawing.header;
    reader.SetCodePage(header.Text("$DWGCODEPAGE"), header.Text("$ACADVER"));
}

bool ReadTableEntry(RecordReader& reader)
{
    const std::string_view type = reader.Word();
    reader.phase = 0;
    if (type == "LAYER")
        ReadEntry<kLayer>(reader, reader.drawing.layers, "LAYER");
    else if (type == "LTYPE")
        ReadLineType(reader);
    else if (type == "STYLE")
        ReadTextStyle(reader);
    else if (type == "DIMSTYLE")
        ReadDimStyle(reader);
    else if (type == "BLOCK_RECORD")
        ReadBlockRecord(reader);
    else if (type == "MLINESTYLE")
        ReadMultiLineStyle(reader);
    else
        return false;
    return true;
}

} // namespace prepare
