#include "PlainReading.h"

#include "PlainRecords.h"

#include "reader/CodePage.h"
#include "support/NumbersModel.h"
#include "support/RecordingHost.h"
#include "support/StreamModel.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <iterator>
#include <map>
#include <vector>

namespace {

std::string TextOf(std::string_view narrow)
{
    std::wstring wide(narrow.size(), L'\0');
    wide.resize(ToWide(narrow, wide.data()));
    return ToTraceText(wide);
}

template <class Number>
std::string TextOfNumber(Number number)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof(digits), number).ptr};
}

std::string_view Trimmed(std::string_view text)
{
    const char* const blanks = " \t\n\v\f\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

struct PLAIN_RECORD {
    explicit PLAIN_RECORD(const PlainKind& itsKind) : kind(&itsKind)
    {
        for (const PLAIN_FIELD& field : itsKind.Fields())
            values.push_back(field.initial);
    }

    const std::string& Value(std::string_view name) const
    {
        std::size_t i = 0;
        while (kind->Fields()[i].name != name)
            ++i;
        return values[i];
    }

    const PlainKind* kind;
    std::vector<std::string> values; // as texts show them
    std::string pendingX = "0";
    std::vector<PLAIN_RECORD> inner; // parts of a dimension, entries of a table, entities of a block
};

// A line for each field in the order of the record.
std::string Listed(const PLAIN_RECORD& record)
{
    std::string text;
    for (std::size_t i = 0; i < record.values.size(); ++i) {
        const PLAIN_FIELD& field = record.kind->Fields()[i];
        const bool isCount = field.name == "m_parts" || field.name == "m_entries";
        const std::string value = isCount ? std::to_string(record.inner.size()) : record.values[i];
        if (!field.name.empty())
            text += field.name + (field.isText ? "=\"" + value + "\"\n" : "=" + value + '\n');
    }
    return text;
}

// A line for each field in the order of the alphabet, without quotes.
std::string Sorted(const PLAIN_RECORD& record, std::map<std::string, std::string> fields = {})
{
    for (std::size_t i = 0; i < record.values.size(); ++i)
        fields.emplace(record.kind->Fields()[i].name, record.values[i]);
    std::string text;
    for (const auto& [name, value] : fields)
        text.append(name).append("=").append(value).append("\n");
    return text;
}

std::string EntityText(const PLAIN_RECORD& entity)
{
    std::string text = Listed(entity);
    for (const PLAIN_RECORD& part : entity.inner)
        text += Sorted(part, {{"m_nPartKind", part.kind->Kind()}, {"part", part.kind->Name().substr(4)}});
    return text;
}

class PlainReader {
public:
    explicit PlainReader(std::string_view bytes) : m_lines(bytes) {}

    std::string Read()
    {
        ReadSections();
        Emit();
        std::string text = m_calls + LineCountLine(m_lineCount);
        for (const PLAIN_RECORD& table : m_tables) {
            text += Listed(table);
            for (const PLAIN_RECORD& entry : table.inner)
                text += Listed(entry);
        }
        for (const PLAIN_RECORD& block : m_blocks) {
            text += Sorted(block);
            for (const PLAIN_RECORD& entity : block.inner)
                text += EntityText(entity);
        }
        for (const PLAIN_RECORD& entity : m_entities)
            text += EntityText(entity);
        return text;
    }

private:
    using RECORDS = std::vector<PLAIN_RECORD>;

    // Lines.

    bool IsAtEnd() const { return m_lines.eof(); }

    std::string Line()
    {
        const std::string line(m_lines.getline());
        ++m_lineCount;
        if (m_lines.WasCut())
            Report(10, "CDxfRead Line longer than 1023 characters cut, Line:%d", {});
        return line;
    }

    std::string TrimmedLine() { return std::string(Trimmed(Line())); }

    // A group code; false after the message when the line holds none.
    bool Code(std::int32_t& code, std::string_view message)
    {
        const std::string line = Line();
        code = -1;
        if (ModelCode(line, code))
            return true;
        Report(3, message, {TextOf(Trimmed(line))});
        return false;
    }

    // Messages: "%s" stands for the next of the texts, "%d" for the number of lines read.
    void Report(int kind, std::string_view format, std::initializer_list<std::string> texts, int code = 0)
    {
        std::string message;
        auto next = texts.begin();
        for (std::size_t i = 0; i < format.size(); ++i) {
            if (format[i] != '%')
                message += format[i];
            else
                message += format[++i] == 's' ? *next++ : std::to_string(m_lineCount);
        }
        m_calls += CallbackLine("OnError", std::to_string(code) + " " + std::to_string(kind) + " " + message);
    }

    // Sections.

    void ReadSections()
    {
        std::string line = TrimmedLine();
        while (!IsAtEnd() && line != "EOF") {
            if (line == "0" && TrimmedLine() == "SECTION" && TrimmedLine() == "2")
                ReadSection(TrimmedLine());
            line = TrimmedLine();
        }
    }

    void ReadSection(const std::string& name)
    {
        if (name == "HEADER" || name == "CLASSES" || name == "OBJECTS" || name == "THUMBNAILIMAGE") {
            Line();
            SkipTo("ENDSEC");
        } else if (name == "TABLES") {
            if (TrimmedLine() != "0" || TrimmedLine() != "TABLE")
                SkipTo("ENDSEC");
            else
                ReadTables();
        } else if (name == "BLOCKS") {
            Line();
            ReadBlocks();
        } else if (name == "ENTITIES") {
            Line();
            std::string typeName = TrimmedLine();
            do {
                if (typeName == "ENDSEC")
                    return;
                ReadEntity(typeName, m_entities);
                typeName = TrimmedLine();
            } while (!IsAtEnd());
        } else {
            Report(2, "%s - Unknown Section Name Line (%d)", {TextOf(name)});
        }
    }

    // Every line is compared.
    void SkipTo(std::string_view word)
    {
        while (!IsAtEnd())
            if (TrimmedLine() == word)
                return;
    }

    // Pairs up to a code 0.
    bool SkipPairs(std::string_view message)
    {
        while (!IsAtEnd()) {
            std::int32_t code;
            if (!Code(code, message))
                return false;
            if (code == 0)
                return true;
            Line();
        }
        return false;
    }

    bool SkipUnknown() { return SkipPairs("Read_UNKNOWN() Failed to read integer from '%s', Line:%d"); }

    // Fields.

    void Store(PLAIN_RECORD& record, int index, const std::string& line)
    {
        const PLAIN_FIELD& field = record.kind->Fields()[static_cast<std::size_t>(index)];
        std::string& value = record.values[static_cast<std::size_t>(index)];
        const std::string_view trimmed = Trimmed(line);
        switch (field.conversion) {
        case PLAIN_CONVERSION::None:
            break;
        case PLAIN_CONVERSION::Real:
            value = TextOfNumber(ModelReal(trimmed));
            break;
        case PLAIN_CONVERSION::Integer:
            value = TextOfNumber(ModelInteger(trimmed));
            break;
        case PLAIN_CONVERSION::IntegerAsReal:
            value = TextOfNumber(static_cast<double>(ModelInteger(trimmed)));
            break;
        case PLAIN_CONVERSION::Text:
            value = TextOf(trimmed);
            break;
        case PLAIN_CONVERSION::RawText:
            value = TextOf(line);
            break;
        case PLAIN_CONVERSION::Group:
            value += TextOf(trimmed);
            ReadGroup(value, std::to_string(field.firstCode));
            break;
        case PLAIN_CONVERSION::PendingX:
            record.pendingX = TextOfNumber(ModelReal(trimmed));
            break;
        case PLAIN_CONVERSION::Vertex:
            value += "(" + record.pendingX + "," + TextOfNumber(ModelReal(trimmed)) + ")";
            break;
        case PLAIN_CONVERSION::Dash:
            value += "(" + TextOfNumber(ModelReal(trimmed)) + ")";
            break;
        }
    }

    void ReadGroup(std::string& value, std::string_view code)
    {
        while (!IsAtEnd()) {
            const std::string line = TrimmedLine();
            if (line != code)
                value += TextOf("\n") + TextOf(line);
            else if (TrimmedLine() == "}")
                return;
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
            if (IsAtEnd() || !Code(code, "ReadTABLES() Failed to read integer from '%s' Line:%d"))
                return false;
            const std::string line = Line();
            if (code == 0) {
                typeName = Trimmed(line);
                if (typeName == "ENDTAB")
                    return TrimmedLine() == "0" ? FollowsTable() : (Line(), false);
                isEntry = true;
            } else if (const int field = TableKind().Find(code, true); field >= 0) {
                Store(m_tables[number], field, line);
            }
        }
        while (ReadEntry(m_tables[number].inner, typeName)) {
        }
        return TrimmedLine() == "0" && FollowsTable();
    }

    // Behind the "0" that follows a table.
    bool FollowsTable()
    {
        const std::string line = TrimmedLine();
        if (line != "TABLE" && line != "ENDSEC")
            Line();
        return line == "TABLE";
    }

    // True when another entry follows, whose name typeName is then.
    bool ReadEntry(RECORDS& entries, std::string& typeName)
    {
        const PlainKind* const kind = EntryKind(typeName);
        if (kind == nullptr) {
            constexpr std::string_view kSkipped[] = {"APPID", "DIMSTYLE", "STYLE", "UCS", "VIEW", "VPORT"};
            if (std::find(std::begin(kSkipped), std::end(kSkipped), typeName) == std::end(kSkipped))
                Report(4, "ReaTABLES_COMMON() Unknown table name '%s', Line:%d", {TextOf(typeName)});
            SkipTo("ENDTAB");
            return false;
        }
        PLAIN_RECORD& entry = entries.emplace_back(*kind);
        while (!IsAtEnd()) {
            std::int32_t code;
            if (!Code(code, "ReaTABLES_COMMON() Failed to read integer from '%s', Line:%d"))
                return false;
            const std::string line = Line();
            if (const int field = kind->Find(code, false); field >= 0)
                Store(entry, field, line);
            if (code != 100)
                continue;
            ReadOwnFields(entry);
            typeName = TrimmedLine();
            return typeName != "ENDTAB";
        }
        return false;
    }

    void ReadOwnFields(PLAIN_RECORD& entry)
    {
        const std::string message =
            "ReaTABLES_" + entry.kind->Name() + "() Failed to read integer from '%s', Line:%d";
        while (!IsAtEnd()) {
            std::int32_t code;
            if (!Code(code, message) || code == 0)
                return;
            const std::string line = Line();
            if (const int field = entry.kind->Find(code, true); field >= 0)
                Store(entry, field, line);
        }
    }

    // Blocks.

    void ReadBlocks()
    {
        std::string name = TrimmedLine();
        while (!IsAtEnd() && name != "ENDSEC") {
            if (name != "BLOCK") {
                Report(6, "%s - Unknown Object Type Name (%d)", {TextOf(name)});
                SkipUnknown();
            } else if (PLAIN_RECORD block(BlockKind()); ReadBlockHeader(block)) {
                ReadBlockEntities(m_blocks.emplace_back(std::move(block)).inner);
            } else {
                Report(5, "ReadBLOCKS_BLOCK() Failed to read line, Line:%d", {});
            }
            name = TrimmedLine();
        }
    }

    bool ReadBlockHeader(PLAIN_RECORD& block)
    {
        while (!IsAtEnd()) {
            std::int32_t code;
            if (!Code(code, "ReadBLOCKS_BLOCK Failed to read integer from '%s', Line:%d"))
                return false;
            if (code == 0)
                return true;
            const std::string line = Line();
            if (const int field = BlockKind().Find(code, true); field >= 0)
                Store(block, field, line);
        }
        return false;
    }

    void ReadBlockEntities(RECORDS& entities)
    {
        static constexpr std::string_view kNames[] = {"3DFACE",    "3DSOLID",  "ACAD_PROXY_ENTITY",
                                                      "ARC",       "ATTDEF",   "ATTRIB",
                                                      "BODY",      "CIRCLE",   "DIMENSION",
                                                      "ELLIPSE",   "HATCH",    "HELIX",
                                                      "IMAGE",     "INSERT",   "LEADER",
                                                      "LIGHT",     "LINE",     "LWPOLYLINE",
                                                      "MESH",      "MLEADER",  "MLEADERSTYLE",
                                                      "MLINE",     "MTEXT",    "OLEFRAME",
                                                      "OLE2FRAME", "POINT",    "POLYLINE",
                                                      "RAY",       "REGION",   "SECTION",
                                                      "SEQEND",    "SHAPE",    "SOLID",
                                                      "SPLINE",    "SUN",      "SURFACE",
                                                      "TABLE",     "TEXT",     "TOLERANCE",
                                                      "TRACE",     "UNDERLAY", "VERTEX",
                                                      "VIEWPORT",  "WIPEOUT",  "XLINE"};
        std::string name = TrimmedLine();
        while (!IsAtEnd()) {
            if (name == "ENDBLK") {
                SkipUnknown();
                return;
            }
            if (std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames))
                ReadEntity(name, entities);
            name = TrimmedLine();
        }
    }

    // Entities.

    void ReadEntity(const std::string& typeName, RECORDS& entities)
    {
        const bool isSkipped = typeName == "POLYLINE" || typeName == "SPLINE" || typeName == "POINT";
        const bool isSkippedToo = typeName == "HATCH" || typeName == "VIEWPORT";
        bool ended;
        if (isSkipped || isSkippedToo) {
            ended = SkipPairs("ReadENTITIES_" + typeName + (isSkipped ? "" : "()") +
                              " Failed to read integer from '%s', Line:%d");
        } else if (const PlainKind* const kind = EntityKind(typeName)) {
            PLAIN_RECORD& entity = entities.emplace_back(*kind);
            ended = typeName == "DIMENSION" ? ReadDimension(entity) : ReadEntityFields(entity);
        } else {
            Report(6, "%s - Unknown Object Type Name (%d)", {TextOf(typeName)});
            SkipUnknown();
            return;
        }
        if (!ended)
            Report(5, "ReadENTITIES_" + typeName + "() Failed to read line, Line:%d", {});
    }

    bool ReadEntityFields(PLAIN_RECORD& entity)
    {
        const std::string message =
            "ReadENTITIES_" + entity.kind->Name() + " Failed to read integer from '%s', Line:%d";
        while (!IsAtEnd()) {
            std::int32_t code;
            if (!Code(code, message))
                return false;
            if (code == 0)
                return true;
            const std::string line = Line();
            if (const int field = entity.kind->Find(code, true); field >= 0)
                Store(entity, field, line);
            else
                StoreShared(entity, code, line);
        }
        return false;
    }

    void StoreShared(PLAIN_RECORD& entity, std::int32_t code, const std::string& line)
    {
        if (const int field = entity.kind->Find(code, false); field >= 0)
            Store(entity, field, line);
        else
            Report(7, "ReadENTITIES_COMMON Unknown Dimension type %s ('%s' = '%s') Line:%d",
                   {entity.Value("m_strSubclass"), std::to_string(code), TextOf(Trimmed(line))}, 1);
    }

    // Dimensions.

    bool ReadDimension(PLAIN_RECORD& dimension)
    {
        while (!IsAtEnd()) {
            std::int32_t code;
            if (!Code(code, "ReadENTITIES_DIMENSION Failed to read integer from '%s', Line:%d"))
                return false;
            const std::string line = Line();
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
    bool ReadPart(PLAIN_RECORD& dimension, std::string& marker)
    {
        const PlainKind* const kind = PartKind(marker);
        if (kind == nullptr) {
            Report(8, "ReadENTITIES_DIMENSION_SWITCH() Unknown Dimension type '%s', Line:%d",
                   {TextOf(marker)});
            return false;
        }
        PLAIN_RECORD& part = dimension.inner.emplace_back(*kind);
        const bool stepsOverStyles =
            marker == "AcDbRotatedDimension" || marker == "AcDb2LineAngularDimension";
        while (!IsAtEnd()) {
            std::int32_t code;
            if (!Code(code, "Read_UNKNOWN() Failed to read integer from '%s', Line:%d") || code == 0)
                return false;
            const std::string line = Line();
            if (code == 100) {
                marker = Trimmed(line);
                return true;
            }
            if (code == 1000 && stepsOverStyles && Trimmed(line) == "DSTYLE")
                SkipStyles();
            else if (const int field = kind->Find(code, true); field >= 0)
                Store(part, field, line);
        }
        return false;
    }

    void SkipStyles()
    {
        const std::string line = TrimmedLine();
        if (line == "1002") {
            Line();
            SkipTo("1002");
        } else {
            Report(9, "ReadENTITIES_DIMENSION() DSTYLE 1002 not found '%s', Line:%d", {TextOf(line)});
        }
        Line();
    }

    // Callbacks.

    void Emit()
    {
        const auto holdsInsert = [](const PLAIN_RECORD& block) {
            return std::any_of(block.inner.begin(), block.inner.end(),
                               [](const PLAIN_RECORD& entity) { return entity.kind->Name() == "INSERT"; });
        };
        for (const bool nested : {false, true})
            for (const PLAIN_RECORD& block : m_blocks)
                if (holdsInsert(block) == nested) {
                    m_calls += CallbackLine("OnBlockBegin", block.Value("m_strName"));
                    EmitEntities(block.inner);
                    m_calls += CallbackLine("OnBlockEnd", block.Value("m_strName"));
                }
        EmitEntities(m_entities);
    }

    void EmitEntities(const RECORDS& entities)
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
        for (const PLAIN_RECORD& entity : entities)
            m_calls += CallbackLine(kCallbacks.at(entity.kind->Name()), entity.Value("m_strLayer"));
    }

    StreamModel m_lines;
    long long m_lineCount = 0;
    std::string m_calls; // a line each
    RECORDS m_tables;
    RECORDS m_blocks;
    RECORDS m_entities;
};

} // namespace

std::string ReadPlainly(std::string_view bytes)
{
    return PlainReader(bytes).Read();
}

std::string CallbackLine(std::string_view callback, std::string_view text)
{
    return std::string(callback).append(" ").append(text).append("\n");
}

std::string LineCountLine(long long lines)
{
    return "lines=" + std::to_string(lines) + "\n";
}
