// A drawing's settings, tables and blocks: everything but the entities, which are streamed.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/drawing/Layout.h"
#include "prepare/drawing/Names.h"
#include "prepare/drawing/Point.h"
#include "prepare/drawing/ShiftJisGuess.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace prepare {

// A variable of the HEADER section: its values by group code, as texts of the file.
struct Variable {
    std::vector<std::pair<std::int32_t, std::string>> values;
};

class Header {
public:
    // Each gives the variable's value, or the value of otherwise when the header lacks it. names are like
    // "$LTSCALE".
    double Real(std::string_view name, double otherwise) const;
    std::int32_t Integer(std::string_view name, std::int32_t otherwise) const;
    std::string_view Text(std::string_view name) const; // empty when it is missing

    Variable& operator[](std::string_view name);

private:
    std::map<std::string, Variable, std::less<>> m_variables;
};

struct Layer {
    NameId name = kNoName;
    std::int32_t flags = 0;                  // 70: 1 frozen
    std::int32_t colour = 7;                 // 62; negative: off
    std::int32_t trueColour = kNoTrueColour; // 420
    NameId lineType = kNoName;               // 6
    std::int32_t weight = kDefaultWeight;    // 370
    std::int32_t isPlotted = 1;              // 290
    Handle handle = 0;
};

struct LineType {
    NameId name = kNoName;
    std::string description;
    std::vector<double> dashes; // 49: above 0 drawn, below 0 a gap, 0 a dot
    bool hasShapes = false;     // a 74 that is not 0
    Handle handle = 0;
};

struct TextStyle {
    NameId name = kNoName;
    Handle handle = 0;
    double height = 0;           // 40; 0: each text has its own
    double widthFactor = 1;      // 41
    double oblique = 0;          // 50
    std::int32_t generation = 0; // 71
    std::int32_t flags = 0;      // 70: 1 a file of shapes, 4 vertical
    std::string font;            // 3
    std::string bigFont;         // 4
};

// Values of a DIMSTYLE by group code, as texts of the file.
struct DimStyle {
    NameId name = kNoName;
    Handle handle = 0;
    std::vector<std::pair<std::int32_t, std::string>> values;
};

struct MultiLineStyle {
    struct Element {
        double offset = 0; // 49
        std::int32_t colour = kByLayer;
        std::int32_t trueColour = kNoTrueColour;
        NameId lineType = kNoName;
    };
    NameId name = kNoName;
    Handle handle = 0;
    // 70: 1 a fill, 2 joints, 16 a straight start cap, 32 and 64 round ones; 256 ... the end's
    std::int32_t flags = 0;
    std::int32_t fillColour = kByLayer;          // 62 before the elements
    std::int32_t fillTrueColour = kNoTrueColour; // 420
    double startAngle = 90;                      // 51
    double endAngle = 90;                        // 52
    std::vector<Element> elements;
};

struct Block {
    NameId name = kNoName;
    std::uint64_t line = 0;
    std::int32_t flags = 0; // 70: 4 an external reference, 8 its overlay
    Point3 base;            // 10
    std::string path;       // 1: of the external reference
    NameId layer = kNoName;
    Handle record = 0; // its BLOCK_RECORD: the owner of the BLOCK, or the record's own
    std::vector<std::unique_ptr<Entity>> entities;

    // The blocks *Model_Space and *Paper_Space..., in old files $MODEL_SPACE: their entities are the
    // layouts'.
    bool isLayout = false;
};

// SPATIAL_FILTER: where an insert is cut off.
struct SpatialFilter {
    Handle handle = 0;
    Handle owner = 0;
    std::vector<Point2> boundary; // 10, in the boundary's own coordinates; two are corners of a rectangle
    bool isInverted = false;      // what is within the boundary is cut off
    std::int32_t isOn = 1;        // 71
    // 40: perhaps the distance of a plane; then two matrices of three rows of four numbers, from the world to
    // the block, and from the world to the boundary.
    std::vector<double> numbers;
};

// The entities of one type, whether they can be drawn or not.
struct TypeCount {
    std::uint64_t inDrawing = 0; // in no block
    std::uint64_t inBlocks = 0;
    std::uint64_t firstLine = 0; // of the first one's name; 0: none
};

class Drawing {
public:
    Names names;
    Header header;
    std::map<NameId, TypeCount> types; // by the type's name
    std::map<NameId, Layer> layers;
    std::map<NameId, LineType> lineTypes;
    std::map<NameId, TextStyle> textStyles;
    std::map<NameId, DimStyle> dimStyles;
    std::map<NameId, MultiLineStyle> multiLineStyles;
    std::map<NameId, std::unique_ptr<Block>> blocks; // the first of a name counts
    std::map<Handle, NameId> blockOfRecord;          // BLOCK_RECORD handles
    std::map<Handle, NameId> lineTypeOfHandle;
    std::map<Handle, NameId> textStyleOfHandle;
    std::map<Handle, NameId> multiLineStyleOfHandle;
    std::map<Handle, SpatialFilter> filterOfInsert;
    std::map<Handle, Handle> placeInOrder; // of entities that are drawn in another one's place
    std::vector<Layout> layouts;           // without the model space, in the order of their tabs
    std::uint64_t bytes = 0;               // read
    std::uint64_t lines = 0;
    bool isEnded = false;           // whether the file ends with its EOF
    bool hasSkippedLines = false;   // some lines are no group codes where these belong
    bool hasSections = false;       // whether a section began anywhere
    bool hasLateCodePage = false;   // it was known only after texts that are read by it
    ShiftJisGuess guess;            // from the texts that were read, where nobody names a code page
    std::uint64_t firstGuessed = 0; // the line of the first text from which it was taken; 0: it was not
    bool hasLateParts = false;      // something that entities may need came after the first of them

    // Each is null when nothing has that name or handle.
    const Layer* FindLayer(NameId name) const;
    const LineType* FindLineType(NameId name) const;
    const TextStyle* FindTextStyle(NameId name) const;
    const Block* FindBlock(NameId name) const;
    const SpatialFilter* FindFilter(Handle insert) const;

    // The sort key that puts entities in the order of drawing.
    Handle PlaceOf(Handle entity) const
    {
        const auto place = placeInOrder.find(entity);
        return place != placeInOrder.end() ? place->second : entity;
    }
};

// Takes the entities of the ENTITIES section, in file order. VERTEX, ATTRIB and SEQEND come with their
// POLYLINE or INSERT. An entity belongs to the reader and is valid during the call.
class EntitySink {
public:
    virtual void Take(const Entity& entity) = 0;

protected:
    ~EntitySink() = default;
};

} // namespace prepare
