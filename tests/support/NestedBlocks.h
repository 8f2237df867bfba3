// Drawings whose blocks refer to each other in ways that would never end, or take very long, if somebody
// followed the references.
#pragma once

#include <string>
#include <string_view>

// A block with as many inserts of one other block as asked for.
std::string BlockOf(std::string_view name, std::string_view inserted, int inserts);

// Block "A" inserts itself; one INSERT of it is in the drawing.
std::string SelfInsertingBlock();

// "A" inserts "B", which inserts "A"; both are in the drawing.
std::string MutuallyInsertingBlocks();

// Blocks "0" to count - 1, each with one insert of the next one; the last one's target is not defined. They
// are in that order or in the opposite one. The first is in the drawing.
std::string ChainOfBlocks(int count, bool backward);

// Levels of blocks, "1" the lowest: each holds so many inserts of the one below it. The highest is in the
// drawing, which thus shows inserts to the power of levels lowest blocks.
std::string TowerOfBlocks(int levels, int inserts);
