#include "PlainReading.h"

#include "PlainLines.h"
#include "PlainRecord.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <vector>

namespace {

class PlainReader {
public:
    explicit PlainReader(std::string_view bytes) : m_lines(bytes) {}

    std::string Read()
    {
        ReadSections();
        Emit();
        std::string text = m_lines.Calls() + "lines=" + std::to_string(m_lines.LineCount()) + "\n";
        for (const PlainRecord& table : m_tables) {
            text += Listed(table);
            for (const PlainRecord& entry : table.inner)
                text += Listed(entry);
        }
        for (const PlainRecord& block : m_blocks) {
            text += Sorted(block);
            for (const PlainRecord& entity : block.inner)
                text += EntityText(entity);
        }
        for (const PlainRecord& entity : m_entities)
            text += EntityText(entity);
        return text;
    }

private:
    using Records = std::vector<PlainRecord>;
    // Sections.

    void ReadSections()
    {
        std::string line = m_lines.TrimmedLine();
        while (!m_lines.IsAtEnd() && line != "EOF") {
            if (line == "0" && m_lines.TrimmedLine() == "SECTION" && m_lines.TrimmedLine() == "2")
                ReadSection(m_lines.TrimmedLine());
            line = m_lines.TrimmedLine();
        }
    }

    void ReadSection(const std::string& name)
    {
        if (name == "HEADER" || name == "CLASSES" || name == "OBJECTS" || name == "THUMBNAILIMAGE") {
            m_lines.Line();
            m_lines.SkipTo("ENDSEC");
        } else if (name == "TABLES") {
            if (m_lines.TrimmedLine() != "0" || m_lines.TrimmedLine() != "TABLE")
                m_lines.SkipTo("ENDSEC");
            else
                ReadTables();
        } else if (name == "BLOCKS") {
            m_lines.Line();
            ReadBlocks();
        } else if (name == "ENTITIES") {
            m_lines.Line();
            std::string typeName = m_lines.TrimmedLine();
            do {
                if (typeName == "ENDSEC")
                    return;
                ReadEntity(typeName, m_entities);
                typeName = m_lines.TrimmedLine();
            } while (!m_lines.IsAtEnd());
        } else {
            m_lines.Report(2, "%s - Unknown Section Name Line (%d)", {TextOf(name)});
        }
    }
    // Tables.

    void ReadTables()
    {
        do
            m_tables.emplace_back(TableKind());
        while (ReadTable(m_tables.size() - 1));
    }

    // True when another table follows.
    bool ReadTable(std::size_t number)
    {
        std::string typeName;
        for (bool isEntry = false; !isEntry;) {
            std::int32_t code;
            if (m_lines.IsAtEnd() ||
                !m_lines.Code(code, "ReadTABLES() Failed to read integer from '%s' Line:%d"))
                return false;
            const std::string line = m_lines.Line();
            if (code == 0) {
                typeName = Trimmed(line);
                if (typeName == "ENDTAB")
                    return m_lines.TrimmedLine() == "0" ? FollowsTable() : (m_lines.Line(), false);
                isEntry = true;
            } else if (const int field = TableKind().Find(code, true); field >= 0) {
                m_tables[number].Store(field, line, m_lines);
            }
        }
        while (ReadEntry(m_tables[number].inner, typeName)) {
        }
        return m_lines.TrimmedLine() == "0" && FollowsTable();
    }

    // Reads on after the "0" that follows a table.
    bool FollowsTable()
    {
        const std::string line = m_lines.TrimmedLine();
        if (line != "TABLE" && line != "ENDSEC")
            m_lines.Line();
        return line == "TABLE";
    }

    // True when another entry follows, whose name typeName is then.
    bool ReadEntry(Records& entries, std::string& typeName)
    {
        const PlainKind* const kind = EntryKind(typeName);
        if (kind == nullptr) {
            constexpr std::string_view kSkipped[] = {"APPID", "DIMSTYLE", "STYLE", "UCS", "VIEW", "VPORT"};
            if (std::find(std::begin(kSkipped), std::end(kSkipped), typeName) == std::end(kSkipped))
                m_lines.Report(4, "ReaTABLES_COMMON() Unknown table name '%s', Line:%d", {TextOf(typeName)});
            m_lines.SkipTo("ENDTAB");
            return false;
        }
        PlainRecord& entry = entries.emplace_back(*kind);
        while (!m_lines.IsAtEnd()) {
            std::int32_t code;
            if (!m_lines.Code(code, "ReaTABLES_COMMON() Failed to read integer from '%s', Line:%d"))
                return false;
            const std::string line = m_lines.Line();
            if (const int field = kind->Find(code, false); field >= 0)
                entry.Store(field, line, m_lines);
            if (code != 100)
                continue;
            ReadOwnFields(entry);
            typeName = m_lines.TrimmedLine();
            return typeName != "ENDTAB";
        }
        return false;
    }

