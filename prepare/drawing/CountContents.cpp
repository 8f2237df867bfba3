#include "prepare/drawing/CountContents.h"

#include <algorithm>

namespace prepare {

namespace {

void CountAnywhere(const Entity& entity, Contents& contents)
{
    ++contents.entities;
    contents.invisible += entity.isInvisible == 1;
    contents.masks += entity.type == EntityType::Wipeout;
}

std::vector<TypeContents> TypesOf(const Drawing& drawing)
{
    std::vector<TypeContents> types;
    types.reserve(drawing.types.size());
    for (const auto& [name, count] : drawing.types)
        types.push_back(
            {std::string(drawing.names.Text(name)), count.inDrawing, count.inBlocks, count.firstLine});
    std::sort(types.begin(), types.end(),
              [](const TypeContents& a, const TypeContents& b) { return a.firstLine < b.firstLine; });
    return types;
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
    contents.hasSkippedLines = drawing.hasSkippedLines;
    contents.codePage = drawing.header.Text("$DWGCODEPAGE");
    contents.units = drawing.header.Text("$INSUNITS");
    contents.measurement = drawing.header.Text("$MEASUREMENT");
    contents.types = TypesOf(drawing);
    for (const auto& [name, block] : drawing.blocks) {
        if (block->isLayout)
            continue;
        contents.inBlocks += block->entities.size();
        for (const std::unique_ptr<Entity>& entity : block->entities)
            CountAnywhere(*entity, contents);
    }
}

} // namespace prepare
