#include "cli/info/InfoJson.h"

#include "base/NamedCodePage.h"
#include "cli/contents/Fate.h"
#include "cli/contents/Units.h"
#include "cli/info/NotesOn.h"
#include "cli/report/Json.h"
#include "cli/report/ShareText.h"

namespace plexorn {

namespace {

class JsonOfInfo {
public:
    JsonOfInfo(const std::string& file, const DrawingInfo& info, const Becoming* becoming)
        : m_info(info), m_becoming(becoming), m_types(becoming != nullptr ? becoming->held : info.types),
          m_page(becoming != nullptr ? becoming->codePage : info.header.codePage)
    {
        m_json.Open('{').Member("file", file).Member("bytes", info.bytes).Member("lines", info.lines);
    }

    void AddHeader()
    {
        const Header& header = m_info.header;
        Text("version", header.version);
        Text("release", ReleaseOfVersion(header.version));
        Text("codePage", header.codePage);
        Integer("insunits", header.units);
        const Unit* unit = header.units ? FindUnit(*header.units) : nullptr;
        Text("unit", unit ? unit->name : std::string_view());
        Integer("measurement", header.measurement);
        Box("extents", header.extentsMin, header.extentsMax);
        Box("limits", header.limitsMin, header.limitsMax);
    }

    void AddTables()
    {
        List("layers", m_info.layers, [this](const LayerInfo& layer) {
            m_json.Member("defined", layer.isDefined).Member("colour", layer.colour);
            m_json.Member("off", layer.IsOff()).Member("frozen", layer.IsFrozen());
            Text("lineType", layer.lineType);
            m_json.Member("weight", layer.weight).Member("entities", layer.entities);
        });
        List("lineTypes", m_info.lineTypes, [this](const LineTypeInfo& lineType) {
            m_json.Member("defined", lineType.isDefined);
            Text("description", lineType.description);
            m_json.Member("dashes", lineType.dashes).Member("length", lineType.length);
            m_json.Member("entities", lineType.entities);
        });
        List("blocks", m_info.blocks, [this](const BlockInfo& block) {
            m_json.Member("definitions", block.definitions).Member("line", block.line);
            m_json.Member("entities", block.entities).Member("inserts", block.inserts);
        });
        if (m_becoming != nullptr)
            AddSheets();
    }

    void AddEntities()
    {
        List("entities", m_types, [this](const TypeInfo& type) {
            m_json.Member("inDrawing", type.inDrawing).Member("inBlocks", type.inBlocks);
            m_json.Member("line", type.line);
            m_json.Member("fate", NameOfFate(FateInDrawing(type.name)));
            m_json.Member("fateInBlocks", NameOfFate(FateInBlock(type.name)));
            if (m_becoming != nullptr)
                AddBecoming(type);
        });
    }

    void AddTexts()
    {
        m_json.Name("texts").Open('[');
        for (const TextInfo& text : m_info.texts) {
            m_json.Open('{').Member("line", text.line).Member("type", m_page.Utf8(text.type));
            m_json.Member("layer", m_page.Utf8(text.layer));
            Text("block", text.block);
            m_json.Member("text", m_page.Utf8(text.text));
            if (m_becoming != nullptr)
                AddWords(text);
            m_json.Close('}');
        }
        m_json.Close(']');
    }

    std::string Finish()
    {
        AddShare(m_json, m_becoming != nullptr ? m_becoming->share : ShareOf(m_info));
        m_json.Name("notes").Open('[');
        for (const std::string& note : NotesOn(m_info, m_becoming))
            m_json.Text(note);
        return m_json.Close(']').Close('}').Result() + "\n";
    }

private:
    void AddSheets()
    {
        m_json.Name("layouts").Open('[');
        for (const prepare::LayoutSize& sheet : m_becoming->sheets) {
            m_json.Open('{').Member("name", sheet.name);
            Size("width", sheet.width);
            Size("height", sheet.height);
            m_json.Close('}');
        }
        m_json.Close(']');
    }

    // null for a sheet that has none.
    void Size(std::string_view name, double millimetres)
    {
        m_json.Name(name);
        if (millimetres > 0)
            m_json.Number(millimetres);
        else
            m_json.Null();
    }

    // null for an empty text.
    void Text(std::string_view name, std::string_view text)
    {
        if (text.empty())
            m_json.Name(name).Null();
        else
            m_json.Member(name, m_page.Utf8(text));
    }

    void AddWords(const TextInfo& text)
    {
        m_json.Member("words", text.words).Name("place");
        if (text.place)
            m_json.Open('[').Number(text.place->x).Number(text.place->y).Close(']');
        else
            m_json.Null();
    }

    void AddBecoming(const TypeInfo& type)
    {
        const auto found = m_becoming->types.find(type.name);
        const TypeBecoming becoming = found == m_becoming->types.end() ? TypeBecoming() : found->second;
        m_json.Name("becomes").Open('{');
        Text("into", becoming.into);
        AddCounts("notShown", becoming.notShown);
        AddCounts("changed", becoming.changed);
        m_json.Close('}');
    }

    void AddCounts(std::string_view name, const std::map<std::string, std::uint64_t>& counts)
    {
        m_json.Name(name).Open('{');
        for (const auto& [what, count] : counts)
            m_json.Member(what, count);
        m_json.Close('}');
    }

    void Integer(std::string_view name, std::optional<int> number)
    {
        if (number)
            m_json.Member(name, *number);
        else
            m_json.Name(name).Null();
    }

    void Box(std::string_view name, const std::optional<HeaderPoint>& low,
             const std::optional<HeaderPoint>& high)
    {
        m_json.Name(name);
        if (!low || !high) {
            m_json.Null();
            return;
        }
        m_json.Open('{').Name("min").Open('[').Number(low->x).Number(low->y).Close(']');
        m_json.Name("max").Open('[').Number(high->x).Number(high->y).Close(']').Close('}');
    }

    template <class Things, class Members>
    void List(std::string_view name, const Things& things, Members members)
    {
        m_json.Name(name).Open('[');
        for (const auto& thing : things) {
            m_json.Open('{').Member("name", m_page.Utf8(thing.name));
            members(thing);
            m_json.Close('}');
        }
        m_json.Close(']');
    }

    const DrawingInfo& m_info;
    const Becoming* m_becoming;
    const Named<TypeInfo>& m_types;
    NamedCodePage m_page;
    Json m_json;
};

} // namespace

std::string InfoJson(const std::string& file, const DrawingInfo& info, const Becoming* becoming,
                     bool withTexts)
{
    JsonOfInfo json(file, info, becoming);
    json.AddHeader();
    json.AddTables();
    json.AddEntities();
    if (withTexts)
        json.AddTexts();
    return json.Finish();
}

} // namespace plexorn