    void ReadOwnFields(PlainRecord& entry)
    {
        const std::string message =
            "ReaTABLES_" + entry.kind->Name() + "() Failed to read integer from '%s', Line:%d";
        while (!m_lines.IsAtEnd()) {
            std::int32_t code;
            if (!m_lines.Code(code, message) || code == 0)
                return;
            const std::string line = m_lines.Line();
            if (const int field = entry.kind->Find(code, true); field >= 0)
                entry.Store(field, line, m_lines);
        }
    }

    // Blocks.

    void ReadBlocks()
    {
        std::string name = m_lines.TrimmedLine();
        while (!m_lines.IsAtEnd() && name != "ENDSEC") {
            if (name != "BLOCK") {
                m_lines.Report(6, "%s - Unknown Object Type Name (%d)", {TextOf(name)});
                m_lines.SkipUnknown();
            } else if (PlainRecord block(BlockKind()); ReadBlockHeader(block)) {
                ReadBlockEntities(m_blocks.emplace_back(std::move(block)).inner);
            } else {
                m_lines.Report(5, "ReadBLOCKS_BLOCK() Failed to read line, Line:%d", {});
            }
            name = m_lines.TrimmedLine();
        }
    }

    bool ReadBlockHeader(PlainRecord& block)
    {
        while (!m_lines.IsAtEnd()) {
            std::int32_t code;
            if (!m_lines.Code(code, "ReadBLOCKS_BLOCK Failed to read integer from '%s', Line:%d"))
                return false;
            if (code == 0)
                return true;
            const std::string line = m_lines.Line();
            if (const int field = BlockKind().Find(code, true); field >= 0)
                block.Store(field, line, m_lines);
        }
        return false;
    }

    void ReadBlockEntities(Records& entities)
    {
        std::string name = m_lines.TrimmedLine();
        while (!m_lines.IsAtEnd()) {
            if (name == "ENDBLK") {
                m_lines.SkipUnknown();
                return;
            }
            if (IsEntityName(name))
                ReadEntity(name, entities);
            name = m_lines.TrimmedLine();
        }
    }

    // Entities.

    void ReadEntity(const std::string& typeName, Records& entities)
    {
        const bool isSkipped = typeName == "POLYLINE" || typeName == "SPLINE" || typeName == "POINT";
        const bool isSkippedToo = typeName == "HATCH" || typeName == "VIEWPORT";
        bool ended;
        if (isSkipped || isSkippedToo) {
            ended = m_lines.SkipPairs("ReadENTITIES_" + typeName + (isSkipped ? "" : "()") +
                                      " Failed to read integer from '%s', Line:%d");
        } else if (const PlainKind* const kind = EntityKind(typeName)) {
            PlainRecord& entity = entities.emplace_back(*kind);
            ended = typeName == "DIMENSION" ? ReadDimension(entity) : ReadEntityFields(entity);
        } else {
            m_lines.Report(6, "%s - Unknown Object Type Name (%d)", {TextOf(typeName)});
            m_lines.SkipUnknown();
            return;
        }
        if (!ended)
            m_lines.Report(5, "ReadENTITIES_" + typeName + "() Failed to read line, Line:%d", {});
    }

    bool ReadEntityFields(PlainRecord& entity)
    {
        const std::string message =
            "ReadENTITIES_" + entity.kind->Name() + " Failed to read integer from '%s', Line:%d";
        while (!m_lines.IsAtEnd()) {
            std::int32_t code;
            if (!m_lines.Code(code, message))
                return false;
            if (code == 0)
                return true;
            const std::string line = m_lines.Line();
            if (const int field = entity.kind->Find(code, true); field >= 0)
                entity.Store(field, line, m_lines);
            else
                StoreShared(entity, code, line);
        }
        return false;
    }

