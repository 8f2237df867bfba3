#include "prepare/drawing/EntityReader.h"

#include "base/Letters.h"
#include "prepare/drawing/EntityFields.h"

#include <algorithm>

namespace prepare {

namespace {

// A VERTEX while it is read.
struct VertexRecord : EntityOf<EntityType::Vertex> {
    PolylineVertex vertex;
};

Point3& PointOf(VertexRecord& record)
{
    return record.vertex.point;
}

template <double PolylineVertex::*member>
void ReadReal(RecordReader& reader, VertexRecord& record, CDxfLine value)
{
    record.vertex.*member = reader.Real(value);
}

void ReadFlags(RecordReader& reader, VertexRecord& record, CDxfLine value)
{
    record.vertex.flags = reader.Integer(value);
}

template <std::size_t number>
void ReadCorner(RecordReader& reader, VertexRecord& record, CDxfLine value)
{
    record.vertex.corners[number] = reader.Integer(value);
}

constexpr auto kVertex = EntityFields<VertexRecord>({
    {10, PointOf},
    {40, ReadReal<&PolylineVertex::startWidth>},
    {41, ReadReal<&PolylineVertex::endWidth>},
    {42, ReadReal<&PolylineVertex::bulge>},
    {70, ReadFlags},
    {71, ReadCorner<0>},
    {72, ReadCorner<1>},
    {73, ReadCorner<2>},
    {74, ReadCorner<3>},
});

bool IsOneOf(std::string_view name, std::string_view newName, std::string_view oldName)
{
    const std::string upper = InCapitals(name.substr(0, newName.size()));
    return upper == newName || upper == oldName;
}

} // namespace

bool IsModelSpaceName(std::string_view name)
{
    return name.size() == 12 && IsOneOf(name, "*MODEL_SPACE", "$MODEL_SPACE");
}

bool IsPaperSpaceName(std::string_view name)
{
    return IsOneOf(name, "*PAPER_SPACE", "$PAPER_SPACE");
}

EntityType EntityReader::TypeOf(NameId id)
{
    constexpr std::uint8_t kUnknown = 0;
    if (id >= m_types.size())
        m_types.resize(m_reader.drawing.names.Count(), kUnknown);
    std::uint8_t& known = m_types[id];
    if (known == kUnknown)
        known =
            static_cast<std::uint8_t>(static_cast<int>(EntityTypeOf(m_reader.drawing.names.Text(id))) + 1);
    return static_cast<EntityType>(known - 1);
}

std::unique_ptr<Entity> EntityReader::Read(NameId name, bool isInBlock)
{
    m_isInBlock = isInBlock;
    std::unique_ptr<Entity> entity = ReadOne(name);
    if (entity->type == EntityType::SeqEnd)
        return nullptr;
    KnowFault(*entity);
    PlaceInSpace(*entity);
    if (entity->type == EntityType::Polyline)
        ReadVertices(static_cast<Polyline&>(*entity));
    else if (entity->type == EntityType::Insert)
        ReadAttributes(static_cast<Insert&>(*entity));
    return entity;
}

std::unique_ptr<Entity> EntityReader::ReadOne(NameId name)
{
    const std::uint64_t line = m_reader.Line() + 1;
    const EntityType type = TypeOf(name);
    Count(name, line);
    m_reader.phase = 0;
    std::unique_ptr<Entity> entity = ReadFunctionOf(type)(m_reader);
    entity->type = type;
    entity->typeName = name;
    entity->line = line;
    return entity;
}

// Entities of one type mostly follow each other.
void EntityReader::Count(NameId name, std::uint64_t line)
{
    if (m_lastCount == nullptr || name != m_lastName) {
        m_lastName = name;
        m_lastCount = &m_reader.drawing.types[name];
        if (m_lastCount->firstLine == 0 || line < m_lastCount->firstLine)
            m_lastCount->firstLine = line;
    }
    ++(m_isInBlock ? m_lastCount->inBlocks : m_lastCount->inDrawing);
}

// Reports what was repaired in an entity. What cannot be is reported where the entity would be drawn.
void EntityReader::KnowFault(Entity& entity)
{
    const std::string_view name = m_reader.drawing.names.Text(entity.typeName);
    if (m_reader.TakeIsCut())
        m_reader.Note(Finding::Cut, name, "more than 1,000,000 parts", entity.line);
    entity.fault = m_reader.TakeFault();
    if (entity.fault == Fault::None)
        m_reader.NoteWords(name, entity.line);
    else
        m_reader.TakeHasWord(); // nothing is drawn with it
}

// True when the next record is of that type; its first pair is unread.
bool EntityReader::NextIs(EntityType type)
{
    if (!m_reader.NextPair())
        return false;
    const bool is = TypeOf(TypeName()) == type;
    m_reader.Unread();
    return is;
}

void EntityReader::ReadVertices(Polyline& polyline)
{
    while (NextIs(EntityType::Vertex)) {
        m_reader.NextPair();
        const std::uint64_t line = m_reader.Line() + 1;
        VertexRecord record;
        record.line = line;
        record.typeName = TypeName();
        Count(record.typeName, line);
        record.vertex.startWidth = polyline.startWidth;
        record.vertex.endWidth = polyline.endWidth;
        m_reader.Read(record, kVertex);
        record.vertex.colour = record.colour;
        record.vertex.layer = record.layer;
        KnowFault(record);
        if (record.fault != Fault::None)
            m_reader.Note(Finding::Changed, "VERTEX", TextOf(record.fault), line);
        else if (polyline.vertices.size() < RecordReader::kMostElements)
            polyline.vertices.push_back(record.vertex);
        else
            m_reader.Note(Finding::Cut, "POLYLINE", "more than 1,000,000 parts", line);
    }
    if (NextIs(EntityType::SeqEnd))
        StepOverEnd();
    else
        m_reader.NoteMissingEnd("POLYLINE", "ends without SEQEND", polyline.line);
}

void EntityReader::StepOverEnd()
{
    m_reader.NextPair();
    Count(TypeName(), m_reader.Line() + 1);
    m_reader.SkipFields();
}

void EntityReader::ReadAttributes(Insert& insert)
{
    bool hasAny = insert.hasAttributes != 0;
    while (NextIs(EntityType::Attrib)) {
        hasAny = true;
        m_reader.NextPair();
        std::unique_ptr<Entity> attribute = ReadOne(TypeName());
        PlaceInSpace(*attribute);
        KnowFault(*attribute);
        if (insert.attributes.size() < RecordReader::kMostElements)
            insert.attributes.push_back(std::unique_ptr<Text>(static_cast<Text*>(attribute.release())));
    }
    if (hasAny && NextIs(EntityType::SeqEnd))
        StepOverEnd();
    else if (!insert.attributes.empty())
        m_reader.NoteMissingEnd("INSERT", "ends without SEQEND", insert.line);
}

// Code 67 says which space an entity is in; where it is missing, the owner or the layout does.
void EntityReader::PlaceInSpace(Entity& entity)
{
    const Drawing& drawing = m_reader.drawing;
    if (entity.owner != m_lastOwner) {
        m_lastOwner = entity.owner;
        const auto record = drawing.blockOfRecord.find(entity.owner);
        const std::string_view block =
            record != drawing.blockOfRecord.end() ? drawing.names.Text(record->second) : std::string_view();
        m_lastSpace = IsPaperSpaceName(block)   ? Space::Paper
                      : IsModelSpaceName(block) ? Space::Model
                                                : Space::Unknown;
    }
    if (m_lastSpace == Space::Paper)
        entity.isInPaperSpace = 1;
    else if (m_lastSpace == Space::Unknown && entity.layout != kNoName)
        entity.isInPaperSpace |= InCapitals(drawing.names.Text(entity.layout)) != "MODEL";
}

} // namespace prepare
