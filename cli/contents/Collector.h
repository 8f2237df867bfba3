// Counts what the pairs of a drawing hold.
#pragma once

#include "cli/contents/DimensionMeasure.h"
#include "cli/contents/DrawingInfo.h"
#include "prepare/pairs/PairReader.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace plexorn {

// Takes a drawing's pairs in their order.
class Collector {
public:
    Collector(DrawingInfo& info, bool withTexts) : m_info(info), m_header(info.header), m_withTexts(withTexts)
    {
    }

    void Take(const prepare::PairReader& pair);
    // Call it once, after the last pair.
    void Finish();

private:
    enum class Section { None, Named, Header, Tables, Blocks, Entities, Other };
    // The types of which more than layer and line type is looked at.
    enum class Kind { Other, Polyline, Text, MText, Insert, Dimension };
    enum class Record { None, Layer, LineType, BlockRecord, Block, Entity };

    void Begin(std::string_view name, std::uint64_t line);
    void BeginEntry(std::string_view name);
    void BeginEntity(std::string_view name);
    bool NeedsMarker() const;
    void EndRecord();
    void EndLayer();
    void EndLineType();
    void EndBlockHeader();
    void EndEntity();
    void CountEntity(const TypeInfo& type);
    bool IsPart() const;
    bool IsOnSheet() const;
    bool IsShown() const;
    void CountOtherwise(PartCounts& counts) const;
    void LeaveBlock();
    void KeepText();
    void TakeValue(int code, std::string_view value, std::uint64_t line);
    void TakeEntry(int code, std::string_view value);
    void TakeEntity(int code, std::string_view value);
    void TakeDetail(int code, std::string_view value);
    void Note(Difference what, bool isSo) { m_otherwise[static_cast<std::size_t>(what)] += isSo; }
    bool HasTexts() const;
    void CheckText(std::string_view value, std::uint64_t line);

    DrawingInfo& m_info;
    HeaderReader m_header;
    bool m_withTexts;
    Section m_section = Section::None;
    Record m_record = Record::None;
    bool m_inBlock = false;
    bool m_isOfSheet = false; // the open block
    std::string m_block;      // the block that is open
    PartCounts m_blockCounts;
    bool m_hasBasePoint = false;
    bool m_isSwallowing = false; // the reader takes what follows as part of an entry without a marker

    // What is known so far of the record that is being read.
    std::string m_type;
    std::uint64_t m_line = 0;
    std::string m_name;
    std::string m_layerName;
    std::string m_lineTypeName;
    std::string m_text;
    LayerInfo m_layer;
    LineTypeInfo m_lineType;
    Kind m_kind = Kind::Other;
    DifferenceCounts m_otherwise{}; // more than 0 for what concerns the entity
    DimensionMeasure m_dimension;
    bool m_isEmbedded = false; // in an object within a text, whose codes mean other things
    bool m_isHidden = false;
    bool m_isMarked = false;
    bool m_hasSeenMarker = false; // any
};

// Reads a drawing from file to its end, in one pass. Texts are kept when they are asked for. The memory that
// it takes grows only with the number of different names, of pairs of blocks of which one inserts the other,
// and of texts.
DrawingInfo CollectInfo(std::FILE* file, bool withTexts);

} // namespace plexorn
