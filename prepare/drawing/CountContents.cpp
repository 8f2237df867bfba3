#include "prepare/drawing/CountContents.h"

namespace prepare {

namespace {

void CountAnywhere(const Entity& entity, Contents& contents)
{
    ++contents.entities;
    contents.invisible += entity.isInvisible == 1;
    contents.masks += entity.type == EntityType::Wipeout;
}

} // namespace

void CountEntity(const Entity& entity, Contents& contents)
{
    CountAnywhere(entity, contents);
    if (entity.isInPaperSpace == 0)
        return;
    ++contents.inPaperSpace;
    contents.onSheets += entity.isInvisible != 1 && entity.type != EntityType::Viewport;
}

void CountRest(const Drawing& drawing, Contents& contents)
{
    contents.isEnded = drawing.isEnded;
    contents.units = drawing.header.Text("$INSUNITS");
    contents.measurement = drawing.header.Text("$MEASUREMENT");
    for (const auto& [name, block] : drawing.blocks) {
        if (block->isLayout)
            continue;
        contents.inBlocks += block->entities.size();
        for (const std::unique_ptr<Entity>& entity : block->entities)
            CountAnywhere(*entity, contents);
    }
}

} // namespace prepare
