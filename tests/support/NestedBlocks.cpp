#include "support/NestedBlocks.h"

#include "support/Import.h"

namespace {

std::string InsertOf(std::string_view name)
{
    return Dxf({{0, "INSERT"}, {2, name}});
}

std::string Drawing(const std::string& blocks, const std::string& entities)
{
    return Section("BLOCKS", blocks) + Section("ENTITIES", entities) + Dxf({{0, "EOF"}});
}

} // namespace

std::string BlockOf(std::string_view name, std::string_view inserted, int inserts)
{
    std::string block = Dxf({{0, "BLOCK"}, {2, name}});
    for (int i = 0; i < inserts; ++i)
        block += InsertOf(inserted);
    return block + Dxf({{0, "ENDBLK"}});
}

std::string SelfInsertingBlock()
{
    return Drawing(BlockOf("A", "A", 1), InsertOf("A"));
}

std::string MutuallyInsertingBlocks()
{
    return Drawing(BlockOf("A", "B", 1) + BlockOf("B", "A", 1), InsertOf("A") + InsertOf("B"));
}

std::string ChainOfBlocks(int count, bool backward)
{
    std::string blocks;
    for (int i = 0; i < count; ++i) {
        const int name = backward ? count - 1 - i : i;
        blocks += BlockOf(std::to_string(name), std::to_string(name + 1), 1);
    }
    return Drawing(blocks, InsertOf("0"));
}

std::string TowerOfBlocks(int levels, int inserts)
{
    std::string blocks;
    for (int level = 1; level <= levels; ++level)
        blocks += BlockOf(std::to_string(level), std::to_string(level - 1), inserts);
    return Drawing(blocks, InsertOf(std::to_string(levels)));
}
