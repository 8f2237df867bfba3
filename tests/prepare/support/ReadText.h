// Drawings read from text.
#pragma once

#include "input/CDxfMemory.h"
#include "prepare/drawing/ReadDrawing.h"
#include "support/Dxf.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace prepare {

// A drawing as ReadIndex gives it, with the entities that went to the sink as "TYPE layer;", those of the
// paper space with a '*'.
struct ReadDrawingOf final : EntitySink {
    explicit ReadDrawingOf(const std::string& text, std::string_view encoding = {})
    {
        CDxfMemory memory(text);
        hasGivenAll = ReadIndex(memory, encoding, drawing, this, report, hasFailed);
    }

    void Take(const Entity& entity) override { entities += Name(entity); }

    std::string Name(const Entity& entity) const
    {
        return std::string(drawing.names.Text(entity.typeName)) + (entity.isInPaperSpace != 0 ? "* " : " ") +
               std::string(drawing.names.Text(entity.layer)) + ";";
    }
    // "detail at its first line, how often" of a finding; empty when there is none.
    std::string Found(Finding finding, const std::string& subject) const
    {
        std::string all;
        for (const auto& [key, count] : report.Entries())
            if (key.finding == finding && key.subject == subject)
                all += key.detail + " at " + std::to_string(count.firstLine) + ", " +
                       std::to_string(count.count) + ";";
        return all;
    }
    NameId Id(std::string_view name) const { return drawing.names.Find(name); }

    Drawing drawing;
    Report report;
    std::string entities;
    bool hasGivenAll = false;
    bool hasFailed = false;
};

// The entities of a block; the first one is the one that is looked at.
class ReadBlock {
public:
    explicit ReadBlock(std::initializer_list<Group> pairs)
        : read(Dxf({{0, "SECTION"}, {2, "BLOCKS"}, {0, "BLOCK"}, {2, "B"}}) + Dxf(pairs) +
               Dxf({{0, "ENDBLK"}, {0, "ENDSEC"}, {0, "EOF"}}))
    {
    }

    std::size_t Count() const { return Entities().size(); }
    template <class Record>
    const Record& As() const
    {
        const auto* const record = Count() == 0 ? nullptr : dynamic_cast<const Record*>(Entities()[0].get());
        static const Record kNone;
        EXPECT_NE(record, nullptr);
        return record == nullptr ? kNone : *record;
    }
    const std::vector<std::unique_ptr<Entity>>& Entities() const
    {
        return read.drawing.FindBlock(read.Id("B"))->entities;
    }
    std::string Text(NameId name) const { return std::string(read.drawing.names.Text(name)); }

    ReadDrawingOf read;
};

} // namespace prepare
