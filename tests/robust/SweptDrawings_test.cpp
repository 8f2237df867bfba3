// The drawings of the sweeps hold every kind of record and call for every operation and message, so that no
// fault is tried in vain.
#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "support/Callbacks.h"
#include "support/Sweep.h"

#include <gtest/gtest.h>

#include <set>

namespace {

// The kinds of entities in a list, and of the parts of its dimensions.
void AddKinds(const DXF_ENTITY_LIST& list, std::set<int>& entities, std::set<int>& parts)
{
    for (const DXF_GRAPHIC_BASE* const entity : list) {
        entities.insert(entity->m_nEntityType);
        if (entity->m_nEntityType == DXF_ENTITY_DIMENSION)
            for (const auto* const part : static_cast<const DXF_GRAPHIC_DIMENSION*>(entity)->m_parts)
                parts.insert(part->m_nPartKind);
    }
}

// What the calls of a trace create; each is at the start of a line.
void AddCreated(const std::string& trace, std::set<std::string>& created)
{
    constexpr std::string_view kCreate = "qlmCreate";
    for (std::size_t begin = 0; begin < trace.size(); begin = trace.find('\n', begin) + 1)
        if (trace.compare(begin, kCreate.size(), kCreate) == 0)
            created.insert(
                trace.substr(begin + kCreate.size(), trace.find('(', begin) - begin - kCreate.size()));
}

} // namespace

TEST(SweptDrawings, AreManyAndReachEveryReader)
{
    EXPECT_GE(SweptDrawings().size(), 20u);
    std::set<std::uint32_t> entries;
    std::set<int> entities, parts;
    for (const SweptDrawing& drawing : SweptDrawings()) {
        CallbackReader reader;
        reader.ReadText(drawing.bytes);
        for (const DXF_TABLES_HEADER* const table : reader.tables)
            for (const DXF_TABLES_COMMON* const entry : table->m_entries)
                entries.insert(entry->m_nTableKind);
        AddKinds(reader.entities, entities, parts);
        for (const DXF_BLOCKS_BLOCK* const block : reader.blocks)
            AddKinds(block->m_entities, entities, parts);
    }
    EXPECT_EQ(entries, (std::set<std::uint32_t>{DXF_TABLES_KIND_BLOCK_RECORD, DXF_TABLES_KIND_LAYER,
                                                DXF_TABLES_KIND_LTYPE}));
    EXPECT_EQ(entities, (std::set<int>{DXF_ENTITY_LINE, DXF_ENTITY_ARC, DXF_ENTITY_CIRCLE, DXF_ENTITY_ELLIPSE,
                                       DXF_ENTITY_LWPOLYLINE, DXF_ENTITY_TEXT, DXF_ENTITY_MTEXT,
                                       DXF_ENTITY_INSERT, DXF_ENTITY_DIMENSION}));
    EXPECT_EQ(parts, (std::set<int>{DXF_DIMENSION_PART_ENTITY, DXF_DIMENSION_PART_DIMENSION,
                                    DXF_DIMENSION_PART_ALIGNED, DXF_DIMENSION_PART_3POINT_ANGULAR,
                                    DXF_DIMENSION_PART_ROTATED, DXF_DIMENSION_PART_ORDINATE,
                                    DXF_DIMENSION_PART_RADIAL, DXF_DIMENSION_PART_DIAMETRIC,
                                    DXF_DIMENSION_PART_2LINE_ANGULAR}));
}

TEST(SweptDrawings, ReachEveryOperationThatCreatesAndEveryMessage)
{
    std::set<std::string> created;
    std::set<int> kinds;
    for (const SweptDrawing& drawing : SweptDrawings()) {
        const Outcome outcome = OutcomeOf(drawing.bytes);
        for (const auto* list : {&outcome.blocks, &outcome.entities})
            for (const std::string& drawn : *list)
                AddCreated(drawn, created);
        for (const Outcome::Message& message : outcome.messages)
            kinds.insert(std::stoi(message.text.substr(2)));
    }
    EXPECT_EQ(created, (std::set<std::string>{"Line", "Path", "Circle", "Ellipse", "Polyline", "Polygon",
                                              "Text", "Use", "Symbol", "G"}));
    EXPECT_EQ(kinds, (std::set<int>{2, 3, 4, 5, 6, 7, 8, 9, 10}));
}
