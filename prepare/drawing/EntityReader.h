// Reads entities into records.
#pragma once

#include "prepare/drawing/ReadEntityFields.h"
#include "prepare/drawing/RecordReader.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace prepare {

// Reads one entity after another, a POLYLINE with its vertices and an INSERT with its attributes.
class EntityReader {
public:
    // reader must outlive this.
    explicit EntityReader(RecordReader& reader) : m_reader(reader) {}

    // The number of the type's name in the current pair.
    NameId TypeName()
    {
        const std::string_view word = m_reader.Word();
        return m_reader.drawing.names.OfWord(word.empty() ? kNoTypeName : word);
    }
    EntityType TypeOf(NameId id);

    // Reads the entity that begins with the current pair, up to the next record that is not a part of it, and
    // counts it by its type. name is that of TypeName. Null for an entity that is a part of another one.
    std::unique_ptr<Entity> Read(NameId name, bool isInBlock);

private:
    std::unique_ptr<Entity> ReadOne(NameId name);
    void ReadVertices(Polyline& polyline);
    void ReadAttributes(Insert& insert);
    void StepOverEnd();
    void Count(NameId name, std::uint64_t line);
    void PlaceInSpace(Entity& entity);
    bool NextIs(EntityType type);
    void KnowFault(Entity& entity);

    RecordReader& m_reader;
    std::vector<std::uint8_t> m_types; // by NameId: the type and 1, or 0 while it is not known
    bool m_isInBlock = false;
    NameId m_lastName = kNoName;
    TypeCount* m_lastCount = nullptr; // of that name
    Handle m_lastOwner = 0;
    enum class Space : std::uint8_t { Unknown, Model, Paper } m_lastSpace = Space::Unknown;
};

// True for the names of the blocks of the layouts, in new and old files.
bool IsModelSpaceName(std::string_view name);
bool IsPaperSpaceName(std::string_view name);

} // namespace prepare
