#include "prepare/write/StandardTables.h"

#include "prepare/plain/Placement.h"
#include "prepare/write/StandardDecimals.h"

#include <algorithm>
#include <cstdlib>

namespace prepare {

namespace {

constexpr std::int32_t kWeights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                     53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

constexpr const char* kFixedLineTypes[] = {"ByBlock", "ByLayer", "Continuous"};

void BeginTable(PairWriter& pairs, const char* name, std::uint64_t handle, std::size_t entries)
{
    pairs.Text(0, "TABLE");
    pairs.Text(2, name);
    pairs.Handle(5, handle);
    pairs.Handle(330, 0);
    pairs.Text(100, "AcDbSymbolTable");
    pairs.Integer(70, static_cast<std::int64_t>(entries));
}

void EndTable(PairWriter& pairs)
{
    pairs.Text(0, "ENDTAB");
}

void BeginEntry(PairWriter& pairs, const char* type, const char* marker, std::uint64_t handle,
                std::uint64_t owner, std::string_view name, int handleCode = 5)
{
    pairs.Text(0, type);
    pairs.Handle(handleCode, handle);
    pairs.Handle(330, owner);
    pairs.Text(100, "AcDbSymbolTableRecord");
    pairs.Text(100, marker);
    pairs.Text(2, name);
}

void WriteEmptyTable(PairWriter& pairs, const char* name, std::uint64_t handle)
{
    BeginTable(pairs, name, handle, 0);
    EndTable(pairs);
}

// The names of a map's values, each with its key, in the order of the names.
std::vector<std::pair<std::string, NameId>> ByName(const std::map<NameId, std::string>& names)
{
    std::vector<std::pair<std::string, NameId>> sorted;
    sorted.reserve(names.size());
    for (const auto& [id, name] : names)
        sorted.emplace_back(name, id);
    std::sort(sorted.begin(), sorted.end());
    // Several names may mean the same entry, as "0" does.
    const auto isSame = [](const auto& a, const auto& b) { return a.first == b.first; };
    sorted.erase(std::unique(sorted.begin(), sorted.end(), isSame), sorted.end());
    return sorted;
}

// Names in an order that does not depend on when they came.
std::vector<NameId> InOrder(const Names& names, const std::set<NameId>& ids)
{
    std::vector<NameId> sorted(ids.begin(), ids.end());
    std::sort(sorted.begin(), sorted.end(),
              [&](NameId a, NameId b) { return names.Text(a) < names.Text(b); });
    return sorted;
}

void WriteLineType(PairWriter& pairs, std::uint64_t handle, std::string_view name, const LineType* lineType)
{
    BeginEntry(pairs, "LTYPE", "AcDbLinetypeTableRecord", handle, kLineTypeTable, name);
    const std::vector<double> none;
    const std::vector<double>& dashes = lineType == nullptr ? none : lineType->dashes;
    double length = 0;
    for (const double dash : dashes)
        length += std::fabs(dash);
    pairs.Integer(70, 0);
    pairs.Text(3, lineType == nullptr ? std::string() : EscapedValue(lineType->description));
    pairs.Integer(72, 'A');
    pairs.Integer(73, static_cast<std::int64_t>(dashes.size()));
    pairs.Real(40, length);
    for (const double dash : dashes) {
        pairs.Real(49, dash);
        pairs.Integer(74, 0);
    }
}

void WriteViewport(PairWriter& pairs, const Box& extents, int decimals)
{
    const Point2 centre = extents.IsEmpty() ? Point2{} : 0.5 * (extents.min + extents.max);
    const double height = std::max(extents.Height(), extents.Width() / 2);
    BeginTable(pairs, "VPORT", kVPortTable, 1);
    BeginEntry(pairs, "VPORT", "AcDbViewportTableRecord", kActiveVPort, kVPortTable, "*Active");
    pairs.Integer(70, 0);
    WritePoint2(pairs, 10, {0, 0}, 0);
    WritePoint2(pairs, 11, {1, 1}, 0);
    WritePoint2(pairs, 12, centre, DecimalsOfExtents(decimals));
    WritePoint2(pairs, 13, {0, 0}, 0);
    WritePoint2(pairs, 14, {10, 10}, 0);
    WritePoint2(pairs, 15, {10, 10}, 0);
    WritePoint2(pairs, 16, {0, 0}, 0);
    pairs.Integer(36, 1); // from above
    WritePoint3(pairs, 17, {0, 0}, 0);
    pairs.Fixed(40, height > 0 ? height : 1, DecimalsOfExtents(decimals));
    pairs.Integer(41, 2);
    pairs.Integer(42, 50);
    for (const int code : {43, 44, 50, 51, 71})
        pairs.Integer(code, 0);
    pairs.Integer(72, 1000);
    pairs.Integer(73, 1);
    pairs.Integer(74, 3);
    for (const int code : {75, 76, 77, 78})
        pairs.Integer(code, 0);
    EndTable(pairs);
}

void WriteAppId(PairWriter& pairs)
{
    BeginTable(pairs, "APPID", kAppIdTable, 1);
    BeginEntry(pairs, "APPID", "AcDbRegAppTableRecord", kAcadAppId, kAppIdTable, "ACAD");
    pairs.Integer(70, 0);
    EndTable(pairs);
}

void WriteDimStyle(PairWriter& pairs)
{
    BeginTable(pairs, "DIMSTYLE", kDimStyleTable, 1);
    pairs.Text(100, "AcDbDimStyleTable");
    BeginEntry(pairs, "DIMSTYLE", "AcDbDimStyleTableRecord", kStandardDimStyle, kDimStyleTable, "Standard",
               105);
    pairs.Integer(70, 0);
    EndTable(pairs);
}

void WriteBlockRecord(PairWriter& pairs, std::uint64_t handle, std::string_view name, std::uint64_t layout)
{
    BeginEntry(pairs, "BLOCK_RECORD", "AcDbBlockTableRecord", handle, kBlockRecordTable, name);
    pairs.Handle(340, layout);
}

void WriteBlockRecords(PairWriter& pairs, const std::vector<StandardBlock>& blocks)
{
    BeginTable(pairs, "BLOCK_RECORD", kBlockRecordTable, blocks.size() + 2);
    WriteBlockRecord(pairs, kModelRecord, "*Model_Space", kModelLayout);
    WriteBlockRecord(pairs, kPaperRecord, "*Paper_Space", kPaperLayout);
    for (const StandardBlock& block : blocks)
        WriteBlockRecord(pairs, block.record, block.name, 0);
    EndTable(pairs);
}

} // namespace

std::int32_t NearestWeight(std::int32_t weight)
{
    std::int32_t nearest = kWeights[0];
    for (const std::int32_t known : kWeights)
        if (std::abs(known - weight) < std::abs(nearest - weight))
            nearest = known;
    return nearest;
}

void WritePoint2(PairWriter& pairs, int code, Point2 point, int decimals)
{
    pairs.Fixed(code, point.x, decimals);
    pairs.Fixed(code + 10, point.y, decimals);
}

void WritePoint3(PairWriter& pairs, int code, Point2 point, int decimals)
{
    WritePoint2(pairs, code, point, decimals);
    pairs.Integer(code + 20, 0);
}

StandardTables::StandardTables(const Drawing& drawing, const StyleTable& styles,
                               const std::set<NameId>& textStyles)
    : m_drawing(drawing)
{
    std::set<NameId> layers, lineTypes;
    for (StyleId id = 0; id < styles.Count(); ++id) {
        layers.insert(styles[id].layer);
        const LineType* const lineType = styles[id].lineType;
        if (lineType == nullptr || lineType->dashes.empty())
            continue;
        if (lineType->name != kNoName)
            lineTypes.insert(lineType->name);
        else
            m_namelessLineTypes.try_emplace(lineType->dashes);
    }
    const Names& names = drawing.names;
    StandardNames layerNames({"0"}), lineTypeNames({"ByBlock", "ByLayer", "Continuous"});
    StandardNames textStyleNames({"Standard"});
    for (const NameId id : InOrder(names, layers))
        m_layers[id] = id == kNoName || names.Text(id) == "0" ? "0" : layerNames.Take(names.Text(id));
    m_layers.emplace(names.Find("0"), "0");
    for (const NameId id : InOrder(names, lineTypes))
        m_lineTypes[id] = lineTypeNames.Take(names.Text(id));
    std::size_t number = 0;
    for (auto& [dashes, name] : m_namelessLineTypes)
        name = lineTypeNames.Take("PATTERN_" + std::to_string(++number));
    const NameId standard = names.Find("Standard");
    for (const NameId id : InOrder(names, textStyles)) {
        const bool isStandard = drawing.FindTextStyle(id) == nullptr || id == standard;
        m_textStyles[id] = isStandard ? "Standard" : textStyleNames.Take(names.Text(id));
    }
}

StandardTables::Entries StandardTables::TextStyles() const
{
    std::map<NameId, std::string> all = m_textStyles;
    all.emplace(m_drawing.names.Find("Standard"), "Standard");
    return ByName(all);
}

std::uint64_t StandardTables::HandleCount() const
{
    return ByName(m_layers).size() + m_lineTypes.size() + m_namelessLineTypes.size() +
           std::size(kFixedLineTypes) + TextStyles().size();
}

const std::string& StandardTables::LineTypeName(const LineType& lineType) const
{
    return lineType.name != kNoName ? m_lineTypes.at(lineType.name) : m_namelessLineTypes.at(lineType.dashes);
}

void StandardTables::WriteLineTypes(PairWriter& pairs, std::uint64_t& handle) const
{
    std::map<std::string, LineType> all; // in the order of the names
    for (const auto& [name, id] : ByName(m_lineTypes))
        if (const LineType* const lineType = m_drawing.FindLineType(id))
            all.emplace(name, *lineType);
        else
            all.emplace(name, LineType());
    for (const auto& [dashes, name] : m_namelessLineTypes)
        all[name].dashes = dashes;
    BeginTable(pairs, "LTYPE", kLineTypeTable, all.size() + std::size(kFixedLineTypes));
    for (const char* const name : kFixedLineTypes)
        WriteLineType(pairs, handle++, name, nullptr);
    for (const auto& [name, lineType] : all)
        WriteLineType(pairs, handle++, name, &lineType);
    EndTable(pairs);
}

void StandardTables::WriteLayers(PairWriter& pairs, std::uint64_t& handle) const
{
    const auto layers = ByName(m_layers);
    BeginTable(pairs, "LAYER", kLayerTable, layers.size());
    for (const auto& [name, id] : layers) {
        const Layer* const layer = m_drawing.FindLayer(name == "0" ? m_drawing.names.Find("0") : id);
        BeginEntry(pairs, "LAYER", "AcDbLayerTableRecord", handle++, kLayerTable, name);
        pairs.Integer(70, 0);
        const std::int64_t colour = layer == nullptr ? 7 : std::abs(std::int64_t{layer->colour});
        pairs.Integer(62, colour >= 1 && colour <= 255 ? colour : 7);
        pairs.Text(6, "Continuous");
        if (layer != nullptr && layer->isPlotted == 0)
            pairs.Integer(290, 0);
        pairs.Integer(370,
                      layer != nullptr && layer->weight >= 0 ? NearestWeight(layer->weight) : kDefaultWeight);
        pairs.Handle(390, kPlotStyle);
    }
    EndTable(pairs);
}

void StandardTables::WriteTextStyles(PairWriter& pairs, std::uint64_t& handle) const
{
    const Entries styles = TextStyles();
    BeginTable(pairs, "STYLE", kTextStyleTable, styles.size());
    for (const auto& [name, id] : styles) {
        const TextStyle* const style =
            m_drawing.FindTextStyle(name == "Standard" ? m_drawing.names.Find("Standard") : id);
        BeginEntry(pairs, "STYLE", "AcDbTextStyleTableRecord", handle++, kTextStyleTable, name);
        pairs.Integer(70, 0);
        pairs.Integer(40, 0);
        pairs.Integer(41, 1);
        pairs.Integer(50, 0);
        pairs.Integer(71, 0);
        pairs.Real(42, 2.5);
        pairs.Text(3, style == nullptr || style->font.empty() ? "txt" : EscapedValue(style->font));
        pairs.Text(4, style == nullptr ? std::string() : EscapedValue(style->bigFont));
    }
    EndTable(pairs);
}

void StandardTables::Write(PairWriter& pairs, const std::vector<StandardBlock>& blocks, const Box& extents,
                           int decimals, std::uint64_t& handle) const
{
    pairs.Text(0, "SECTION");
    pairs.Text(2, "TABLES");
    WriteViewport(pairs, extents, decimals);
    WriteLineTypes(pairs, handle);
    WriteLayers(pairs, handle);
    WriteTextStyles(pairs, handle);
    WriteEmptyTable(pairs, "VIEW", kViewTable);
    WriteEmptyTable(pairs, "UCS", kUcsTable);
    WriteAppId(pairs);
    WriteDimStyle(pairs);
    WriteBlockRecords(pairs, blocks);
    pairs.Text(0, "ENDSEC");
}

} // namespace prepare
