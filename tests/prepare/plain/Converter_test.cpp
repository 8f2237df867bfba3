#include "prepare/plain/Converter.h"
#include "prepare/plain/Measure.h"
#include "support/RecordingSink.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace prepare {
namespace {

using Lines = std::vector<std::string>;

class RecordingOutput final : public PlainOutput {
public:
    PlainSink& Model() override { return model; }
    std::size_t NewBlock(std::string_view) override
    {
        blocks.emplace_back();
        return blocks.size() - 1;
    }
    PlainSink& Block(std::size_t number) override { return blocks[number]; }

    RecordingSink model;
    std::deque<RecordingSink> blocks;
};

std::unique_ptr<Text> Attribute(const Point3& point)
{
    auto attribute = std::make_unique<Text>();
    attribute->type = EntityType::Attrib;
    attribute->text = "A";
    attribute->point = point;
    attribute->height = 1;
    return attribute;
}

TEST(Converter, EachPlaceOfAnArrayHasTheAttributes)
{
    Drawing drawing;
    Insert insert;
    insert.block = drawing.names.Of("BLOCK");
    auto block = std::make_unique<Block>();
    block->name = insert.block;
    block->entities.push_back(std::make_unique<Line>());
    drawing.blocks[insert.block] = std::move(block);
    insert.point = {10, 20, 0};
    insert.rotation = 90;
    insert.scale = {2, 2, 2};
    insert.columns = 2;
    insert.rows = 2;
    insert.columnSpacing = 100;
    insert.rowSpacing = 1000;
    insert.attributes.push_back(Attribute({5, 6, 0}));

    RecordingOutput output;
    Report report;
    const Options options;
    Converter converter(drawing, options, {}, output, report);
    converter.Take(insert);
    const Lines texts = {
        "text 'A' at 5,6 along 1,0 up 0,1 start",
        "text 'A' at 5,106 along 1,0 up 0,1 start",
        "text 'A' at -995,6 along 1,0 up 0,1 start",
        "text 'A' at -995,106 along 1,0 up 0,1 start",
    };
    Lines drawn;
    for (const std::string& line : output.model.lines)
        if (line.starts_with("text"))
            drawn.push_back(line);
    EXPECT_EQ(drawn, texts);
    EXPECT_EQ(output.model.lines.size(), 8U);
}

TEST(Converter, AnAttributeInheritsFromItsInsert)
{
    constexpr std::int32_t kByBlock = 0, kByLayer = 256, kRed = 1, kGreen = 3;
    const auto drawnOn = [](std::int32_t layerColour, std::int32_t attributeColour) {
        Drawing drawing;
        Insert insert;
        insert.layer = drawing.names.Of("Doors");
        insert.colour = kRed;
        drawing.layers[insert.layer].colour = layerColour;
        insert.attributes.push_back(Attribute({5, 6, 0}));
        insert.attributes.back()->colour = attributeColour;
        insert.attributes.back()->layer = drawing.names.Of("0");
        RecordingOutput output;
        Report report;
        const Options options;
        Converter converter(drawing, options, {}, output, report);
        converter.Take(insert);
        return output.model.lines;
    };
    const std::string text = "text 'A' at 5,6 along 1,0 up 0,1 start";
    EXPECT_EQ(drawnOn(kGreen, kByLayer), Lines{text + " colour 3"});
    EXPECT_EQ(drawnOn(kGreen, kByBlock), Lines{text + " colour 1"});
    EXPECT_EQ(drawnOn(-kGreen, kByLayer), Lines{});
    EXPECT_EQ(drawnOn(-kGreen, kByBlock), Lines{});
}

TEST(Converter, ABlockFarFromItsOriginIsWhereItWasAlsoMirrored)
{
    Drawing drawing;
    Insert insert;
    insert.block = drawing.names.Of("FAR");
    auto block = std::make_unique<Block>();
    block->name = insert.block;
    auto line = std::make_unique<Line>();
    line->start = {1000, 500, 0};
    line->end = {1001, 500, 0};
    block->entities.push_back(std::move(line));
    drawing.blocks[insert.block] = std::move(block);
    const Options options;
    for (const double side : {1.0, -1.0}) {
        insert.scale.y = side;
        Measure measure;
        Report unsaid;
        Converter measuring(drawing, options, {}, measure, unsaid);
        measuring.Take(insert);
        RecordingOutput output;
        Converter converter(drawing, options, {}, output, unsaid);
        converter.KnowBlocks(measuring.Variants(), measure);
        converter.Take(insert);
        EXPECT_EQ(output.model.lines, Lines{side > 0 ? "insert 0 at 1000.5,500 turned 0"
                                                     : "insert 0 at 1000.5,-500 turned 0 mirrored"});
        EXPECT_EQ(output.blocks.front().lines, Lines{"line -0.5,0 0.5,0"});
    }
}

TEST(Converter, ALeadersBlockHasTheLeadersAttributes)
{
    Drawing drawing;
    const NameId name = drawing.names.Of("BUBBLE");
    auto block = std::make_unique<Block>();
    block->name = name;
    block->base = {1, 0, 0};
    std::unique_ptr<Text> definition = Attribute({2, 0, 0});
    definition->type = EntityType::AttDef;
    definition->handle = 0xA;
    block->entities.push_back(std::move(definition));
    drawing.blocks[name] = std::move(block);
    drawing.blockOfRecord[0xB] = name;

    MultiLeader leader;
    leader.contentType = 1;
    leader.blockHandle = 0xB;
    leader.blockPoint = {10, 20, 0};
    leader.blockScale = {3, 3, 3};
    leader.attributes = {{0xF, "no"}, {0xA, "12"}, {0, "no"}};
    RecordingOutput output;
    Report report;
    const Options options;
    Converter converter(drawing, options, {}, output, report);
    converter.Take(leader);
    EXPECT_EQ(output.model.lines,
              (Lines{"insert 0 at 7,20 turned 0", "text '12' at 13,20 along 3,0 up 0,3 start"}));
}

// In a block, what is no constant has a copy at each insert.
TEST(Converter, ADefinitionOfAnAttributeIsShownWhereNoInsertHasItsOwn)
{
    constexpr std::int32_t kInvisible = 1, kConstant = 2;
    const auto countTexts = [](EntityType type, std::int32_t flags, bool isInBlock) {
        Drawing drawing;
        std::unique_ptr<Text> text = Attribute({2, 0, 0});
        text->type = type;
        text->tag = "T";
        text->flags = flags;
        Insert insert;
        insert.block = drawing.names.Of("BLOCK");
        insert.scale = {1, 1, 1};
        auto block = std::make_unique<Block>();
        block->name = insert.block;
        RecordingOutput output;
        Report report;
        const Options options;
        Converter converter(drawing, options, {}, output, report);
        if (isInBlock) {
            block->entities.push_back(std::move(text));
            block->entities.push_back(std::make_unique<Line>());
            drawing.blocks[insert.block] = std::move(block);
            converter.Take(insert);
        } else {
            converter.Take(*text);
        }
        std::size_t count = 0;
        output.blocks.push_back(output.model);
        for (const RecordingSink& sink : output.blocks)
            for (const std::string& line : sink.lines)
                count += line.starts_with("text");
        return count;
    };
    for (const EntityType type : {EntityType::AttDef, EntityType::Attrib}) {
        EXPECT_EQ(countTexts(type, 0, false), 1U);
        EXPECT_EQ(countTexts(type, kInvisible, false), 0U);
        EXPECT_EQ(countTexts(type, kConstant, true), 1U);
        EXPECT_EQ(countTexts(type, kConstant | kInvisible, true), 0U);
        EXPECT_EQ(countTexts(type, 0, true), type == EntityType::Attrib ? 1U : 0U);
    }
}

} // namespace
} // namespace prepare
