#include "cli/contents/Collector.h"

#include "base/Letters.h"
#include "base/Numbers.h"
#include "base/Utf8.h"
#include "cli/contents/Fate.h"
#include "input/CDxfOpenFile.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace plexorn {

namespace {

constexpr std::string_view kTextTypes[] = {"TEXT", "MTEXT", "ATTRIB", "ATTDEF", "DIMENSION"};

// Of the types that are drawn, those whose coordinates an extrusion turns. That of an ARC is not left out.
constexpr std::string_view kTurnedByExtrusion[] = {"CIRCLE", "LWPOLYLINE", "TEXT", "INSERT"};

template <std::size_t count>
bool IsOneOf(const std::string_view (&types)[count], std::string_view type)
{
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

// The blocks of further sheets have names with a number at the end.
bool IsSheetName(std::string_view block)
{
    constexpr std::string_view kName = "*Paper_Space", kOldName = "$PAPER_SPACE";
    const std::string_view begin = block.substr(0, kName.size());
    return AreSameLetters(begin, kName) || AreSameLetters(begin, kOldName);
}

} // namespace

void Collector::Take(const prepare::PairReader& pair)
{
    const std::string_view value = Trim(pair.Value());
    const std::uint64_t line = pair.Line() + 1;
    if (pair.Code() == 0) {
        EndRecord();
        Begin(value, line);
    } else {
        TakeValue(pair.Code(), value, line);
    }
}

void Collector::Begin(std::string_view name, std::uint64_t line)
{
    m_record = Record::None;
    m_hasSeenMarker = false;
    m_line = line;
    if (name == "SECTION") {
        m_section = Section::Named;
        LeaveBlock();
    } else if (name == "ENDSEC") {
        m_section = Section::None;
    } else if (m_section == Section::Tables) {
        BeginEntry(name);
    } else if (m_section == Section::Entities) {
        BeginEntity(name);
    } else if (m_section == Section::Blocks) {
        if (name == "BLOCK") {
            LeaveBlock();
            m_record = Record::Block;
            m_name.clear();
            m_hasBasePoint = false;
        } else if (name == "ENDBLK") {
            LeaveBlock();
        } else {
            BeginEntity(name);
        }
    }
}

void Collector::BeginEntry(std::string_view name)
{
    m_name.clear();
    m_isMarked = false;
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
    m_type = name.empty() ? prepare::kNoTypeName : name;
    m_name.clear();
    m_layerName.clear();
    m_lineTypeName.clear();
    m_text.clear();
    m_isHidden = false;
    m_isMarked = false;
    m_isEmbedded = false;
    m_otherwise = {};
    constexpr std::string_view kNames[] = {"LWPOLYLINE", "TEXT", "MTEXT", "INSERT", "DIMENSION"};
    constexpr Kind kKinds[] = {Kind::Polyline, Kind::Text,      Kind::MText,
                               Kind::Insert,   Kind::Dimension, Kind::Other};
    m_kind = kKinds[std::find(std::begin(kNames), std::end(kNames), name) - std::begin(kNames)];
    if (m_kind == Kind::Dimension)
        m_dimension = {};
}

// The reader takes such a record to last until its marker, whatever comes before it.
bool Collector::NeedsMarker() const
{
    return m_record == Record::Layer || m_record == Record::LineType || m_record == Record::BlockRecord ||
           (m_record == Record::Entity && m_type == "DIMENSION");
}

void Collector::EndRecord()
{
    if (NeedsMarker() && !m_isMarked) {
        m_isSwallowing = m_isSwallowing || !m_hasSeenMarker;
        if (m_info.unmarkedEntry == 0)
            m_info.unmarkedEntry = m_line;
    }
    if (m_record == Record::Layer)
        EndLayer();
    else if (m_record == Record::LineType)
        EndLineType();
    else if (m_record == Record::Block)
        EndBlockHeader();
    else if (m_record == Record::Entity)
        EndEntity();
    // A record that holds the marker is swallowed up to it and lost.
    m_isSwallowing = m_isSwallowing && !m_hasSeenMarker;
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
    m_isOfSheet = IsSheetName(m_name);
    m_blockCounts.otherwise[static_cast<std::size_t>(Difference::BasePoints)] = m_hasBasePoint;
}

void Collector::LeaveBlock()
{
    if (!m_inBlock)
        return;
    BlockInfo& block = m_info.blocks[m_block];
    if (block.definitions == 1)
        block.counts = std::move(m_blockCounts);
    m_blockCounts = {};
    m_inBlock = false;
}

void Collector::Finish()
{
    EndRecord();
    LeaveBlock();
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
    CountEntity(type);
    if (m_kind == Kind::Insert) {
        BlockInfo& block = m_info.blocks[m_name];
        ++block.inserts;
        PartCounts& counts = m_inBlock ? m_blockCounts : m_info.counts;
        counts.inserts[m_info.blocks.PlaceOf(block)] += !m_isHidden && IsShown();
    }
    m_info.hiddenEntities += m_isHidden;
    m_info.paperEntities += m_otherwise[static_cast<std::size_t>(Difference::PaperSpace)] > 0;
    m_info.sheetEntities += IsOnSheet();
    if (m_withTexts && !m_text.empty())
        KeepText();
}

// Whether the entity counts with another one.
bool Collector::IsPart() const
{
    return m_type == "VERTEX" || m_type == "SEQEND" || (m_inBlock && m_type == "ATTDEF");
}

// A VIEWPORT shows the model, and nothing of its own.
bool Collector::IsOnSheet() const
{
    const bool isInPaperSpace =
        m_inBlock ? m_isOfSheet : m_otherwise[static_cast<std::size_t>(Difference::PaperSpace)] > 0;
    return isInPaperSpace && !m_isHidden && m_type != "VIEWPORT" && !IsPart();
}

// Whether the module draws the entity.
bool Collector::IsShown() const
{
    const Fate fate = m_inBlock ? FateInBlock(m_type) : FateInDrawing(m_type);
    return fate == Fate::Drawn && !m_isSwallowing && (m_kind != Kind::Dimension || m_dimension.IsDrawn());
}

void Collector::CountEntity(const TypeInfo& type)
{
    if (IsPart())
        return;
    PartCounts& counts = m_inBlock ? m_blockCounts : m_info.counts;
    const bool isShown = IsShown();
    if (isShown)
        CountOtherwise(counts);
    if (m_isHidden)
        return;
    TypeCount& count = counts.types[m_info.types.PlaceOf(type)];
    ++(isShown ? count.shown : count.missing);
}

void Collector::CountOtherwise(PartCounts& counts) const
{
    const auto add = [&](Difference what, bool isSo) {
        counts.otherwise[static_cast<std::size_t>(what)] += isSo;
    };
    if (m_isHidden) {
        // The flag has no effect on other types.
        add(Difference::Invisible, m_kind != Kind::Other && m_kind != Kind::Polyline);
        return;
    }
    for (std::size_t i = 0; i < kDifferenceCount; ++i)
        counts.otherwise[i] += m_otherwise[i] > 0;
    add(Difference::OtherMeasures, m_kind == Kind::Dimension && m_dimension.ShowsOtherNumber());
    const LayerInfo& layer = m_info.layers[m_layerName];
    add(Difference::HiddenLayers, layer.IsOff() || layer.IsFrozen());
}

bool Collector::HasTexts() const
{
    return IsOneOf(kTextTypes, m_type);
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
    const std::string block = m_inBlock ? m_block : std::string();
    m_info.texts.push_back({m_type, m_layerName, block, m_text, m_line, {}, {}});
}

void Collector::TakeValue(int code, std::string_view value, std::uint64_t line)
{
    m_hasSeenMarker = m_hasSeenMarker || code == 100;
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
        else if (code == 10 || code == 20)
            m_hasBasePoint = m_hasBasePoint || LeadingReal(value).value_or(0) != 0;
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
        m_isMarked = true;
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
        m_lineType.length = LeadingReal(value).value_or(0);
        break;
    case 49:
        ++m_lineType.dashes;
        break;
    case 62:
        m_layer.colour = ParseInteger(value);
        break;
    case 70:
        m_layer.flags = ParseInteger(value);
        break;
    case 370:
        m_layer.weight = ParseInteger(value);
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
        m_isHidden = ParseInteger(value) == 1;
        break;
    case 67:
        Note(Difference::PaperSpace, !m_inBlock && ParseInteger(value) == 1);
        break;
    case 230:
        Note(Difference::Extrusions,
             IsOneOf(kTurnedByExtrusion, m_type) && LeadingReal(value).value_or(0) < 0);
        break;
    case 100:
        m_isMarked = m_isMarked || value == "AcDbDimension";
        break;
    default:
        break;
    }
    if (m_kind == Kind::Dimension)
        m_dimension.Take(code, value);
    else if (m_kind != Kind::Other)
        TakeDetail(code, value);
}

