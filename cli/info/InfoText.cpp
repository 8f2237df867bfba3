#include "cli/info/InfoText.h"

#include "base/Joined.h"
#include "base/NamedCodePage.h"
#include "cli/contents/Fate.h"
#include "cli/contents/Units.h"
#include "cli/info/NotesOn.h"
#include "cli/info/Table.h"
#include "cli/report/Printable.h"
#include "cli/report/Rounded.h"
#include "cli/report/ShareText.h"

#include <algorithm>

namespace plexorn {

namespace {

std::string Short(double number)
{
    return Rounded(number, 8);
}

std::string PointText(const HeaderPoint& point)
{
    return Joined({"(", Short(point.x), ", ", Short(point.y), ")"});
}

std::string BoxText(const std::optional<HeaderPoint>& low, const std::optional<HeaderPoint>& high)
{
    return low && high ? PointText(*low) + " to " + PointText(*high) : "not stated";
}

std::string UnitText(const Header& header)
{
    if (!header.units)
        return "not stated";
    const Unit* unit = FindUnit(*header.units);
    const std::string code = " ($INSUNITS " + header.unitsText + ")";
    return (unit ? std::string(unit->name) : *header.units == 0 ? "none" : "unknown") + code;
}

std::string MeasurementText(const Header& header)
{
    if (!header.measurement)
        return "not stated";
    return *header.measurement == 1 ? "metric" : *header.measurement == 0 ? "English" : "unknown";
}

std::string StateText(const LayerInfo& layer)
{
    if (!layer.isDefined)
        return "not in the table";
    if (layer.IsOff())
        return layer.IsFrozen() ? "off, frozen" : "off";
    return layer.IsFrozen() ? "frozen" : "";
}

std::string WeightText(const LayerInfo& layer)
{
    if (!layer.isDefined || layer.weight < 0)
        return "default";
    return std::to_string(layer.weight);
}

std::string FateText(const TypeInfo& type)
{
    const Fate outside = FateInDrawing(type.name);
    const Fate inside = FateInBlock(type.name);
    if (outside == inside || type.inBlocks == 0)
        return std::string(TextOfFate(outside));
    const std::string text(TextOfFate(inside));
    return type.inDrawing == 0 ? text : std::string(TextOfFate(outside)) + "; in blocks " + text;
}

// What becomes of a type that preparing does not report.
std::string_view TextOfUnchanged(const TypeInfo& type)
{
    if (type.name == "VERTEX" || type.name == "SEQEND")
        return "a part of the entity before it";
    if (type.name == "VIEWPORT")
        return "not shown: a window of a layout";
    if (type.name == "ATTDEF" && type.inDrawing == 0)
        return "inserts have their own texts for it";
    return "drawn";
}

// Of a side of a sheet.
std::string SizeText(double millimetres)
{
    return millimetres > 0 ? Short(millimetres) : "not stated";
}

class TextOfInfo {
public:
    TextOfInfo(const std::string& file, const DrawingInfo& info, const Becoming* becoming)
        : m_info(info), m_becoming(becoming), m_types(becoming != nullptr ? becoming->held : info.types),
          m_page(becoming != nullptr ? becoming->codePage : info.header.codePage)
    {
        m_out.append(Printable(file)).append("\n");
    }

    void AddHeader()
    {
        const Header& header = m_info.header;
        const std::string release(ReleaseOfVersion(header.version));
        const std::string version = header.version.empty() ? "not stated" : Safe(header.version);
        Line("size", std::to_string(m_info.bytes) + " bytes, " + std::to_string(m_info.lines) + " lines");
        Line("version", release.empty() ? version : version + " (" + release + ")");
        Line("code page", header.codePage.empty() ? "not stated" : Safe(header.codePage));
        Line("units", UnitText(header));
        Line("measurement", MeasurementText(header));
        Line("extents", BoxText(header.extentsMin, header.extentsMax));
        Line("limits", BoxText(header.limitsMin, header.limitsMax));
        const Share share = m_becoming != nullptr ? m_becoming->share : ShareOf(m_info);
        Line("share", ShareText(share) + MissingText(share));
    }