    void StoreShared(PlainRecord& entity, std::int32_t code, const std::string& line)
    {
        if (const int field = entity.kind->Find(code, false); field >= 0)
            entity.Store(field, line, m_lines);
        else
            m_lines.Report(7, "ReadENTITIES_COMMON Unknown Dimension type %s ('%s' = '%s') Line:%d",
                           {entity.Value("m_strSubclass"), std::to_string(code), TextOf(Trimmed(line))}, 1);
    }

    // Dimensions.

    bool ReadDimension(PlainRecord& dimension)
    {
        while (!m_lines.IsAtEnd()) {
            std::int32_t code;
            if (!m_lines.Code(code, "ReadENTITIES_DIMENSION Failed to read integer from '%s', Line:%d"))
                return false;
            const std::string line = m_lines.Line();
            if (code != 100) {
                StoreShared(dimension, code, line);
                continue;
            }
            for (std::string marker(Trimmed(line)); ReadPart(dimension, marker);) {
            }
            return true;
        }
        return false;
    }

    // True when a further marker has been met, which marker is then.
    bool ReadPart(PlainRecord& dimension, std::string& marker)
    {
        const PlainKind* const kind = PartKind(marker);
        if (kind == nullptr) {
            m_lines.Report(8, "ReadENTITIES_DIMENSION_SWITCH() Unknown Dimension type '%s', Line:%d",
                           {TextOf(marker)});
            return false;
        }
        PlainRecord& part = dimension.inner.emplace_back(*kind);
        const bool stepsOverStyles =
            marker == "AcDbRotatedDimension" || marker == "AcDb2LineAngularDimension";
        while (!m_lines.IsAtEnd()) {
            std::int32_t code;
            if (!m_lines.Code(code, "Read_UNKNOWN() Failed to read integer from '%s', Line:%d") || code == 0)
                return false;
            const std::string line = m_lines.Line();
            if (code == 100) {
                marker = Trimmed(line);
                return true;
            }
            if (code == 1000 && stepsOverStyles && Trimmed(line) == "DSTYLE")
                SkipStyles();
            else if (const int field = kind->Find(code, true); field >= 0)
                part.Store(field, line, m_lines);
        }
        return false;
    }

    void SkipStyles()
    {
        const std::string line = m_lines.TrimmedLine();
        if (line != "1002") {
            m_lines.Report(9, "ReadENTITIES_DIMENSION() DSTYLE 1002 not found '%s', Line:%d", {TextOf(line)});
            m_lines.Line();
            return;
        }
        m_lines.Line();
        if (m_lines.SkipTo("1002"))
            m_lines.Line();
    }
    // Callbacks.

    void Emit()
    {
        const auto holdsInsert = [](const PlainRecord& block) {
            return std::any_of(block.inner.begin(), block.inner.end(),
                               [](const PlainRecord& entity) { return entity.kind->Name() == "INSERT"; });
        };
        for (const bool nested : {false, true})
            for (const PlainRecord& block : m_blocks)
                if (holdsInsert(block) == nested) {
                    m_lines.Call("OnBlockBegin", block.Value("m_strName"));
                    EmitEntities(block.inner);
                    m_lines.Call("OnBlockEnd", block.Value("m_strName"));
                }
        EmitEntities(m_entities);
    }

    void EmitEntities(const Records& entities)
    {
        static const std::map<std::string_view, std::string_view> kCallbacks = {
            {"LINE", "OnLine"},
            {"ARC", "OnArc"},
            {"CIRCLE", "OnCircle"},
            {"ELLIPSE", "OnEllipse"},
            {"LWPOLYLINE", "OnLWPolyline"},
            {"TEXT", "OnText"},
            {"MTEXT", "OnMText"},
            {"INSERT", "OnInsert"},
            {"DIMENSION", "OnDimension"}};
        for (const PlainRecord& entity : entities)
            m_lines.Call(kCallbacks.at(entity.kind->Name()), entity.Value("m_strLayer"));
    }

    PlainLines m_lines;
    Records m_tables;
    Records m_blocks;
    Records m_entities;
};

} // namespace

std::string ReadPlainly(std::string_view bytes)
{
    return PlainReader(bytes).Read();
}