void Collector::TakeDetail(int code, std::string_view value)
{
    m_isEmbedded = m_isEmbedded || code == 101;
    if (m_isEmbedded)
        return;
    const auto isNumber = [&] { return LeadingReal(value).value_or(0) != 0; };
    switch (m_kind) {
    case Kind::Polyline:
        if (code == 42)
            Note(Difference::StraightBulges, isNumber());
        else if (code == 40 || code == 41 || code == 43)
            Note(Difference::NoWidths, isNumber());
        break;
    case Kind::Text:
        if (code == 50)
            Note(Difference::UnturnedTexts, isNumber());
        else if (code == 72 || code == 73)
            Note(Difference::MovedTexts, isNumber());
        break;
    case Kind::MText:
        if (code == 50 || code == 21)
            Note(Difference::UnturnedTexts, isNumber());
        else if (code == 1)
            Note(Difference::FormattingCodes, value.find_first_of("\\{") != std::string_view::npos);
        else if (code == 3)
            Note(Difference::LostPieces, true);
        break;
    case Kind::Insert:
        if (code == 70 || code == 71)
            Note(Difference::OneOfMany, ParseInteger(value) > 1);
        break;
    default:
        break;
    }
}

DrawingInfo CollectInfo(std::FILE* file, bool withTexts)
{
    DrawingInfo info;
    CDxfOpenFile source(file);
    prepare::PairReader pairs(source, prepare::TextSource::DoubledEnds::Kept); // as the module does
    Collector collector(info, withTexts);
    while (pairs.Next())
        collector.Take(pairs);
    collector.Finish();
    info.isEnded = pairs.HasEofPair();
    info.lines = pairs.Lines();
    info.oddLines = pairs.SkippedLines().count;
    info.firstOddLine = pairs.SkippedLines().firstLine;
    info.header.readError = source.Error();
    return info;
}

} // namespace plexorn
