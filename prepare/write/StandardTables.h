// What every R2000 drawing has around its entities.
#pragma once

#include "prepare/drawing/Drawing.h"
#include "prepare/write/PairWriter.h"
#include "prepare/write/StandardNames.h"
#include "prepare/write/StyleTable.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace prepare {

// The handles that all drawings have in common. Others follow.
enum FixedHandle : std::uint64_t {
    kVPortTable = 1,
    kLineTypeTable,
    kLayerTable,
    kTextStyleTable,
    kViewTable,
    kUcsTable,
    kAppIdTable,
    kDimStyleTable,
    kBlockRecordTable,
    kRootDictionary,
    kGroupDictionary,
    kLayoutDictionary,
    kPlotStyleDictionary,
    kPlotStyle,
    kModelRecord,
    kPaperRecord,
    kModelLayout,
    kPaperLayout,
    kActiveVPort,
    kStandardDimStyle,
    kAcadAppId,
    kModelBegin,
    kModelEnd,
    kPaperBegin,
    kPaperEnd
};

inline constexpr std::uint64_t kFirstFreeHandle = 0x20;

// A block in the order in which blocks are written.
struct StandardBlock {
    std::string name;
    std::uint64_t record = 0; // the handle of its record, which owns its entities
    std::size_t number = 0;   // of the block as it was asked for
};

// The names that entities use and the tables that define them, each in the order of its names: the order in
// which entities come does not matter.
class StandardTables {
public:
    StandardTables(const Drawing& drawing, const StyleTable& styles, const std::set<NameId>& textStyles);

    // "0" for none and for a name that the drawing lacks.
    const std::string& LayerName(NameId name) const { return m_layers.at(name); }
    const std::string& LineTypeName(const LineType& lineType) const;
    const std::string& TextStyleName(NameId name) const { return m_textStyles.at(name); }

    // The TABLES section; handle is the next free one.
    void Write(PairWriter& pairs, const std::vector<StandardBlock>& blocks, const Box& extents, int decimals,
               std::uint64_t& handle) const;
    // How many handles Write takes.
    std::uint64_t HandleCount() const;

private:
    void WriteLineTypes(PairWriter& pairs, std::uint64_t& handle) const;
    void WriteLayers(PairWriter& pairs, std::uint64_t& handle) const;
    // Each name with what is defined under it, in the order of the names.
    using Entries = std::vector<std::pair<std::string, NameId>>;
    Entries TextStyles() const;

    void WriteTextStyles(PairWriter& pairs, std::uint64_t& handle) const;

    const Drawing& m_drawing;
    std::map<NameId, std::string> m_layers;
    std::map<NameId, std::string> m_lineTypes;
    std::map<std::vector<double>, std::string> m_namelessLineTypes; // by their dashes
    std::map<NameId, std::string> m_textStyles;
};

// The weight (370) that is nearest among those that the format has.
std::int32_t NearestWeight(std::int32_t weight);

// A point in the plane; 2 and 3 are the coordinates that it has in the file.
void WritePoint3(PairWriter& pairs, int code, Point2 point, int decimals);
void WritePoint2(PairWriter& pairs, int code, Point2 point, int decimals);

} // namespace prepare