    void AddEntities()
    {
        Table table({"entities", ">in drawing", ">in blocks", ">first line", "what becomes of them"});
        for (const TypeInfo& type : m_types)
            table.Add({Safe(type.name), std::to_string(type.inDrawing), std::to_string(type.inBlocks),
                       std::to_string(type.line), BecomingText(type)});
        Add(table);
    }

    void AddTables()
    {
        Table layers({"layers", ">entities", ">colour", "line type", ">weight (0.01 mm)", "state"});
        for (const LayerInfo& layer : m_info.layers)
            layers.Add({Safe(layer.name), std::to_string(layer.entities), std::to_string(layer.colour),
                        Safe(layer.lineType), WeightText(layer), StateText(layer)});
        Add(layers);
        Table lineTypes({"line types", ">entities", ">dashes", ">length", "description"});
        for (const LineTypeInfo& lineType : m_info.lineTypes)
            lineTypes.Add({Safe(lineType.name), std::to_string(lineType.entities),
                           std::to_string(lineType.dashes), Short(lineType.length),
                           lineType.isDefined ? Safe(lineType.description) : "not in the table"});
        Add(lineTypes);
        Table blocks({"blocks", ">entities", ">inserts", ">line", "state"});
        for (const BlockInfo& block : m_info.blocks)
            blocks.Add({Safe(block.name), std::to_string(block.entities), std::to_string(block.inserts),
                        std::to_string(block.line), BlockState(block)});
        Add(blocks);
        AddSheets();
    }

    void AddTexts()
    {
        if (m_becoming != nullptr)
            return AddWords();
        Table table({"texts", ">line", "layer", "block", "text"});
        for (const TextInfo& text : m_info.texts)
            table.Add({Safe(text.type), std::to_string(text.line), Safe(text.layer), Safe(text.block),
                       Safe(text.text)});
        Add(table);
    }

    std::string Finish()
    {
        for (const std::string& note : NotesOn(m_info, m_becoming))
            m_out.append("  note: ").append(note).append("\n");
        return m_out;
    }

private:
    void AddSheets()
    {
        Table sheets({"sheets", ">width (mm)", ">height (mm)"});
        if (m_becoming != nullptr)
            for (const prepare::LayoutSize& sheet : m_becoming->sheets)
                sheets.Add({Printable(sheet.name), SizeText(sheet.width), SizeText(sheet.height)});
        Add(sheets);
    }

    void AddWords()
    {
        Table table({"texts", ">line", "layer", "block", "place", "words"});
        for (const TextInfo& text : m_info.texts) {
            std::string words = text.words;
            std::replace(words.begin(), words.end(), '\n', ' ');
            table.Add({Safe(text.type), std::to_string(text.line), Safe(text.layer), Safe(text.block),
                       text.place ? PointText(*text.place) : std::string(), Printable(words)});
        }
        Add(table);
    }

    std::string Safe(std::string_view text) const { return Printable(m_page.Utf8(text)); }

    std::string BecomingText(const TypeInfo& type) const
    {
        if (m_becoming == nullptr)
            return FateText(type);
        const auto found = m_becoming->types.find(type.name);
        return found == m_becoming->types.end() ? std::string(TextOfUnchanged(type))
                                                : Printable(found->second.Text());
    }

    static std::string BlockState(const BlockInfo& block)
    {
        if (block.definitions == 0)
            return "not defined";
        return block.definitions > 1 ? "defined " + std::to_string(block.definitions) + " times" : "";
    }

    void Line(std::string_view name, const std::string& value)
    {
        constexpr std::size_t kWidth = 14;
        m_out.append("  ").append(name).append(kWidth - name.size(), ' ').append(value).append("\n");
    }

    void Add(const Table& table)
    {
        if (table.Rows() > 0)
            m_out.append("\n").append(table.Text());
    }

    const DrawingInfo& m_info;
    const Becoming* m_becoming;
    const Named<TypeInfo>& m_types;
    NamedCodePage m_page;
    std::string m_out;
};

} // namespace

std::string InfoText(const std::string& file, const DrawingInfo& info, const Becoming* becoming,
                     bool withTexts)
{
    TextOfInfo text(file, info, becoming);
    text.AddHeader();
    text.AddEntities();
    text.AddTables();
    if (withTexts)
        text.AddTexts();
    return text.Finish() + "\n";
}

} // namespace plexorn
