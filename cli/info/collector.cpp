#include "cli/info/collector.h"

#include "cli/info/numbers.h"
#include "cli/utf8.h"

#include <algorithm>
#include <iterator>

namespace plexorn {

namespace {

constexpr std::string_view TextTypes[] = {"TEXT", "MTEXT", "ATTRIB", "ATTDEF", "DIMENSION"};

int IntegerOf(std::string_view value)
{
    return LeadingInteger(value).value_or(0);
}

} // namespace

bool CCollector::Take(const CPairScanner& pair)
{
    if (pair.Code() == 0) {
        EndRecord();
        return Begin(pair.Value(), pair.Line());
    }
    TakeValue(pair.Code(), pair.Value(), pair.Line());
    return true;
}

bool CCollector::Begin(std::string_view name, std::uint64_t line)
{
    m_record = Record::None;
    m_nLine = line;
    m_info.isEnded = name == "EOF";
    if (name == "SECTION") {
        m_section = Section::Named;
        m_bInBlock = false;
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
            m_strName.clear();
        } else if (name == "ENDBLK") {
            m_bInBlock = false;
        } else {
            BeginEntity(name);
        }
    }
    return true;
}

void CCollector::BeginEntry(std::string_view name)
{
    m_strName.clear();
    m_bMarked = false;
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

void CCollector::BeginEntity(std::string_view name)
{
    m_record = Record::Entity;
    m_strType = name;
    m_strName.clear();
    m_strLayer.clear();
    m_strLineType.clear();
    m_strText.clear();
    m_bHidden = false;
    m_bMarked = false;
}

// The reader takes such a record to last until its marker, whatever stands before it.
bool CCollector::NeedsMarker() const
{
    return m_record == Record::Layer || m_record == Record::LineType || m_record == Record::BlockRecord ||
           (m_record == Record::Entity && m_strType == "DIMENSION");
}

void CCollector::EndRecord()
{
    if (NeedsMarker() && !m_bMarked && m_info.unmarkedEntry == 0)
        m_info.unmarkedEntry = m_nLine;
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

void CCollector::EndLayer()
{
    LayerInfo& layer = m_info.layers[m_strName];
    if (layer.isDefined)
        return;
    m_layer.name = m_strName;
    m_layer.entities = layer.entities;
    m_layer.isDefined = true;
    layer = m_layer;
}

void CCollector::EndLineType()
{
    LineTypeInfo& lineType = m_info.lineTypes[m_strName];
    if (lineType.isDefined)
        return;
    m_lineType.name = m_strName;
    m_lineType.entities = lineType.entities;
    m_lineType.isDefined = true;
    lineType = m_lineType;
}

void CCollector::EndBlockHeader()
{
    BlockInfo& block = m_info.blocks[m_strName];
    if (block.definitions++ == 0)
        block.line = m_nLine;
    m_strBlock = m_strName;
    m_bInBlock = true;
}

void CCollector::EndEntity()
{
    TypeInfo& type = m_info.types[m_strType];
    if (type.inDrawing + type.inBlocks == 0)
        type.line = m_nLine;
    ++(m_bInBlock ? type.inBlocks : type.inDrawing);
    if (m_bInBlock)
        ++m_info.blocks[m_strBlock].entities;
    ++m_info.layers[m_strLayer].entities;
    if (!m_strLineType.empty())
        ++m_info.lineTypes[m_strLineType].entities;
    if (m_strType == "INSERT")
        ++m_info.blocks[m_strName].inserts;
    m_info.hiddenEntities += m_bHidden;
    if (m_bTexts && !m_strText.empty())
        KeepText();
}

bool CCollector::HasTexts() const
{
    return std::find(std::begin(TextTypes), std::end(TextTypes), m_strType) != std::end(TextTypes);
}

void CCollector::CheckText(std::string_view value, std::uint64_t line)
{
    auto isBeyondAscii = [](char character) { return static_cast<unsigned char>(character) > 0x7F; };
    if (std::none_of(value.begin(), value.end(), isBeyondAscii) || !HasTexts() || ValidUtf8(value) == value)
        return;
    if (m_info.otherTexts++ == 0)
        m_info.firstOtherText = line;
}

void CCollector::KeepText()
{
    if (!HasTexts())
        return;
    m_info.texts.push_back(
        {m_strType, m_strLayer, m_bInBlock ? m_strBlock : std::string(), m_strText, m_nLine});
}

void CCollector::TakeValue(int code, std::string_view value, std::uint64_t line)
{
    if (m_section == Section::Named && code == 2) {
        constexpr std::string_view names[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES"};
        constexpr Section sections[] = {Section::Header, Section::Tables, Section::Blocks, Section::Entities,
                                        Section::Other};
        m_section = sections[std::find(std::begin(names), std::end(names), value) - std::begin(names)];
    } else if (m_section == Section::Header) {
        m_header.Take(code, value);
    } else if (m_record == Record::Layer || m_record == Record::LineType || m_record == Record::BlockRecord) {
        TakeEntry(code, value);
    } else if (m_record == Record::Block) {
        if (code == 2)
            m_strName = value;
    } else if (m_record == Record::Entity) {
        TakeEntity(code, value);
        if (code == 1 || code == 3)
            CheckText(value, line);
    }
}

void CCollector::TakeEntry(int code, std::string_view value)
{
    switch (code) {
    case 100:
        m_bMarked = true;
        break;
    case 2:
        m_strName = value;
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

void CCollector::TakeEntity(int code, std::string_view value)
{
    switch (code) {
    case 1:
    case 3:
        // A long MTEXT stands in several pieces. A dimension's group 3 is its style.
        if (m_bTexts && (code == 1 || m_strType == "MTEXT"))
            m_strText += value;
        break;
    case 2:
        m_strName = value;
        break;
    case 6:
        m_strLineType = value;
        break;
    case 8:
        m_strLayer = value;
        break;
    case 60:
        m_bHidden = IntegerOf(value) == 1;
        break;
    case 100:
        m_bMarked = m_bMarked || value == "AcDbDimension";
        break;
    default:
        break;
    }
}

DrawingInfo CollectInfo(std::FILE* file, bool withTexts)
{
    DrawingInfo info;
    CPairScanner pairs(file);
    CCollector collector(info, withTexts);
    while (pairs.Next() && collector.Take(pairs)) {
    }
    collector.Finish();
    info.lines = pairs.Line();
    info.oddLines = pairs.OddLines();
    info.firstOddLine = pairs.FirstOddLine();
    return info;
}

} // namespace plexorn
