// Counts what a drawing's file holds.
#pragma once

#include "prepare/drawing/Drawing.h"
#include "prepare/report/Report.h"

namespace prepare {

// Adds an entity of the model or of a paper space.
void CountEntity(const Entity& entity, Contents& contents);

// Counts entities and passes them on.
class EntityCounter final : public EntitySink {
public:
    explicit EntityCounter(EntitySink* next = nullptr) : m_next(next) {}

    void Take(const Entity& entity) override
    {
        CountEntity(entity, contents);
        if (m_next != nullptr)
            m_next->Take(entity);
    }

    Contents contents;

private:
    EntitySink* m_next;
};

// Adds what is known of the whole drawing: its header, its end, its types of entities, and what blocks hold.
// What is in the blocks of layouts is in the model or in a paper space.
void CountRest(const Drawing& drawing, Contents& contents);

} // namespace prepare
