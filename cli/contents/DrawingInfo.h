// What a drawing's file holds, counted.
#pragma once

#include "cli/contents/Differences.h"
#include "cli/contents/Header.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plexorn {

// Things with names, in the order in which they came; the first one of a name is the one that counts.
template <class Thing>
class Named {
public:
    // The thing of that name; a new one if the name is new.
    Thing& operator[](std::string_view name)
    {
        // Neighbours often share a layer or a type.
        if (m_last < m_things.size() && m_things[m_last].name == name)
            return m_things[m_last];
        auto found = m_places.find(name);
        if (found == m_places.end()) {
            found = m_places.emplace(std::string(name), m_things.size()).first;
            m_things.emplace_back().name = name;
        }
        m_last = found->second;
        return m_things[m_last];
    }

    auto begin() const { return m_things.begin(); }
    auto end() const { return m_things.end(); }
    // The place of a thing that operator[] gave, until the next new name.
    std::size_t PlaceOf(const Thing& thing) const
    {
        return static_cast<std::size_t>(&thing - m_things.data());
    }
    std::size_t Count() const { return m_things.size(); }

private:
    std::vector<Thing> m_things;
    std::size_t m_last = 0;
    // Ordered: a file can choose names that all meet in one place of a hash table.
    std::map<std::string, std::size_t, std::less<>> m_places;
};

struct LayerInfo {
    std::string name;
    bool isDefined = false; // whether the LAYER table has it
    int colour = 0;         // negative: off
    int flags = 0;
    std::string lineType;
    int weight = 0;
    std::uint64_t entities = 0;

    bool IsOff() const { return colour < 0; }
    bool IsFrozen() const { return (flags & 1) != 0; }
};

struct LineTypeInfo {
    std::string name;
    bool isDefined = false; // whether the LTYPE table has it
    std::string description;
    std::uint64_t dashes = 0;
    double length = 0;
    std::uint64_t entities = 0; // those that name it themselves
};

// The entities of a type that belong in the picture.
struct TypeCount {
    std::uint64_t shown = 0;
    std::uint64_t missing = 0;
};

// What a part of the drawing, its ENTITIES section or a block, brings to the picture.
struct PartCounts {
    std::map<std::size_t, TypeCount> types; // by the type's place among DrawingInfo::types
    DifferenceCounts otherwise{};
    // The blocks that are inserted, by their places among DrawingInfo::blocks, and how many of the inserts
    // are meant to show something.
    std::map<std::size_t, std::uint64_t> inserts;
};

struct BlockInfo {
    std::string name;
    std::uint64_t definitions = 0; // the first one is drawn
    std::uint64_t line = 0;        // of the first definition
    std::uint64_t entities = 0;    // in all of them
    std::uint64_t inserts = 0;
    PartCounts counts; // of the first definition
};

struct TypeInfo {
    std::string name;
    std::uint64_t inDrawing = 0;
    std::uint64_t inBlocks = 0;
    std::uint64_t line = 0; // of the first one's name
};

struct TextInfo {
    std::string type;
    std::string layer;
    std::string block; // empty in the ENTITIES section
    std::string text;  // as the file has it, with its codes
    std::uint64_t line = 0;
    // Unless the drawing is shown as it is: what the text says, with line feeds, and where it is, in the
    // coordinates of the drawing or the block.
    std::string words;
    std::optional<HeaderPoint> place;
};

struct DrawingInfo {
    std::uint64_t bytes = 0;
    std::uint64_t lines = 0;
    Header header;
    Named<LayerInfo> layers;
    Named<LineTypeInfo> lineTypes;
    Named<BlockInfo> blocks;
    Named<TypeInfo> types;
    std::vector<TextInfo> texts;
    PartCounts counts;                // of the ENTITIES section
    std::uint64_t hiddenEntities = 0; // by their own flag
    std::uint64_t paperEntities = 0;  // in the paper space, outside of blocks
    std::uint64_t sheetEntities = 0;  // to be seen on the sheets of the paper space, without their windows
    std::uint64_t oddLines = 0;       // that should hold a group code and do not
    std::uint64_t firstOddLine = 0;
    std::uint64_t otherTexts = 0;     // pieces of text that are not UTF-8
    std::uint64_t firstOtherText = 0; // the line of the first one
    std::uint64_t unmarkedEntry = 0;  // the line of the first one that needs a marker and has none
    bool isEnded = false;             // whether the file ends with its EOF

    std::uint64_t EntitiesOnHiddenLayers() const
    {
        std::uint64_t count = 0;
        for (const LayerInfo& layer : layers)
            count += layer.IsOff() || layer.IsFrozen() ? layer.entities : 0;
        return count;
    }
};

} // namespace plexorn
