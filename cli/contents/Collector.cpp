#include "cli/contents/Collector.h"

#include "base/Utf8.h"
#include "cli/contents/LeadingNumbers.h"

#include <algorithm>
#include <iterator>

namespace plexorn {

namespace {

constexpr std::string_view kTextTypes[] = {"TEXT", "MTEXT", "ATTRIB", "ATTDEF", "DIMENSION"};

int IntegerOf(std::string_view value)
{
    return LeadingInteger(value).value_or(0);
}

} // namespace

bool Collector::Take(const PairReader& pair)
{
    if (pair.Code() == 0) {
        EndRecord();
        return Begin(pair.Value(), pair.Line());
    }
    TakeValue(pair.Code(), pair.Value(), pair.Line());
    return true;
}

bool Collector::Begin(std::string_view name, std::uint64_t line)
{
    m_record = Record::None;
    m_line = line;
    m_info.isEnded = name == "EOF";
    if (name == "SECTION") {
        m_section = Section::Named;
        m_inBlock = false;
    } else if (name == "ENDSEC") {
        m_section = Section::None;
    } else if (m_section == Section::None && name == "EOF") {
        return false;
    } else if (m_section == Section::Tables) {
        BeginEntry(name);
    } else if (m_section == Section::Entities) {
        BeginEntity(name);
    } else if (m_section == Section::Blocks) {
        if (name == "BLOCK") {
            m_record = Record::Block;
            m_name.clear();
        } else if (name == "ENDBLK") {
            m_inBlock = false;
        } else {
            BeginEntity(name);
        }
    }
    return true;
}

void Collector::BeginEntry(std::string_view name)
{
    m_name.clear();
    m_marked = false;
    if (name == "LAYER") {
        m_record = Record::Layer;
        m_layer = LayerInfo();
    } else if (name == "LTYPE") {
        m_record = Record::LineType;
        m_lineType = LineTypeInfo();
    } else if (name == "BLOCK_RECORD") {
        m_record = Record::BlockRecord;
    }
}

void Collector::BeginEntity(std::string_view name)
{
    m_record = Record::Entity;
    m_type = name;
    m_name.clear();
    m_layerName.clear();
    m_lineTypeName.clear();
    m_text.clear();
    m_hidden = false;
    m_marked = false;
}

// The reader takes such a record to last until its marker, whatever comes before it.
bool Collector::NeedsMarker() const
{
    return m_record == Record::Layer || m_record == Record::LineType || m_record == Record::BlockRecord ||
           (m_record == Record::Entity && m_type == "DIMENSION");
}

void Collector::EndRecord()
{
    if (NeedsMarker() && !m_marked && m_info.unmarkedEntry == 0)
        m_info.unmarkedEntry = m_line;
    if (m_record == Record::Layer)
        EndLayer();
    else if (m_record == Record::LineType)
        EndLineType();
    else if (m_record == Record::Block)
        EndBlockHeader();
    else if (m_record == Record::Entity)
        EndEntity();
    m_record = Record::None;
}

void Collector::EndLayer()
{
    LayerInfo& layer = m_info.layers[m_name];
    if (layer.isDefined)
        return;
    m_layer.name = m_name;
    m_layer.entities = layer.entities;
    m_layer.isDefined = true;
    layer = m_layer;
}

void Collector::EndLineType()
{
    LineTypeInfo& lineType = m_info.lineTypes[m_name];
    if (lineType.isDefined)
        return;
    m_lineType.name = m_name;
    m_lineType.entities = lineType.entities;
    m_lineType.isDefined = true;
    lineType = m_lineType;
}

void Collector::EndBlockHeader()
{
    BlockInfo& block = m_info.blocks[m_name];
    if (block.definitions++ == 0)
        block.line = m_line;
    m_block = m_name;
    m_inBlock = true;
}

void Collector::EndEntity()
{
    TypeInfo& type = m_info.types[m_type];
    if (type.inDrawing + type.inBlocks == 0)
        type.line = m_line;
    ++(m_inBlock ? type.inBlocks : type.inDrawing);
    if (m_inBlock)
        ++m_info.blocks[m_block].entities;
    ++m_info.layers[m_layerName].entities;
    if (!m_lineTypeName.empty())
        ++m_info.lineTypes[m_lineTypeName].entities;
    if (m_type == "INSERT")
        ++m_info.blocks[m_name].inserts;
    m_info.hiddenEntities += m_hidden;
    if (m_withTexts && !m_text.empty())
        KeepText();
}

bool Collector::HasTexts() const
{
    return std::find(std::begin(kTextTypes), std::end(kTextTypes), m_type) != std::end(kTextTypes);
}

void Collector::CheckText(std::string_view value, std::uint64_t line)
{
    auto isBeyondAscii = [](char character) { return static_cast<unsigned char>(character) > 0x7F; };
    if (std::none_of(value.begin(), value.end(), isBeyondAscii) || !HasTexts() || ValidUtf8(value) == value)
        return;
    if (m_info.otherTexts++ == 0)
        m_info.firstOtherText = line;
}

void Collector::KeepText()
{
    if (!HasTexts())
        return;
    m_info.texts.push_back({m_type, m_layerName, m_inBlock ? m_block : std::string(), m_text, m_line});
}

void Collector::TakeValue(int code, std::string_view value, std::uint64_t line)
{
    if (m_section == Section::Named && code == 2) {
        constexpr std::string_view kNames[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES"};
        constexpr Section kSections[] = {Section::Header, Section::Tables, Section::Blocks, Section::Entities,
                                         Section::Other};
        m_section = kSections[std::find(std::begin(kNames), std::end(kNames), value) - std::begin(kNames)];
    } else if (m_section == Section::Header) {
        m_header.Take(code, value);
    } else if (m_record == Record::Layer || m_record == Record::LineType || m_record == Record::BlockRecord) {
        TakeEntry(code, value);
    } else if (m_record == Record::Block) {
        if (code == 2)
            m_name = value;
    } else if (m_record == Record::Entity) {
        TakeEntity(code, value);
        if (code == 1 || code == 3)
            CheckText(value, line);
    }
}

void Collector::TakeEntry(int code, std::string_view value)
{
    switch (code) {
    case 100:
        m_marked = true;
        break;
    case 2:
        m_name = value;
        break;
    case 3:
        m_lineType.description = value;
        break;
    case 6:
        m_layer.lineType = value;
        break;
    case 40:
        m_lineType.length = LeadingNumber(value).value_or(0);
        break;
    case 49:
        ++m_lineType.dashes;
        break;
    case 62:
        m_layer.colour = IntegerOf(value);
        break;
    case 70:
        m_layer.flags = IntegerOf(value);
        break;
    case 370:
        m_layer.weight = IntegerOf(value);
        break;
    default:
        break;
    }
}

void Collector::TakeEntity(int code, std::string_view value)
{
    switch (code) {
    case 1:
    case 3:
        // A long MTEXT comes in several pieces. A dimension's group 3 is its style.
        if (m_withTexts && (code == 1 || m_type == "MTEXT"))
            m_text += value;
        break;
    case 2:
        m_name = value;
        break;
    case 6:
        m_lineTypeName = value;
        break;
    case 8:
        m_layerName = value;
        break;
    case 60:
        m_hidden = IntegerOf(value) == 1;
        break;
    case 100:
        m_marked = m_marked || value == "AcDbDimension";
        break;
    default:
        break;
    }
}

DrawingInfo CollectInfo(std::FILE* file, bool withTexts)
{
    DrawingInfo info;
    PairReader pairs(file);
    Collector collector(info, withTexts);
    while (pairs.Next() && collector.Take(pairs)) {
    }
    collector.Finish();
    info.lines = pairs.Line();
    info.oddLines = pairs.OddLines();
    info.firstOddLine = pairs.FirstOddLine();
    return info;
}

} // namespace plexorn
